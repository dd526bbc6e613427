#pragma once

#include <string>

namespace vemo {

/// What a message says about a file that did not load, behind what its loader has reported.
inline std::string load_failure_message(const std::string& filename) {
    return "Failed to load xml file: " + filename
           + "\nMake sure the Board Package is compatible with the current edition";
}

}  // namespace vemo
