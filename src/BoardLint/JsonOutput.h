#pragma once

#include <string>
#include <vector>

#include "BoardLint/Finding.h"

namespace vemo::lint {

/// The findings as a JSON object with the list `findings`, as the manual page describes it. The
/// text is ASCII; invalid UTF-8 becomes U+FFFD.
std::string json_output(const std::vector<Finding>& findings);

}  // namespace vemo::lint
