#pragma once

#include <cstdint>
#include <string>

#include "BoardSpec/InterfaceList.h"

namespace vemo::board {

/// One global memory of the board, and the figures that follow from its interfaces.
///
/// A memory that was read from a file has at least one interface, and all of its interfaces have
/// the same data width and maximum burst count. Only the width need not be whole bytes.
class GlobalMemConfig : public InterfaceList {
public:
    /// Who sees the memory: "shared virtual", "shared physical", "device private" in board files.
    enum Type : std::int32_t { SharedVirtual, SharedPhysical, DevicePrivate, TypeCount };

    /// Total bandwidth of all interfaces, at least 0; by convention in MB/s. Meaningless before it
    /// is set.
    float get_max_bandwidth() const { return m_max_bandwidth; }

    /// `max_bandwidth` must be at least 0, so no NaN either.
    void set_max_bandwidth(float max_bandwidth);

    /// The same as the field `type`.
    Type get_type() const { return type; }

    /// Sets `type`. `new_type` must be one of the enumerators before TypeCount.
    void set_type(Type new_type);

    /// Maximum burst count of the interfaces. Aborts without interfaces or if they differ.
    unsigned get_max_burst_count() const;

    /// Data width of the interfaces in bits. Aborts without interfaces or if they differ.
    unsigned get_data_width_bits() const;

    /// The same in bytes. Aborts, too, if the width in bits is not a multiple of 8.
    unsigned get_data_width_bytes() const;

    /// Bytes after which addresses move on to the next interface: `interleaved_bytes` if that is
    /// given and there are several interfaces, else the size of the first interface. Aborts
    /// without interfaces.
    unsigned get_num_interleaved_bytes() const;

    /// Last byte address that an interface covers: inclusive, modulo 2^32; 0 without interfaces.
    unsigned get_max_byte_address() const;

    /// Address of the first interface, which need not be the lowest; 0 without interfaces.
    unsigned get_min_byte_address() const;

    unsigned interleaved_bytes = 0;  ///< In bytes; 0 when the file gives none.
    unsigned config_addr = 0;        ///< Byte address of the configuration; 0 when not given.
    Type type = DevicePrivate;       ///< Set it with set_type(), which checks it.
    std::string name;                ///< May be empty if the board has no other memory.

private:
    static Type checked(Type type);

    float m_max_bandwidth = 0.0f;
};

}  // namespace vemo::board
