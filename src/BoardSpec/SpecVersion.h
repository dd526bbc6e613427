#pragma once

namespace vemo::board {

/// Version of the board file format: a single-precision number, with a printer of its own. 0 means
/// that none was set.
struct SpecVersion {
    float value = 0.0f;
};

}  // namespace vemo::board
