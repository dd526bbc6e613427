#include "BoardSpec/Port.h"

namespace vemo::board {

unsigned Port::get_attribute(const std::string& attribute_name) const {
    return get_attributes().at(attribute_name);
}

bool Port::set_attribute(const std::string& attribute_name, unsigned value) {
    if (attribute_width >= 32 || value >= 1u << attribute_width) {
        return false;
    }
    if (m_attributes == nullptr) {
        m_attributes = std::make_unique<std::map<std::string, unsigned>>();
    }
    (*m_attributes)[attribute_name] = value;
    return true;
}

const std::map<std::string, unsigned>& Port::get_attributes() const {
    static const std::map<std::string, unsigned> NO_ATTRIBUTES;
    return m_attributes == nullptr ? NO_ATTRIBUTES : *m_attributes;
}

}  // namespace vemo::board
