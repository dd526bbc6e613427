#pragma once

#include <string>
#include <vector>

namespace vemo {

/// Paths that a search for a file has looked at, in order.
using TriedPaths = std::vector<std::string>;

/// Appends `path` to `tried`, which may be null, unless it is the last entry already.
inline void add_tried_path(TriedPaths* tried, const std::string& path) {
    if (tried != nullptr && (tried->empty() || tried->back() != path)) {
        tried->push_back(path);
    }
}

}  // namespace vemo
