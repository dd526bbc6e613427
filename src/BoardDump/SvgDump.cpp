#include "BoardDump/SvgDump.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "BoardDump/AddressMap.h"
#include "BoardDump/Figures.h"
#include "BoardDump/SvgAddressMap.h"
#include "BoardDump/SvgCanvas.h"
#include "BoardDump/TextLayout.h"
#include "BoardSpec/Words.h"

namespace vemo::dump {
namespace {

using board::GlobalMemConfig;
using board::Interface;
using board::Port;

// The columns, from left to right: host and streams, arrows, FPGA, arrows, memories.
constexpr int MARGIN = 16;
constexpr int GUTTER = 84;
constexpr int SIDE_LEFT = MARGIN;
constexpr int SIDE_WIDTH = 228;
constexpr int FPGA_LEFT = SIDE_LEFT + SIDE_WIDTH + GUTTER;
constexpr int FPGA_WIDTH = 260;
constexpr int MEMORIES_LEFT = FPGA_LEFT + FPGA_WIDTH + GUTTER;
constexpr int MEMORIES_WIDTH = 300;
constexpr int WIDTH = MEMORIES_LEFT + MEMORIES_WIDTH + MARGIN;

constexpr int LINE = SvgCanvas::LINE;
constexpr int PADDING = 12;  // in boxes
constexpr int ROW = 22;      // height of a line of a box
constexpr int SPACE = 14;    // between boxes

// Limits for things of which there may be thousands.
constexpr std::size_t MAX_STREAMS = 32;
constexpr std::size_t MAX_MEMORIES = 48;
constexpr std::size_t MAX_PORTS = 96;  // of all memories, each of which has the same share

using Anchor = SvgCanvas::Anchor;
using Arrow = SvgCanvas::Arrow;

std::string width_text(const Interface& intf) {
    const unsigned width = intf.get_data_width();
    return width == 0 ? "" : std::to_string(width) + " bit";
}

std::size_t num_ports(const GlobalMemConfig& memory) {
    std::size_t count = 0;
    for (const Interface* intf : memory.get_interfaces()) {
        count += intf->get_num_ports();
    }
    return count;
}

class Picture {
public:
    explicit Picture(const AnswerSources& sources)
        : m_sources(sources), m_spec(*sources.spec), m_memories(m_spec.get_global_mem_configs()) {}

    Markup draw();

private:
    std::string description() const;

    int draw_host(int top);
    int draw_streams(int top, const char* heading, const board::InterfaceList& list,
                     bool are_channels);
    int draw_memories(int top);
    int draw_memory(int top, std::size_t number, std::size_t max_ports, bool is_dense);
    void draw_ports(int& y, const GlobalMemConfig& memory, std::size_t max_ports, bool in_heading);
    int draw_fpga(int top, int least_bottom);
    int draw_resources(SvgCanvas& out, int y) const;

