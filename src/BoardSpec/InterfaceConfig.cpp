#include "BoardSpec/InterfaceConfig.h"

#include "Base/Assert.h"
#include "Base/Ownership.h"

namespace vemo::board {

InterfaceConfig::~InterfaceConfig() { delete m_kernel_clk_reset; }

KernelClkReset& InterfaceConfig::get_kernel_clk_reset() {
    VEMO_ASSERT(m_kernel_clk_reset != NULL);
    return *m_kernel_clk_reset;
}

const KernelClkReset& InterfaceConfig::get_kernel_clk_reset() const {
    VEMO_ASSERT(m_kernel_clk_reset != NULL);
    return *m_kernel_clk_reset;
}

void InterfaceConfig::set_kernel_clk_reset(KernelClkReset* kernel_clk_reset) {
    VEMO_ASSERT(kernel_clk_reset != NULL);
    replace_owned(m_kernel_clk_reset, kernel_clk_reset);
}

}  // namespace vemo::board
