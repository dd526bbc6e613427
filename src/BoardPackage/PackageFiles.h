#pragma once

#include <string>

#include "Base/TriedPaths.h"

namespace vemo {

/// Where the files of a package were searched for.
struct PackageFiles {
    std::string board;      ///< Path of the board file, as the caller gave it.
    TriedPaths candidates;  ///< Of the device model, then of the target model: the paths looked at,
                            ///< in order, each up to the file that was loaded.
};

}  // namespace vemo