    const AnswerSources& m_sources;
    const board::BoardSpec& m_spec;
    const std::vector<GlobalMemConfig*>& m_memories;
    SvgCanvas m_out;
};

std::string Picture::description() const {
    constexpr std::size_t MAX_DESCRIBED = 8;
    const board::DeviceConfig& device = m_spec.get_device_config();
    std::string text = "FPGA " + shortened(device_name(device.device_model)) + " of the family "
                       + m_sources.tm->get_family_str() + ". " + board_summary(m_spec)
                       + ". Used resources: ";
    const char* separator = "";
    for (const Resource& resource : RESOURCES) {
        text += separator + count_text(device.get_used_resources().*resource.count) + " of "
                + count_text(m_sources.dm->get_resources().*resource.count) + " " + resource.name;
        separator = ", ";
    }
    text += ".";
    for (std::size_t i = 0; i < std::min(m_memories.size(), MAX_DESCRIBED); ++i) {
        text += " Global memory " + memory_name_text(*m_memories[i]) + ": "
                + bandwidth_text(*m_memories[i]) + ", "
                + plural_text(m_memories[i]->get_num_intfs(), "interface", "interfaces") + ".";
    }
    text += " Host's kernel window: " + window_text(m_spec.get_host_config()) + ".";
    return text;
}

int Picture::draw_host(int top) {
    const board::HostConfig& host = m_spec.get_host_config();
    const int height = PADDING + 3 * LINE;
    m_out.rect(SIDE_LEFT, top, SIDE_WIDTH, height, "p-box", 6);
    int y = top + PADDING + 8;
    m_out.text(SIDE_LEFT + PADDING, y, "p-heading", "Host");
    m_out.arrow(SIDE_LEFT + SIDE_WIDTH, FPGA_LEFT, y + LINE - 4, Arrow::ToRight, "");
    y += LINE;
    m_out.text(SIDE_LEFT + PADDING, y, "p-name", "Kernel window");
    m_out.text(SIDE_LEFT + SIDE_WIDTH - PADDING, y, "p-figure",
               size_text(host.get_kernel_config_size()), Anchor::End);
    m_out.text(SIDE_LEFT + PADDING, y + LINE - 2, "p-figure", window_text(host));
    return top + height + SPACE;
}

/// The direction of an interface, with the kernel on the right: from master to slave, along a
/// stream, and from the kernel that interrupts.
Arrow arrow_of(Interface::Type type) {
    return type == Interface::Master || type == Interface::StreamSource ? Arrow::ToRight
                                                                        : Arrow::ToLeft;
}

int Picture::draw_streams(int top, const char* heading, const board::InterfaceList& list,
                          bool are_channels) {
    const std::size_t num_drawn = std::min<std::size_t>(list.get_num_intfs(), MAX_STREAMS);
    const std::size_t num_more = list.get_num_intfs() - num_drawn;
    const int height =
        PADDING + LINE + 2 + static_cast<int>(num_drawn + (num_more > 0 ? 1 : 0)) * ROW;
    m_out.rect(SIDE_LEFT, top, SIDE_WIDTH, height, "p-box", 6);
    int y = top + PADDING + 8;
    m_out.text(SIDE_LEFT + PADDING, y, "p-heading", heading);
    y += 2;
    for (std::size_t i = 0; i < num_drawn; ++i) {
        y += ROW;
        const Interface& intf = list.get_intf(static_cast<unsigned>(i));
        const std::string type(board::INTERFACE_TYPE_WORDS[intf.type]);
        const std::string name = intf.name + "." + intf.get_port_name(0);
        std::string details = are_channels ? intf.chan_id + ": " + name : name;
        details += ", " + type + (intf.get_data_width() == 0 ? "" : ", " + width_text(intf));
        m_out.begin_group(details);
        constexpr std::size_t COLUMNS = 18;
        m_out.text(SIDE_LEFT + PADDING, y, "p-name",
                   fitted(are_channels ? intf.chan_id : name, COLUMNS));
        m_out.text(SIDE_LEFT + SIDE_WIDTH - PADDING, y, "p-figure", fitted(width_text(intf), 9),
                   Anchor::End);
        m_out.arrow(SIDE_LEFT + SIDE_WIDTH, FPGA_LEFT, y - 4, arrow_of(intf.type), type);
        m_out.end_group();
    }
    if (num_more > 0) {
        m_out.text(SIDE_LEFT + PADDING, y + ROW, "p-alarm",
                   count_text(num_more) + " more, not drawn");
    }
    return top + height + SPACE;
}

int Picture::draw_memories(int top) {
    const std::size_t num_drawn = std::min(m_memories.size(), MAX_MEMORIES);
    std::size_t num_rows = 0;
    for (std::size_t i = 0; i < num_drawn; ++i) {
        num_rows += num_ports(*m_memories[i]);
    }
    constexpr std::size_t MANY_ROWS = 12;
    const bool is_dense = num_rows > MANY_ROWS;
    const std::size_t max_ports = MAX_PORTS / std::max<std::size_t>(num_drawn, 1);
    for (std::size_t i = 0; i < num_drawn; ++i) {
        top += i == 0 ? 0 : is_dense ? 4 : SPACE;
        top = draw_memory(top, i, max_ports, is_dense);
    }
    if (m_memories.size() > num_drawn) {
        m_out.text(MEMORIES_LEFT + PADDING, top + 12, "p-alarm",
                   count_text(m_memories.size() - num_drawn) + " more global memories, not drawn");
        top += LINE;
    }
    return top + SPACE;
}

int Picture::draw_memory(int top, std::size_t number, std::size_t max_ports, bool is_dense) {
    const GlobalMemConfig& memory = *m_memories[number];
    const std::size_t ports = num_ports(memory);
    const bool in_heading = is_dense && ports == 1;  // one line for all
    const std::size_t num_drawn = std::min(ports, max_ports);
    const auto num_rows = static_cast<int>(num_drawn + (num_drawn < ports ? 1 : 0));
    const int height = in_heading ? ROW : PADDING + (is_dense ? 16 : 16 + LINE) + num_rows * ROW;
    const std::string type(board::MEMORY_TYPE_WORDS[memory.get_type()]);
    const unsigned num_intfs = memory.get_num_intfs();

    m_out.begin_group(name_text(memory.name) + ", " + type + ", " + bandwidth_text(memory)
                      + ", configuration at " + address_text(memory.config_addr));
    m_out.rect(MEMORIES_LEFT, top, MEMORIES_WIDTH, height, "p-box", in_heading ? 3 : 6);
    int y = top + (in_heading ? 15 : PADDING + 8);
    m_out.rect(MEMORIES_LEFT + PADDING, y - 10, 12, 12, memory_style(number).c_str(), 2);
    m_out.text(MEMORIES_LEFT + PADDING + 20, y, "p-heading",
               fitted(name_text(memory.name), in_heading ? 11 : 19));
    m_out.text(MEMORIES_LEFT + MEMORIES_WIDTH - PADDING, y, "p-figure", bandwidth_text(memory),
               Anchor::End);
    if (!is_dense) {
        y += LINE - 2;
        m_out.text(MEMORIES_LEFT + PADDING, y, "p-figure",
                   num_intfs < 2
                       ? type
                       : type + ", interleaved " + size_text(memory.get_num_interleaved_bytes()));
    }
    m_out.end_group();
    draw_ports(y, memory, num_drawn, in_heading);
    if (num_drawn < ports) {
        m_out.text(MEMORIES_LEFT + PADDING, y + ROW, "p-alarm",
                   count_text(ports - num_drawn) + " more, not drawn");
    }
    return top + height;
}

void Picture::draw_ports(int& y, const GlobalMemConfig& memory, std::size_t max_ports,
                         bool in_heading) {
    for (const Interface* intf : memory.get_interfaces()) {
        for (unsigned i = 0; i < intf->get_num_ports() && max_ports > 0; ++i, --max_ports) {
            const Port& port = *intf->get_port(i);
            const std::string name =
                (i == 0 ? intf->name : shortened(intf->name)) + "." + port.name;
            m_out.begin_group(
                name + ", " + width_text(*intf) + ", bursts of up to "
                + std::to_string(intf->get_max_burst_count()) + ", "
                + range_text(intf->address, std::uint64_t(intf->address) + intf->get_size() - 1));
            if (in_heading) {
                m_out.text(MEMORIES_LEFT + 130, y, "p-figure", fitted(port.name, 11));
            } else {
                y += ROW;
                m_out.text(MEMORIES_LEFT + PADDING, y, "p-name", fitted(name, 26));
                m_out.text(MEMORIES_LEFT + MEMORIES_WIDTH - PADDING, y, "p-figure",
                           size_text(intf->get_size()), Anchor::End);
            }
            m_out.arrow(FPGA_LEFT + FPGA_WIDTH, MEMORIES_LEFT, y - 4,
                        port.direction == Port::Read    ? Arrow::ToLeft
                        : port.direction == Port::Write ? Arrow::ToRight
                                                        : Arrow::Both,
                        fitted(width_text(*intf), 13));
            m_out.end_group();
        }
    }
}

int Picture::draw_resources(SvgCanvas& out, int y) const {
    constexpr int LEFT = FPGA_LEFT + PADDING;
    constexpr int RIGHT = FPGA_LEFT + FPGA_WIDTH - PADDING;
    constexpr int BAR_WIDTH = RIGHT - LEFT - 52;
    for (const Resource& resource : RESOURCES) {
        const std::uint64_t used = m_spec.get_device_config().get_used_resources().*resource.count;
        const std::uint64_t available = m_sources.dm->get_resources().*resource.count;
        const bool is_over = used > available;
        out.text(LEFT, y, "p-name", resource.name);
        out.text(RIGHT, y, is_over ? "p-alarm" : "p-figure",
                 count_text(used) + " of " + count_text(available), Anchor::End);
        out.rect(LEFT, y + 6, BAR_WIDTH, 8, "p-track", 2);
        const std::uint64_t length = is_over          ? BAR_WIDTH
                                     : available == 0 ? 0
                                                      : BAR_WIDTH * used / available;
        if (length > 0) {
            out.rect(LEFT, y + 6, static_cast<int>(length), 8, is_over ? "p-over" : "p-used", 2);
        }
        out.text(RIGHT, y + 14, is_over ? "p-alarm" : "p-figure",
                 available == 0 ? "none" : share_text(used, available), Anchor::End);
        y += 38;
    }
    return y;
}

int Picture::draw_fpga(int top, int least_bottom) {
    constexpr int LEFT = FPGA_LEFT + PADDING;
    constexpr std::size_t COLUMNS = 22;
    const board::KernelClkReset& signals = m_spec.get_interface_config().get_kernel_clk_reset();
    const std::string& device_model = m_spec.get_device_config().device_model;

    SvgCanvas contents;  // the height of the box depends on them
    contents.begin_group("Device model " + device_model);
    int y = top + PADDING + 8;
    contents.text(LEFT, y, "p-heading", fitted("FPGA " + device_name(device_model), 28));
    contents.end_group();
    y += LINE;
    contents.text(LEFT, y, "p-name", m_sources.tm->get_family_str());
    contents.text(FPGA_LEFT + FPGA_WIDTH - PADDING, y, "p-figure",
                  fitted("fmax " + figure_text(m_sources.dm->get_expected_fmax()) + " MHz", 22),
                  Anchor::End);
    y = draw_resources(contents, y + LINE + 8);
    contents.text(LEFT, y, "p-heading", "Kernel");
    const std::pair<const char*, const std::string&> rows[] = {
        {"clock", signals.clk}, {"2x clock", signals.clk2x}, {"reset", signals.reset}};
    for (const auto& [label, signal] : rows) {
        if (signal.empty()) {
            continue;
        }
        y += LINE;
        contents.begin_group(signal);
        contents.text(LEFT, y, "p-figure", label);
        contents.text(FPGA_LEFT + FPGA_WIDTH - PADDING, y, "p-name", fitted(signal, COLUMNS),
                      Anchor::End);
        contents.end_group();
    }
    const int bottom = std::max(y + PADDING, least_bottom);
    m_out.rect(FPGA_LEFT, top, FPGA_WIDTH, bottom - top, "p-box", 6);
    m_out.append(contents);
    return bottom;
}

Markup Picture::draw() {
    const std::string name = board_name_text(m_spec);
    int top = MARGIN + 24;
    m_out.begin_group(name);
    m_out.text(MARGIN, top, "p-title", fitted(name, 70));
    m_out.end_group();
    top += LINE + 2;
    m_out.text(MARGIN, top, "p-figure", board_summary(m_spec));
    top += SPACE;

    int left_bottom = draw_host(top);
    if (m_spec.get_interface_config().get_num_intfs() > 0) {
        left_bottom =
            draw_streams(left_bottom, "Kernel interfaces", m_spec.get_interface_config(), false);
    }
    if (m_spec.has_channel_config() && m_spec.get_channel_config().get_num_intfs() > 0) {
        left_bottom = draw_streams(left_bottom, "Channels", m_spec.get_channel_config(), true);
    }
    const int memories_bottom = draw_memories(top);
    int bottom = draw_fpga(top, std::max(left_bottom, memories_bottom) - SPACE);
    bottom += LINE;
    m_out.text(
        MARGIN, bottom, "p-label",
        "Arrows lead from master to slave, along a stream, and from the kernel that interrupts. At "
        "a memory,");
    m_out.text(MARGIN, bottom + 14, "p-label",
               "they lead to the kernel for reads and to the memory for writes.");
    bottom += 14;
    bottom = draw_address_map(m_out, m_spec, MARGIN, WIDTH - MARGIN, bottom + SPACE) + MARGIN;

    return m_out.svg(WIDTH, bottom, "The board " + shortened(name), description());
}

}  // namespace

Markup picture(const AnswerSources& sources) { return Picture(sources).draw(); }

std::string svg_dump(const AnswerSources& sources) { return picture(sources).text(); }

}  // namespace vemo::dump
