#include "BoardSpec/DeviceConfig.h"

#include "Base/Assert.h"
#include "Base/Ownership.h"

namespace vemo::board {

DeviceConfig::~DeviceConfig() { delete m_used_resources; }

dmodel::DeviceResources& DeviceConfig::get_used_resources() {
    VEMO_ASSERT(m_used_resources != NULL);
    return *m_used_resources;
}

const dmodel::DeviceResources& DeviceConfig::get_used_resources() const {
    VEMO_ASSERT(m_used_resources != NULL);
    return *m_used_resources;
}

void DeviceConfig::set_used_resources(dmodel::DeviceResources* used_resources) {
    VEMO_ASSERT(used_resources != NULL);
    replace_owned(m_used_resources, used_resources);
}

}  // namespace vemo::board
