#pragma once

#include <string>

namespace vemo::board {

/// Names of the kernel's clock and reset signals.
struct KernelClkReset {
    std::string clk;
    std::string clk2x;  // double-rate clock; may be empty
    std::string reset;
};

}  // namespace vemo::board
