#pragma once

#include <string>
#include <vector>

#include "BoardLint/Finding.h"

namespace vemo::lint {

/// The findings as workflow commands of GitHub Actions, one line each, which become annotations of
/// the files. Whatever the files contain, no other command is written.
std::string github_output(const std::vector<Finding>& findings);

}  // namespace vemo::lint
