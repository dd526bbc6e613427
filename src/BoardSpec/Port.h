#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace vemo::board {

/// One port of an interface.
class Port {
public:
    enum Direction : std::int32_t { ReadWrite, Read, Write, TypeCount };

    /// The value of the attribute `name`; throws std::out_of_range when there is none.
    unsigned get_attribute(const std::string& name) const;

    /// Stores an attribute, over an earlier one of that name. False, with nothing stored, when
    /// `value` does not fit `attribute_width` bits; no value fits a width of 32 or more.
    bool set_attribute(const std::string& name, unsigned value);

    std::string name;
    Direction direction = ReadWrite;
    bool hazard_free_attributes = true;
    unsigned attribute_width = 0;  // in bits
    std::map<std::string, unsigned> attributes;
};

}  // namespace vemo::board
