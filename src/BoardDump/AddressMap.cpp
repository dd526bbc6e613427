#include "BoardDump/AddressMap.h"

#include <algorithm>
#include <cinttypes>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <tuple>
#include <vector>

#include "Base/Characters.h"
#include "BoardDump/TextLayout.h"
#include "BoardSpec/MemoryOverlap.h"

namespace vemo::dump {
namespace {

constexpr std::uint64_t LAST_ADDRESS = 0xffffffff;

/// Name and ports: often all interfaces have the same name, that of the component they lead to.
std::string interface_text(const board::Interface& intf) {
    std::string text = intf.name;
    for (unsigned i = 0; i < intf.get_num_ports(); ++i) {
        text += i == 0 ? "." : "/";
        text += intf.get_port(i)->name;
    }
    return shortened(text);
}

}  // namespace

std::vector<AddressRange> address_ranges(const board::BoardSpec& spec) {
    std::vector<AddressRange> ranges;
    std::size_t num_memory = 0;
    for (const board::GlobalMemConfig* memory : spec.get_global_mem_configs()) {
        const std::string name = memory_name_text(*memory);
        for (const board::Interface* intf : memory->get_interfaces()) {
            const std::string text = interface_text(*intf);
            const std::uint64_t first = intf->address;
            const std::uint64_t last = first + intf->get_size() - 1;
            if (last <= LAST_ADDRESS) {
                ranges.push_back({first, last, num_memory, name, text, ""});
            } else {
                ranges.push_back({first, LAST_ADDRESS, num_memory, name, text, " (wraps)"});
                ranges.push_back(
                    {0, last - LAST_ADDRESS - 1, num_memory, name, text, " (wrapped)"});
            }
        }
        ++num_memory;
    }
    std::stable_sort(ranges.begin(), ranges.end(), [](const auto& a, const auto& b) {
        return std::tie(a.first, a.last) < std::tie(b.first, b.last);
    });
    return ranges;
}

std::vector<AddressMapRow> address_map_rows(const std::vector<AddressRange>& ranges) {
    std::vector<AddressMapRow> rows;
    const AddressRange* farthest = nullptr;  // of the ranges so far, the one that ends last
    for (const AddressRange& range : ranges) {
        if (farthest != nullptr && range.first > farthest->last + 1) {
            rows.push_back({AddressMapRow::Gap, farthest->last + 1, range.first - 1, "", "gap"});
        }
        rows.push_back({AddressMapRow::Range, range.first, range.last, range.memory,
                        range.interface + range.note});
        if (farthest != nullptr && range.first <= farthest->last) {
            rows.push_back({AddressMapRow::Overlap, range.first,
                            std::min(range.last, farthest->last), "",
                            "overlap with " + farthest->memory + " " + farthest->interface});
        }
        if (farthest == nullptr || range.last > farthest->last) {
            farthest = &range;
        }
    }
    return rows;
}

std::string address_text(std::uint64_t address) {
    char text[sizeof "0x0123456789abcdef"];
    std::snprintf(text, sizeof text, "0x%08" PRIx64, address);
    return text;
}

std::string range_text(std::uint64_t first, std::uint64_t last) {
    return address_text(first) + "-" + address_text(last);
}

std::string size_text(std::uint64_t bytes) {
    constexpr const char* UNITS[] = {"B", "KiB", "MiB", "GiB"};
    auto number = static_cast<double>(bytes);
    std::size_t unit = 0;
    while (number >= 1024 && unit + 1 < std::size(UNITS)) {
        number /= 1024;
        ++unit;
    }
    char text[32];
    std::snprintf(text, sizeof text, "%.4g %s", number, UNITS[unit]);
    const bool is_exact = std::strtod(text, nullptr) == number;
    return is_exact ? text : std::string("~") + text;
}

std::string memory_name_text(const board::GlobalMemConfig& memory) {
    // Not the other way round: a long name must not be copied for each row.
    return name_text(shortened(memory.name));
}

std::string memory_range_text(const board::GlobalMemConfig& memory) {
    return range_text(memory.get_min_byte_address(), memory.get_max_byte_address());
}

std::string overlap_text(const board::BoardSpec& spec) {
    const auto& memories = spec.get_global_mem_configs();
    const auto [first, second] = board::overlapping_memories(memories, 1).front();
    std::string text = "Global memories";
    const char* separator = " '";
    for (const board::GlobalMemConfig* memory : {memories[first], memories[second]}) {
        text += separator + printable(memory_name_text(*memory)) + "' (";
        text += memory_range_text(*memory) + ")";
        separator = " and '";
    }
    return text + " overlap";
}

std::string address_map(const board::BoardSpec& spec) {
    constexpr const char* MARKS[] = {"", "--", "!!"};  // by kind of row
    TextTable table("llrll");                          // mark, addresses, size, memory, interface
    for (const AddressMapRow& row : address_map_rows(address_ranges(spec))) {
        const std::string addresses = range_text(row.first, row.last);
        const std::string size = size_text(row.last - row.first + 1);
        if (row.kind == AddressMapRow::Range) {
            table.add_row({MARKS[row.kind], addresses, size, row.memory, row.description});
        } else {
            table.add_row({MARKS[row.kind], addresses, size, row.description});
        }
    }
    return table.text("  ");
}

}  // namespace vemo::dump
