#include "BoardSpec/GlobalMemConfig.h"

#include <algorithm>

#include "Base/Assert.h"

namespace vemo::board {

void GlobalMemConfig::set_max_bandwidth(float max_bandwidth) {
    VEMO_ASSERT(max_bandwidth >= 0.0f);
    m_max_bandwidth = max_bandwidth;
}

void GlobalMemConfig::set_type(Type new_type) { type = checked(new_type); }

GlobalMemConfig::Type GlobalMemConfig::checked(Type type) {
    VEMO_ASSERT(type >= 0 && type < TypeCount);
    return type;
}

unsigned GlobalMemConfig::get_max_burst_count() const {
    VEMO_ASSERT(get_num_intfs() > 0);
    const unsigned max_burst_count = get_intf(0).get_max_burst_count();
    for (const Interface* intf : m_interfaces) {
        VEMO_ASSERT(intf->get_max_burst_count() == max_burst_count);
    }
    return max_burst_count;
}

unsigned GlobalMemConfig::get_data_width_bits() const {
    VEMO_ASSERT(get_num_intfs() > 0);
    const unsigned data_width = get_intf(0).get_data_width();
    for (const Interface* intf : m_interfaces) {
        VEMO_ASSERT(intf->get_data_width() == data_width);
    }
    return data_width;
}

unsigned GlobalMemConfig::get_data_width_bytes() const {
    const unsigned data_width_bits = get_data_width_bits();
    VEMO_ASSERT((data_width_bits % 8) == 0);
    return data_width_bits / 8;
}

unsigned GlobalMemConfig::get_num_interleaved_bytes() const {
    VEMO_ASSERT(get_num_intfs() > 0);
    if (get_num_intfs() > 1 && interleaved_bytes != 0) {
        return interleaved_bytes;
    }
    return get_intf(0).get_size();
}

unsigned GlobalMemConfig::get_max_byte_address() const {
    unsigned max_address = 0;
    for (const Interface* intf : m_interfaces) {
        max_address = std::max(max_address, intf->address + intf->get_size() - 1);
    }
    return max_address;
}

unsigned GlobalMemConfig::get_min_byte_address() const {
    return m_interfaces.empty() ? 0 : get_intf(0).address;
}

}  // namespace vemo::board
