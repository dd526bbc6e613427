#pragma once

#include <cstdint>
#include <string>

#include "BoardSpec/InterfaceList.h"

namespace vemo::board {

/// One global memory of the board, and the figures that follow from its interfaces.
class GlobalMemConfig : public InterfaceList {
public:
    enum Type : std::int32_t { SharedVirtual, SharedPhysical, DevicePrivate, TypeCount };

    /// At least 0. Means nothing before it is set.
    float get_max_bandwidth() const { return m_max_bandwidth; }
    void set_max_bandwidth(float max_bandwidth);

    Type get_type() const { return type; }
    void set_type(Type new_type);

    // The next four need an interface. The first two need the same value on every interface, too.

    unsigned get_max_burst_count() const;
    unsigned get_data_width_bits() const;

    /// Needs a width of whole bytes.
    unsigned get_data_width_bytes() const;

    /// Bytes after which the addresses go over to the next interface: `interleaved_bytes` when
    /// that is given and there are several interfaces, else the size of the first interface.
    unsigned get_num_interleaved_bytes() const;

    /// Last byte address that an interface covers: inclusive, modulo 2^32, 0 without interfaces.
    unsigned get_max_byte_address() const;

    /// The first interface's address, not the least of all; 0 without interfaces.
    unsigned get_min_byte_address() const;

    unsigned interleaved_bytes = 0;  // as in the file; 0 stands for not given
    unsigned config_addr = 0;        // byte address
    Type type = DevicePrivate;
    std::string name;

private:
    static Type checked(Type type);

    float m_max_bandwidth = 0.0f;
};

}  // namespace vemo::board
