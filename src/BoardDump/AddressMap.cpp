#include "BoardDump/AddressMap.h"

#include <algorithm>
#include <cinttypes>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <tuple>
#include <vector>

#include "BoardDump/TextLayout.h"
#include "BoardSpec/MemoryOverlap.h"

namespace vemo::dump {
namespace {

constexpr std::uint64_t LAST_ADDRESS = 0xffffffff;

/// Addresses without a break that belong to one interface.
struct Region {
    std::uint64_t first;
    std::uint64_t last;  // inclusive
    std::string memory;
    std::string interface;
    const char* note;
};

/// Name and ports: often all interfaces have the same name, that of the component they lead to.
std::string interface_text(const board::Interface& intf) {
    std::string text = intf.name;
    for (unsigned i = 0; i < intf.get_num_ports(); ++i) {
        text += i == 0 ? "." : "/";
        text += intf.get_port(i)->name;
    }
    return shortened(text);
}

std::vector<Region> regions_by_address(const board::BoardSpec& spec) {
    std::vector<Region> regions;
    for (const board::GlobalMemConfig* memory : spec.get_global_mem_configs()) {
        const std::string memory_text = memory_name_text(*memory);
        for (const board::Interface* intf : memory->get_interfaces()) {
            const std::string intf_text = interface_text(*intf);
            const std::uint64_t first = intf->address;
            const std::uint64_t last = first + intf->get_size() - 1;
            if (last <= LAST_ADDRESS) {
                regions.push_back({first, last, memory_text, intf_text, ""});
            } else {
                regions.push_back({first, LAST_ADDRESS, memory_text, intf_text, " (wraps)"});
                regions.push_back(
                    {0, last - LAST_ADDRESS - 1, memory_text, intf_text, " (wrapped)"});
            }
        }
    }
    std::stable_sort(regions.begin(), regions.end(), [](const Region& a, const Region& b) {
        return std::tie(a.first, a.last) < std::tie(b.first, b.last);
    });
    return regions;
}

/// A row that says something about the addresses between two regions, or in both.
void add_note(TextTable& table, const char* mark, std::uint64_t first, std::uint64_t last,
              const std::string& note) {
    table.add_row({mark, range_text(first, last), size_text(last - first + 1), note});
}

}  // namespace

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
    return shortened(name_text(memory.name));
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
    TextTable table("llrll");          // mark, addresses, size, memory, interface
    const Region* farthest = nullptr;  // of the regions so far, the one that ends last
    const std::vector<Region> regions = regions_by_address(spec);
    for (const Region& region : regions) {
        if (farthest != nullptr && region.first > farthest->last + 1) {
            add_note(table, "--", farthest->last + 1, region.first - 1, "gap");
        }
        table.add_row({"", range_text(region.first, region.last),
                       size_text(region.last - region.first + 1), region.memory,
                       region.interface + region.note});
        if (farthest != nullptr && region.first <= farthest->last) {
            add_note(table, "!!", region.first, std::min(region.last, farthest->last),
                     "overlap with " + farthest->memory + " " + farthest->interface);
        }
        if (farthest == nullptr || region.last > farthest->last) {
            farthest = &region;
        }
    }
    return table.text("  ");
}

}  // namespace vemo::dump
