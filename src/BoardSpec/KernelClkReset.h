#pragma once

#include <string>

namespace vemo::board {

/// Names of the kernel's clock and reset signals, as the board file writes them.
struct KernelClkReset {
    std::string clk;    ///< The kernel clock.
    std::string clk2x;  ///< The clock of twice that rate; empty for none.
    std::string reset;  ///< The kernel reset.
};

}  // namespace vemo::board
