#pragma once

namespace vemo::board {

/// Where the host sees the kernel's configuration registers.
class HostConfig {
public:
    /// In bytes; above 0 once set, 0 stands for not set.
    unsigned get_kernel_config_size() const { return m_kernel_config_size; }
    void set_kernel_config_size(unsigned size);

    unsigned kernel_config_start = 0;  // byte address

private:
    unsigned m_kernel_config_size = 0;
};

}  // namespace vemo::board
