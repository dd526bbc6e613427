#include "BoardSpec/Interface.h"

#include <algorithm>
#include <memory>

#include "Base/Assert.h"
#include "Base/Ownership.h"

namespace vemo::board {

void Interface::set_type(Type new_type) { type = checked(new_type); }

Interface::Type Interface::checked(Type type) {
    VEMO_ASSERT(type >= 0 && type < TypeCount);
    return type;
}

void Interface::set_data_width(unsigned data_width) {
    VEMO_ASSERT(data_width > 0);
    m_data_width = data_width;
}

void Interface::set_max_burst_count(unsigned max_burst_count) {
    VEMO_ASSERT(max_burst_count > 0);
    m_max_burst_count = max_burst_count;
}

void Interface::set_size(std::size_t size) {
    VEMO_ASSERT(size > 0);
    m_size = static_cast<unsigned>(size);
}

void Interface::set_sampling_rate(float sampling_rate) {
    VEMO_ASSERT(sampling_rate > 0);
    m_sampling_rate = sampling_rate;
}

void Interface::add_port(Port* port) {
    VEMO_ASSERT(port != NULL);
    append_owned(m_port, std::unique_ptr<Port>(port));
}

void Interface::add_port(const std::string& port_name, Port::Direction dir) {
    auto port = std::make_unique<Port>();
    port->name = port_name;
    if (dir >= 0 && dir < Port::TypeCount) {
        port->direction = dir;
    }
    add_port(port.release());
}

const Port* Interface::get_port(unsigned port) const {
    VEMO_ASSERT(port < m_port.size());
    VEMO_ASSERT(m_port[port] != NULL);
    return m_port[port];
}

std::string Interface::get_port_name(unsigned port) const { return get_port(port)->name; }

Port::Direction Interface::get_port_direction(unsigned port) const {
    return get_port(port)->direction;
}

bool Interface::has_separate_rw_ports() const {
    const auto has_port = [this](Port::Direction direction) {
        return std::any_of(m_port.begin(), m_port.end(),
                           [direction](const Port* port) { return port->direction == direction; });
    };
    return has_port(Port::Read) && has_port(Port::Write);
}

}  // namespace vemo::board
