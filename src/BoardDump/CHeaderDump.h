#pragma once

#include <string>

#include "BoardPackage/AnswerTable.h"

namespace vemo::dump {

/// A header for programs in C (from C11 on) and C++ (from C++17 on): macros for the board, the
/// host's window on the kernel, the global memories, the channels and the compile flows. It has
/// nothing but ASCII, and compiles without warnings. A text is a string literal, or an array of
/// characters where it is longer than a literal may be.
///
/// In the name of a macro stands the name of the memory, channel or flow: in upper case, with "_"
/// for what is no letter or digit, and shortened. Its number follows where the same is there
/// already, or takes its place where nothing is left of it. VEMO_FOR_EACH_<kind>(X) is X(<that
/// name>) for each, in order.
std::string c_dump(const AnswerSources& sources);

}  // namespace vemo::dump
