#include "BoardSpec/HostConfig.h"

#include "Base/Assert.h"

namespace vemo::board {

void HostConfig::set_kernel_config_size(unsigned size) {
    VEMO_ASSERT(size > 0);
    m_kernel_config_size = size;
}

}  // namespace vemo::board
