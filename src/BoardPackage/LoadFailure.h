#pragma once

#include <string>

namespace vemo {

/// The message about a file that did not load. It follows the reports of the loader.
inline std::string load_failure_message(const std::string& filename) {
    return "Failed to load xml file: " + filename
           + "\nMake sure the Board Package is compatible with the current edition";
}

}  // namespace vemo
