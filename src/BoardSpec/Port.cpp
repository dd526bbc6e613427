#include "BoardSpec/Port.h"

namespace vemo::board {

unsigned Port::get_attribute(const std::string& attribute_name) const {
    return attributes.at(attribute_name);
}

bool Port::set_attribute(const std::string& attribute_name, unsigned value) {
    if (attribute_width >= 32 || value >= 1u << attribute_width) {
        return false;
    }
    attributes[attribute_name] = value;
    return true;
}

}  // namespace vemo::board
