#pragma once

#include <string>

namespace vemo::board {

/// Version of the board file format: a single-precision number, with a printer of its own. 0 means
/// that none was set.
struct SpecVersion {
    float value = 0.0f;
};

/// The version as users see it: six significant digits, in the "C" locale; "<unknown>(0)" for 0.
std::string to_string(SpecVersion version);

}  // namespace vemo::board
