#pragma once

#include <string>
#include <vector>

namespace vemo::dump {

/// A rule that tells GNU make, ninja and CMake that `target` depends on `files`, and a rule without
/// prerequisites for each file, so that make does not stop when one is removed. A build tool that
/// cannot read a name (ninja: quotes) makes the target in every build.
///
/// Throws std::runtime_error for a name with a newline or a semicolon: make could take what follows
/// for a command.
std::string depfile_text(const std::string& target, const std::vector<std::string>& files);

}  // namespace vemo::dump
