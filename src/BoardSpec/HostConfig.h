#pragma once

namespace vemo::board {

/// The window through which the host reaches the kernel's configuration registers.
class HostConfig {
public:
    /// Size of the window in bytes; 0 before it is set.
    unsigned get_kernel_config_size() const { return m_kernel_config_size; }

    /// `size` must be above 0.
    void set_kernel_config_size(unsigned size);

    unsigned kernel_config_start = 0;  ///< First byte address of the window.

private:
    unsigned m_kernel_config_size = 0;
};

}  // namespace vemo::board
