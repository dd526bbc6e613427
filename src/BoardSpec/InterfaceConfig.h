#pragma once

#include "BoardSpec/InterfaceList.h"
#include "BoardSpec/KernelClkReset.h"

namespace vemo::board {

/// The interfaces between the board and the kernel, of any type, and the kernel's clocks and reset.
class InterfaceConfig : public InterfaceList {
public:
    InterfaceConfig() = default;
    ~InterfaceConfig();

    /// Always true for a board that was loaded.
    bool has_kernel_clk_reset() const { return m_kernel_clk_reset != nullptr; }

    /// The record, which must have been set. Owned by this object.
    KernelClkReset& get_kernel_clk_reset();
    const KernelClkReset& get_kernel_clk_reset() const;

    /// Takes ownership of the record, which must not be null, and destroys an earlier one.
    void set_kernel_clk_reset(KernelClkReset* kernel_clk_reset);

private:
    KernelClkReset* m_kernel_clk_reset = nullptr;  // owned
};

}  // namespace vemo::board
