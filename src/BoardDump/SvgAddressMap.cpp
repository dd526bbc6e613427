#include "BoardDump/SvgAddressMap.h"

#include <cstdint>
#include <string_view>
#include <vector>

#include "BoardDump/AddressMap.h"
#include "BoardDump/AddressScale.h"
#include "BoardDump/Figures.h"
#include "BoardSpec/MemoryOverlap.h"

namespace vemo::dump {
namespace {

constexpr int LINE = SvgCanvas::LINE;
constexpr int ADDRESSES_WIDTH = 86;  // left of the scale
constexpr int SCALE_WIDTH = 240;

// What is drawn at most. More ranges than that are summarized as groups.
constexpr std::size_t MAX_RANGES = 64;
constexpr std::size_t MAX_GROUPS = 32;

constexpr std::size_t NUM_TINTS = 6;

class AddressPicture {
public:
    AddressPicture(SvgCanvas* out, int left, int right)
        : m_out(*out), m_scale_left(left + ADDRESSES_WIDTH), m_right(right) {}

    /// Draws the scale at `top` and the texts beside it. Returns the bottom.
    int draw(int top, const std::vector<AddressRange>& ranges);

private:
    void draw_range(int top, const AddressRange& range, const RangePlace& place,
                    std::size_t num_lanes);
    void draw_stretch(int top, const AddressStretch& stretch,
                      const std::vector<AddressRange>& ranges);
    void draw_line(int y, const char* style, std::string_view text, std::uint64_t first,
                   std::uint64_t last);
    void draw_address(int y, std::uint64_t address);

    SvgCanvas& m_out;
    const int m_scale_left;
    const int m_right;
};

void AddressPicture::draw_address(int y, std::uint64_t address) {
    m_out.text(m_scale_left - 8, y, "p-figure", address_text(address), SvgCanvas::Anchor::End);
}

void AddressPicture::draw_line(int y, const char* style, std::string_view text, std::uint64_t first,
                               std::uint64_t last) {
    const int sizes_right = m_right - 164;
    m_out.text(m_scale_left + SCALE_WIDTH + 18, y, style, text);
    m_out.text(sizes_right, y, "p-figure", size_text(last - first + 1), SvgCanvas::Anchor::End);
    m_out.text(sizes_right + 14, y, "p-figure", range_text(first, last));
}

void AddressPicture::draw_range(int top, const AddressRange& range, const RangePlace& place,
                                std::size_t num_lanes) {
    const int width = SCALE_WIDTH / static_cast<int>(num_lanes);
    m_out.begin_group(range.memory + " " + range.interface + range.note + ", "
                      + range_text(range.first, range.last));
    m_out.rect(m_scale_left + static_cast<int>(place.lane) * width, top + place.top, width,
               place.height, memory_style(range.num_memory).c_str());
    m_out.end_group();
}

void AddressPicture::draw_stretch(int top, const AddressStretch& stretch,
                                  const std::vector<AddressRange>& ranges) {
    top += stretch.top;
    if (stretch.num_covers == 0) {
        m_out.rect(m_scale_left, top, SCALE_WIDTH, stretch.height, "p-gap");
    } else if (stretch.num_covers > 1) {
        m_out.rect(m_scale_left + SCALE_WIDTH + 4, top, 8, stretch.height, "p-over");
    }
    m_out.rule(m_scale_left + SCALE_WIDTH, m_right, top);
    constexpr std::size_t NAME_COLUMNS = 20;
    constexpr std::size_t COLUMNS = 44;
    int y = top + 14;
    draw_address(y, stretch.first);
    for (const std::size_t number : stretch.begins) {
        const AddressRange& range = ranges[number];
        const std::string name = fitted(range.memory, NAME_COLUMNS);
        draw_line(y, "p-name", fitted(name + " " + range.interface, COLUMNS) + range.note,
                  range.first, range.last);
        y += LINE;
    }
    if (stretch.num_covers == 0) {
        draw_line(y, "p-figure", "gap", stretch.first, stretch.last);
    } else if (stretch.num_covers > 1) {
        draw_line(y, "p-alarm", "overlap of " + count_text(stretch.num_covers) + " ranges",
                  stretch.first, stretch.last);
    } else if (stretch.begins.empty()) {
        draw_line(y, "p-figure", "no overlap", stretch.first, stretch.last);
    }
}

int AddressPicture::draw(int top, const std::vector<AddressRange>& ranges) {
    const AddressScale scale(ranges, LINE);
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        draw_range(top, ranges[i], scale.places[i], scale.num_lanes);
    }
    for (const AddressStretch& stretch : scale.stretches) {
        draw_stretch(top, stretch, ranges);
    }
    const int bottom = top + scale.height;
    if (!scale.stretches.empty()) {
        draw_address(bottom + 12, scale.stretches.back().last);
    }
    return bottom + 16;
}

}  // namespace

std::string memory_style(std::size_t num_memory) {
    return num_memory == NO_MEMORY ? "p-box" : "p-m" + std::to_string(num_memory % NUM_TINTS);
}

int draw_address_map(SvgCanvas& out, const board::BoardSpec& spec, int left, int right, int top) {
    const std::vector<AddressRange> all = address_ranges(spec);
    const std::vector<AddressRange> ranges =
        all.size() <= MAX_RANGES ? all : grouped(all, MAX_GROUPS);
    int y = top + 16;
    out.text(left, y, "p-heading", "Address map of the global memories");
    y += LINE;
    out.text(left, y, "p-figure", "The height of a range follows the logarithm of its size.");
    if (ranges.size() < all.size()) {
        y += LINE;
        out.text(left, y, "p-alarm",
                 "Summarized: " + count_text(all.size()) + " ranges in " + count_text(ranges.size())
                     + " groups of neighbours.");
    }
    if (board::has_overlapping_memories(spec.get_global_mem_configs())) {
        y += LINE;
        out.text(
            left, y, "p-alarm",
            "Not a valid board: global memories overlap from their first to their last address.");
    }
    return AddressPicture(&out, left, right).draw(y + 12, ranges);
}

}  // namespace vemo::dump
