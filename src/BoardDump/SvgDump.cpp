#include "BoardDump/SvgDump.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

#include "BoardDump/AddressMap.h"
#include "BoardDump/AddressScale.h"
#include "BoardDump/Figures.h"
#include "BoardDump/TextLayout.h"
#include "BoardSpec/MemoryOverlap.h"
#include "BoardSpec/Words.h"

namespace vemo::dump {
namespace {

using board::GlobalMemConfig;
using board::Interface;
using board::Port;

// Monospaced fonts, so that the width of a text is known without the font. No variables and no
// nested rules, which not every SVG renderer supports.
constexpr const char* STYLE = R"(<style>
svg{max-width:100%;height:auto}
.p-ground{fill:#ffffff;stroke:#d0d7de}
.p-box{fill:#f6f8fa;stroke:#8c959f}
.p-track{fill:#d8dee4}
.p-used{fill:#0969da}
.p-over{fill:#cf222e}
.p-line{stroke:#57606a;fill:none}
.p-head{fill:#57606a}
.p-rule{stroke:#d0d7de;fill:none}
.p-gap{fill:none;stroke:#8c959f;stroke-dasharray:3 3}
.p-m0{fill:#c8e1ff;stroke:#0969da}
.p-m1{fill:#c6efce;stroke:#1a7f37}
.p-m2{fill:#fff0b3;stroke:#9a6700}
.p-m3{fill:#ffd6e8;stroke:#bf3989}
.p-m4{fill:#e6d9ff;stroke:#8250df}
.p-m5{fill:#ffdcc2;stroke:#bc4c00}
text{font-family:'DejaVu Sans Mono',Menlo,Consolas,'Liberation Mono',monospace;white-space:pre}
.p-title{font-size:20px;font-weight:bold;fill:#1f2328}
.p-heading{font-size:13px;font-weight:bold;fill:#1f2328}
.p-name{font-size:12px;fill:#1f2328}
.p-figure{font-size:11px;fill:#57606a}
.p-label{font-size:10px;fill:#57606a}
.p-alarm{font-size:11px;font-weight:bold;fill:#cf222e}
@media (prefers-color-scheme:dark){
.p-ground{fill:#0d1117;stroke:#30363d}
.p-box{fill:#161b22;stroke:#6e7681}
.p-track{fill:#30363d}
.p-used{fill:#388bfd}
.p-over{fill:#f85149}
.p-line{stroke:#9198a1}
.p-head{fill:#9198a1}
.p-rule{stroke:#30363d}
.p-gap{stroke:#6e7681}
.p-m0{fill:#0c2d6b;stroke:#58a6ff}
.p-m1{fill:#033a16;stroke:#3fb950}
.p-m2{fill:#4b2900;stroke:#d29922}
.p-m3{fill:#5e103e;stroke:#f778ba}
.p-m4{fill:#3c1e70;stroke:#a371f7}
.p-m5{fill:#5a1e02;stroke:#f0883e}
.p-title,.p-heading,.p-name{fill:#e6edf3}
.p-figure,.p-label{fill:#9da7b3}
.p-alarm{fill:#ff7b72}
}
</style>
)";

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

constexpr int PADDING = 12;  // in boxes
constexpr int ROW = 22;      // height of a line of a box
constexpr int SPACE = 14;    // between boxes

// The address map below: addresses, scale, texts.
constexpr int SCALE_LEFT = MARGIN + 86;
constexpr int SCALE_WIDTH = 240;
constexpr int TEXTS_LEFT = SCALE_LEFT + SCALE_WIDTH + 18;
constexpr int SIZES_RIGHT = WIDTH - MARGIN - 164;
constexpr int LINE = 19;

// Limits for things of which there may be thousands.
constexpr std::size_t MAX_STREAMS = 32;
constexpr std::size_t MAX_MEMORIES = 48;
constexpr std::size_t MAX_PORTS = 96;  // of all memories, each of which has the same share
constexpr std::size_t MAX_RANGES = 64;
constexpr std::size_t MAX_GROUPS = 32;

constexpr std::size_t NUM_TINTS = 6;

enum class Anchor { Start, Middle, End };
enum class Arrow { ToLeft, ToRight, Both };

/// The style of a memory in the list and on the map.
std::string tint_of(std::size_t num_memory) {
    return num_memory == NO_MEMORY ? "p-box" : "p-m" + std::to_string(num_memory % NUM_TINTS);
}

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
    void text(int x, int y, const char* style, std::string_view text,
              Anchor anchor = Anchor::Start);
    void rect(int x, int y, int width, int height, const char* style, int radius = 0);
    void path(std::initializer_list<std::string_view> steps, const char* style);
    void arrow(int left, int right, int y, Arrow heads, std::string_view label);
    void tooltip(std::string_view text) { m_body.element("title", {}, text); }

    std::string description() const;

    int draw_host(int top);
    int draw_streams(int top, const char* heading, const board::InterfaceList& list,
                     bool are_channels);
    int draw_memories(int top);
    int draw_memory(int top, std::size_t number, std::size_t max_ports, bool is_dense);
    void draw_ports(int& y, const GlobalMemConfig& memory, std::size_t max_ports, bool in_heading);
    int draw_fpga(int top, int least_bottom);
    int draw_resources(int y);
    int draw_map(int top);
    void draw_range(int top, const AddressRange& range, const RangePlace& place,
                    std::size_t num_lanes);
    void draw_stretch(int top, const AddressStretch& stretch,
                      const std::vector<AddressRange>& ranges);
    void map_line(int y, const char* style, std::string_view text, std::uint64_t first,
                  std::uint64_t last);

    const AnswerSources& m_sources;
    const board::BoardSpec& m_spec;
    const std::vector<GlobalMemConfig*>& m_memories;
    Markup m_body;
};

void Picture::text(int x, int y, const char* style, std::string_view text, Anchor anchor) {
    if (text.empty()) {
        return;
    }
    if (anchor == Anchor::Start) {
        m_body.element("text", {{"x", x}, {"y", y}, {"class", style}}, text);
    } else {
        const char* word = anchor == Anchor::End ? "end" : "middle";
        m_body.element("text", {{"x", x}, {"y", y}, {"class", style}, {"text-anchor", word}}, text);
    }
}

void Picture::rect(int x, int y, int width, int height, const char* style, int radius) {
    m_body.empty("rect", {{"x", x},
                          {"y", y},
                          {"width", width},
                          {"height", height},
                          {"rx", radius},
                          {"class", style}});
}

void Picture::path(std::initializer_list<std::string_view> steps, const char* style) {
    std::string data;
    for (const std::string_view step : steps) {
        data += step;
    }
    m_body.empty("path", {{"d", data}, {"class", style}});
}

void Picture::arrow(int left, int right, int y, Arrow heads, std::string_view label) {
    const auto number = [](int n) { return std::to_string(n); };
    const auto head = [this, y, number](int tip, int back) {
        path({"M", number(tip), " ", number(y), "L", number(back), " ", number(y - 4), "V",
              number(y + 4), "Z"},
             "p-head");
    };
    path({"M", number(left + 4), " ", number(y), "H", number(right - 4)}, "p-line");
    constexpr int LENGTH = 8;  // of a head
    if (heads != Arrow::ToRight) {
        head(left + 2, left + 2 + LENGTH);
    }
    if (heads != Arrow::ToLeft) {
        head(right - 2, right - 2 - LENGTH);
    }
    text((left + right) / 2, y - 5, "p-label", label, Anchor::Middle);
}

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
    rect(SIDE_LEFT, top, SIDE_WIDTH, height, "p-box", 6);
    int y = top + PADDING + 8;
    text(SIDE_LEFT + PADDING, y, "p-heading", "Host");
    arrow(SIDE_LEFT + SIDE_WIDTH, FPGA_LEFT, y + LINE - 4, Arrow::ToRight, "");
    y += LINE;
    text(SIDE_LEFT + PADDING, y, "p-name", "Kernel window");
    text(SIDE_LEFT + SIDE_WIDTH - PADDING, y, "p-figure", size_text(host.get_kernel_config_size()),
         Anchor::End);
    text(SIDE_LEFT + PADDING, y + LINE - 2, "p-figure", window_text(host));
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
    rect(SIDE_LEFT, top, SIDE_WIDTH, height, "p-box", 6);
    int y = top + PADDING + 8;
    text(SIDE_LEFT + PADDING, y, "p-heading", heading);
    y += 2;
    for (std::size_t i = 0; i < num_drawn; ++i) {
        y += ROW;
        const Interface& intf = list.get_intf(static_cast<unsigned>(i));
        const std::string type(board::INTERFACE_TYPE_WORDS[intf.type]);
        const std::string name = intf.name + "." + intf.get_port_name(0);
        m_body.open("g");
        std::string details = are_channels ? intf.chan_id + ": " + name : name;
        details += ", " + type + (intf.get_data_width() == 0 ? "" : ", " + width_text(intf));
        tooltip(details);
        constexpr std::size_t COLUMNS = 18;
        text(SIDE_LEFT + PADDING, y, "p-name", fitted(are_channels ? intf.chan_id : name, COLUMNS));
        text(SIDE_LEFT + SIDE_WIDTH - PADDING, y, "p-figure", fitted(width_text(intf), 9),
             Anchor::End);
        arrow(SIDE_LEFT + SIDE_WIDTH, FPGA_LEFT, y - 4, arrow_of(intf.type), type);
        m_body.close();
    }
    if (num_more > 0) {
        text(SIDE_LEFT + PADDING, y + ROW, "p-alarm", count_text(num_more) + " more, not drawn");
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
        text(MEMORIES_LEFT + PADDING, top + 12, "p-alarm",
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

    m_body.open("g");
    tooltip(name_text(memory.name) + ", " + type + ", " + bandwidth_text(memory)
            + ", configuration at " + address_text(memory.config_addr));
    rect(MEMORIES_LEFT, top, MEMORIES_WIDTH, height, "p-box", in_heading ? 3 : 6);
    int y = top + (in_heading ? 15 : PADDING + 8);
    rect(MEMORIES_LEFT + PADDING, y - 10, 12, 12, tint_of(number).c_str(), 2);
    text(MEMORIES_LEFT + PADDING + 20, y, "p-heading",
         fitted(name_text(memory.name), in_heading ? 11 : 19));
    text(MEMORIES_LEFT + MEMORIES_WIDTH - PADDING, y, "p-figure", bandwidth_text(memory),
         Anchor::End);
    if (!is_dense) {
        y += LINE - 2;
        text(MEMORIES_LEFT + PADDING, y, "p-figure",
             num_intfs < 2
                 ? type
                 : type + ", interleaved " + size_text(memory.get_num_interleaved_bytes()));
    }
    m_body.close();
    draw_ports(y, memory, num_drawn, in_heading);
    if (num_drawn < ports) {
        text(MEMORIES_LEFT + PADDING, y + ROW, "p-alarm",
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
            m_body.open("g");
            tooltip(
                name + ", " + width_text(*intf) + ", bursts of up to "
                + std::to_string(intf->get_max_burst_count()) + ", "
                + range_text(intf->address, std::uint64_t(intf->address) + intf->get_size() - 1));
            if (in_heading) {
                text(MEMORIES_LEFT + 130, y, "p-figure", fitted(port.name, 11));
            } else {
                y += ROW;
                text(MEMORIES_LEFT + PADDING, y, "p-name", fitted(name, 26));
                text(MEMORIES_LEFT + MEMORIES_WIDTH - PADDING, y, "p-figure",
                     size_text(intf->get_size()), Anchor::End);
            }
            arrow(FPGA_LEFT + FPGA_WIDTH, MEMORIES_LEFT, y - 4,
                  port.direction == Port::Read    ? Arrow::ToLeft
                  : port.direction == Port::Write ? Arrow::ToRight
                                                  : Arrow::Both,
                  fitted(width_text(*intf), 13));
            m_body.close();
        }
    }
}

int Picture::draw_resources(int y) {
    constexpr int LEFT = FPGA_LEFT + PADDING;
    constexpr int RIGHT = FPGA_LEFT + FPGA_WIDTH - PADDING;
    constexpr int BAR_WIDTH = RIGHT - LEFT - 52;
    for (const Resource& resource : RESOURCES) {
        const std::uint64_t used = m_spec.get_device_config().get_used_resources().*resource.count;
        const std::uint64_t available = m_sources.dm->get_resources().*resource.count;
        const bool is_over = used > available;
        text(LEFT, y, "p-name", resource.name);
        text(RIGHT, y, is_over ? "p-alarm" : "p-figure",
             count_text(used) + " of " + count_text(available), Anchor::End);
        rect(LEFT, y + 6, BAR_WIDTH, 8, "p-track", 2);
        const std::uint64_t length = is_over          ? BAR_WIDTH
                                     : available == 0 ? 0
                                                      : BAR_WIDTH * used / available;
        if (length > 0) {
            rect(LEFT, y + 6, static_cast<int>(length), 8, is_over ? "p-over" : "p-used", 2);
        }
        text(RIGHT, y + 14, is_over ? "p-alarm" : "p-figure",
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

    Markup before;
    std::swap(before, m_body);  // the box goes below what is in it
    m_body.open("g");
    tooltip("Device model " + device_model);
    int y = top + PADDING + 8;
    text(LEFT, y, "p-heading", fitted("FPGA " + device_name(device_model), 28));
    m_body.close();
    y += LINE;
    text(LEFT, y, "p-name", m_sources.tm->get_family_str());
    text(FPGA_LEFT + FPGA_WIDTH - PADDING, y, "p-figure",
         fitted("fmax " + figure_text(m_sources.dm->get_expected_fmax()) + " MHz", 22),
         Anchor::End);
    y = draw_resources(y + LINE + 8);
    text(LEFT, y, "p-heading", "Kernel");
    const std::pair<const char*, const std::string&> rows[] = {
        {"clock", signals.clk}, {"2x clock", signals.clk2x}, {"reset", signals.reset}};
    for (const auto& [label, signal] : rows) {
        if (signal.empty()) {
            continue;
        }
        y += LINE;
        m_body.open("g");
        tooltip(signal);
        text(LEFT, y, "p-figure", label);
        text(FPGA_LEFT + FPGA_WIDTH - PADDING, y, "p-name", fitted(signal, COLUMNS), Anchor::End);
        m_body.close();
    }
    const int bottom = std::max(y + PADDING, least_bottom);
    std::swap(before, m_body);
    rect(FPGA_LEFT, top, FPGA_WIDTH, bottom - top, "p-box", 6);
    m_body.append(before);
    return bottom;
}

void Picture::map_line(int y, const char* style, std::string_view line, std::uint64_t first,
                       std::uint64_t last) {
    text(TEXTS_LEFT, y, style, line);
    text(SIZES_RIGHT, y, "p-figure", size_text(last - first + 1), Anchor::End);
    text(SIZES_RIGHT + 14, y, "p-figure", range_text(first, last));
}

void Picture::draw_range(int top, const AddressRange& range, const RangePlace& place,
                         std::size_t num_lanes) {
    const int width = SCALE_WIDTH / static_cast<int>(num_lanes);
    m_body.open("g");
    tooltip(range.memory + " " + range.interface + range.note + ", "
            + range_text(range.first, range.last));
    rect(SCALE_LEFT + static_cast<int>(place.lane) * width, top + place.top, width, place.height,
         tint_of(range.num_memory).c_str());
    m_body.close();
}

void Picture::draw_stretch(int top, const AddressStretch& stretch,
                           const std::vector<AddressRange>& ranges) {
    top += stretch.top;
    if (stretch.num_covers == 0) {
        rect(SCALE_LEFT, top, SCALE_WIDTH, stretch.height, "p-gap");
    } else if (stretch.num_covers > 1) {
        rect(SCALE_LEFT + SCALE_WIDTH + 4, top, 8, stretch.height, "p-over");
    }
    path({"M", std::to_string(SCALE_LEFT + SCALE_WIDTH), " ", std::to_string(top), "H",
          std::to_string(WIDTH - MARGIN)},
         "p-rule");
    constexpr std::size_t NAME_COLUMNS = 20;
    constexpr std::size_t COLUMNS = 44;
    int y = top + 14;
    text(SCALE_LEFT - 8, y, "p-figure", address_text(stretch.first), Anchor::End);
    for (const std::size_t number : stretch.begins) {
        const AddressRange& range = ranges[number];
        const std::string name = fitted(range.memory, NAME_COLUMNS);
        map_line(y, "p-name", fitted(name + " " + range.interface, COLUMNS) + range.note,
                 range.first, range.last);
        y += LINE;
    }
    if (stretch.num_covers == 0) {
        map_line(y, "p-figure", "gap", stretch.first, stretch.last);
    } else if (stretch.num_covers > 1) {
        map_line(y, "p-alarm", "overlap of " + count_text(stretch.num_covers) + " ranges",
                 stretch.first, stretch.last);
    } else if (stretch.begins.empty()) {
        map_line(y, "p-figure", "no overlap", stretch.first, stretch.last);
    }
}

int Picture::draw_map(int top) {
    const std::vector<AddressRange> all = address_ranges(m_spec);
    const std::vector<AddressRange> ranges =
        all.size() <= MAX_RANGES ? all : grouped(all, MAX_GROUPS);
    int y = top + 16;
    text(MARGIN, y, "p-heading", "Address map of the global memories");
    y += LINE;
    text(MARGIN, y, "p-figure", "The height of a range follows the logarithm of its size.");
    if (ranges.size() < all.size()) {
        y += LINE;
        text(MARGIN, y, "p-alarm",
             "Summarized: " + count_text(all.size()) + " ranges in " + count_text(ranges.size())
                 + " groups of neighbours.");
    }
    if (board::has_overlapping_memories(m_memories)) {
        y += LINE;
        text(MARGIN, y, "p-alarm",
             "Not a valid board: global memories overlap from their first to their last address.");
    }
    y += PADDING;
    const AddressScale scale(ranges, LINE);
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        draw_range(y, ranges[i], scale.places[i], scale.num_lanes);
    }
    for (const AddressStretch& stretch : scale.stretches) {
        draw_stretch(y, stretch, ranges);
    }
    y += scale.height;
    if (!scale.stretches.empty()) {
        text(SCALE_LEFT - 8, y + 12, "p-figure", address_text(scale.stretches.back().last),
             Anchor::End);
    }
    return y + PADDING + 4;
}

Markup Picture::draw() {
    const std::string name = board_name_text(m_spec);
    int top = MARGIN + 24;
    m_body.open("g");
    tooltip(name);
    text(MARGIN, top, "p-title", fitted(name, 70));
    m_body.close();
    top += LINE + 2;
    text(MARGIN, top, "p-figure", board_summary(m_spec));
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
    text(
        MARGIN, bottom, "p-label",
        "Arrows lead from master to slave, along a stream, and from the kernel that interrupts. At "
        "a memory,");
    text(MARGIN, bottom + 14, "p-label",
         "they lead to the kernel for reads and to the memory for writes.");
    bottom += 14;
    bottom = draw_map(bottom + SPACE) + MARGIN;

    Markup whole;
    whole.open("svg", {{"xmlns", "http://www.w3.org/2000/svg"},
                       {"viewBox", "0 0 " + std::to_string(WIDTH) + " " + std::to_string(bottom)},
                       {"width", WIDTH},
                       {"height", bottom},
                       {"role", "img"},
                       {"aria-labelledby", "picture-title picture-description"}});
    whole.element("title", {{"id", "picture-title"}}, "The board " + shortened(name));
    whole.element("desc", {{"id", "picture-description"}}, description());
    whole.constant(STYLE);
    whole.empty("rect", {{"width", WIDTH}, {"height", bottom}, {"rx", 6}, {"class", "p-ground"}});
    whole.append(m_body);
    whole.close();
    return whole;
}

}  // namespace

Markup picture(const AnswerSources& sources) { return Picture(sources).draw(); }

std::string svg_dump(const AnswerSources& sources) { return picture(sources).text(); }

}  // namespace vemo::dump
