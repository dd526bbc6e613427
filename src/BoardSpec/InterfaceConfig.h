#pragma once

#include "BoardSpec/InterfaceList.h"
#include "BoardSpec/KernelClkReset.h"

namespace vemo::board {

/// The interfaces between the board and the kernel, and the kernel's clocks and reset.
class InterfaceConfig : public InterfaceList {
public:
    InterfaceConfig() = default;
    ~InterfaceConfig();

    bool has_kernel_clk_reset() const { return m_kernel_clk_reset != nullptr; }
    KernelClkReset& get_kernel_clk_reset();
    const KernelClkReset& get_kernel_clk_reset() const;

    /// Takes ownership of the record, which must not be null; an earlier one is destroyed.
    void set_kernel_clk_reset(KernelClkReset* kernel_clk_reset);

private:
    KernelClkReset* m_kernel_clk_reset = nullptr;  // owned
};

}  // namespace vemo::board
