#pragma once

#include <vector>

#include "BoardLint/Finding.h"
#include "BoardLint/PackageCheck.h"

namespace vemo::lint {

/// What loads and is probably wrong in a file, in the context of the models that it leads to;
/// nothing if the file does not load. The time taken grows linearly with the file.
std::vector<Finding> find_warnings(const PackageCheck::File& file);

}  // namespace vemo::lint
