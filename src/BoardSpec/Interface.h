#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "BoardSpec/InterfaceDetails.h"
#include "BoardSpec/Port.h"
#include "CompactString.h"
#include "PtrList.h"

namespace vemo::board {

/// One Varnel interconnect connection of the board: a memory slave, a master, an interrupt line or
/// the end of a stream, with its ports.
class Interface {
public:
    /// TypeCount means that no type was set.
    enum Type : std::int32_t { Slave, Master, Irq, StreamSource, StreamSink, TypeCount };

    Interface() = default;

    /// The ports are not destroyed with the interface: whoever took one from get_port() may keep
    /// it. They live as long as the process.
    ~Interface() = default;
    Interface(const Interface&) = delete;
    Interface& operator=(const Interface&) = delete;

    Type get_type() const { return m_type; }
    void set_type(Type type);

    /// In bits; above 0 once set.
    unsigned get_data_width() const { return m_data_width; }
    void set_data_width(unsigned data_width);

    /// Above 0.
    unsigned get_max_burst_count() const { return m_max_burst_count; }
    void set_max_burst_count(unsigned max_burst_count);

    /// In bytes; above 0 once set. Kept in 32 bits.
    unsigned get_size() const { return m_size; }
    void set_size(std::size_t size);

    /// Must be above 0.
    void set_sampling_rate(float sampling_rate);

    /// What the interface says beyond its name and range; all defaults unless it does.
    const InterfaceDetails& get_details() const;

    /// The same to be written.
    InterfaceDetails& edit_details();

    /// Appends `port`, which must not be null.
    void add_port(Port* port);

    /// Appends a new port; a `dir` that is no direction leaves it ReadWrite.
    void add_port(const std::string& name, Port::Direction dir);

    unsigned get_num_ports() const { return static_cast<unsigned>(m_port.size()); }

    /// Port by index, which must be below the number of ports.
    const Port* get_port(unsigned port) const;
    std::string get_port_name(unsigned port) const;
    Port::Direction get_port_direction(unsigned port) const;

    /// Whether there is both a Read and a Write port; ReadWrite ones count for neither.
    bool has_separate_rw_ports() const;

    CompactString name;
    CompactString chan_id;
    unsigned address = 0;  // in bytes
    unsigned latency = 240;
    unsigned latency_type = 0;  // 0 average, 1 fixed

private:
    unsigned m_data_width = 0;
    unsigned m_max_burst_count = 1;
    unsigned m_size = 0;
    Type m_type = TypeCount;

    std::unique_ptr<InterfaceDetails> m_details;  // null while all are defaults
    PtrList<Port> m_port;                         // in the order added
};

}  // namespace vemo::board
