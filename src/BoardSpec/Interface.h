#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "BoardSpec/Port.h"

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

    Type get_type() const { return type; }
    void set_type(Type new_type);

    /// In bits; above 0 once set.
    unsigned get_data_width() const { return m_data_width; }
    void set_data_width(unsigned data_width);

    /// Above 0.
    unsigned get_max_burst_count() const { return m_max_burst_count; }
    void set_max_burst_count(unsigned max_burst_count);

    /// In bytes; above 0 once set. Kept in 32 bits.
    unsigned get_size() const { return m_size; }
    void set_size(std::size_t size);

    /// Samples a second of a stream; above 0 once set, 0 when the file gives none.
    float get_sampling_rate() const { return m_sampling_rate; }
    void set_sampling_rate(float sampling_rate);

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

    Type type = TypeCount;
    unsigned address = 0;  // in bytes
    std::string chan_id;
    std::string name;
    unsigned latency = 240;
    unsigned latency_type = 0;  // 0 average, 1 fixed
    unsigned waitrequest = 0;
    unsigned waitrequest_allowance = 0;
    bool bsp_vnmm_write_ack = false;
    unsigned addpipe = 0;
    std::string enable;  // name of the enable signal
    std::string clock;   // name of the clock signal
    unsigned misc = 0;

private:
    static Type checked(Type type);

    unsigned m_data_width = 0;
    unsigned m_max_burst_count = 1;
    unsigned m_size = 0;
    float m_sampling_rate = 0.0f;
    std::vector<Port*> m_port;  // in the order added
};

}  // namespace vemo::board
