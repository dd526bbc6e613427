#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace vemo::board {

/// One port of an interface.
class Port {
public:
    /// Which way a port goes, seen from the kernel: "rw", "r" and "w" in board files.
    enum Direction : std::int32_t { ReadWrite, Read, Write, TypeCount };

    /// Value of the attribute `name`. Throws std::out_of_range if there is none.
    unsigned get_attribute(const std::string& name) const;

    /// Stores an attribute, replacing one of the same name. Returns false and stores nothing if
    /// `value` needs more than `attribute_width` bits; no value fits a width of 32 or more.
    bool set_attribute(const std::string& name, unsigned value);

    std::string name;                            ///< Name of the port; not checked.
    Direction direction = ReadWrite;             ///< Never TypeCount in a board that was loaded.
    bool hazard_free_attributes = true;          ///< False on every port that has attributes.
    unsigned attribute_width = 0;                ///< Width of an attribute's encoding in bits.
    std::map<std::string, unsigned> attributes;  ///< Encodings by name.
};

}  // namespace vemo::board
