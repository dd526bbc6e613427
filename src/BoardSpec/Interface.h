#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "BoardSpec/Port.h"

namespace vemo::board {

/// One Varnel interconnect connection of the board: a memory slave, a master, an interrupt line or
/// the end of a stream, with its ports.
///
/// Figures and names are kept as the file gives them. Setters abort on a value out of range.
class Interface {
public:
    /// What the interface is. TypeCount means that no type was set.
    enum Type : std::int32_t { Slave, Master, Irq, StreamSource, StreamSink, TypeCount };

    Interface() = default;

    /// Leaves the ports alone: whoever took one from get_port() may keep it. BoardPackage destroys
    /// the ports of its boards; otherwise they live as long as the process.
    ~Interface() = default;
    Interface(const Interface&) = delete;
    Interface& operator=(const Interface&) = delete;

    /// The same as the field `type`.
    Type get_type() const { return type; }

    /// Sets `type`. `new_type` must be one of the enumerators before TypeCount.
    void set_type(Type new_type);

    /// Data width in bits; 0 when the file gives none.
    unsigned get_data_width() const { return m_data_width; }

    /// `data_width` must be above 0.
    void set_data_width(unsigned data_width);

    /// Most transfers in one burst, at least 1; 1 when the file gives none.
    unsigned get_max_burst_count() const { return m_max_burst_count; }

    /// `max_burst_count` must be above 0.
    void set_max_burst_count(unsigned max_burst_count);

    /// Size of the address range in bytes; 0 when the file gives none.
    unsigned get_size() const { return m_size; }

    /// `size` must be above 0. Only its low 32 bits are kept.
    void set_size(std::size_t size);

    /// Sampling rate of a stream; 0 when the file gives none.
    float get_sampling_rate() const { return m_sampling_rate; }

    /// `sampling_rate` must be above 0, so no NaN either.
    void set_sampling_rate(float sampling_rate);

    /// Appends `port`, which must not be null, and takes it over.
    void add_port(Port* port);

    /// Appends a new port named `name`. If `dir` is no direction, the port is ReadWrite.
    void add_port(const std::string& name, Port::Direction dir);

    /// Number of ports: at least 1 on an interface that was read from a file.
    unsigned get_num_ports() const { return static_cast<unsigned>(m_port.size()); }

    /// Port number `port`, counted from 0 in the order added; it must exist. Still the interface's.
    const Port* get_port(unsigned port) const;

    /// Name of that port.
    std::string get_port_name(unsigned port) const;

    /// Direction of that port.
    Port::Direction get_port_direction(unsigned port) const;

    /// Whether there is both a Read and a Write port; ReadWrite ports count for neither.
    bool has_separate_rw_ports() const;

    Type type = TypeCount;               ///< Set it with set_type(), which checks it.
    unsigned address = 0;                ///< First byte address; the low 32 bits of the file's.
    std::string chan_id;                 ///< Identifier of a channel; empty elsewhere.
    std::string name;                    ///< Name of the component that the interface belongs to.
    unsigned latency = 240;              ///< Latency in clock cycles.
    unsigned latency_type = 0;           ///< 0: `latency` is an average; 1: it is fixed.
    unsigned waitrequest = 0;            ///< Wait-request setting; 0 for none.
    unsigned waitrequest_allowance = 0;  ///< Transfers accepted after a wait request.
    bool bsp_vnmm_write_ack = false;     ///< Whether the board acknowledges writes.
    unsigned addpipe = 0;                ///< Pipeline stages to add.
    std::string enable;                  ///< Name of the enable signal; empty for none.
    std::string clock;                   ///< Name of the clock signal; empty for none.
    unsigned misc = 0;                   ///< Free for any purpose.

private:
    static Type checked(Type type);

    unsigned m_data_width = 0;
    unsigned m_max_burst_count = 1;
    unsigned m_size = 0;
    float m_sampling_rate = 0.0f;
    std::vector<Port*> m_port;  // in the order added
};

}  // namespace vemo::board
