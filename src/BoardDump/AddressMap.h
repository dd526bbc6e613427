#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "BoardSpec/BoardSpec.h"

namespace vemo::dump {

/// Contiguous addresses of one memory interface. An interface that extends past the end of the
/// 32-bit address space has two ranges.
struct AddressRange {
    std::uint64_t first;
    std::uint64_t last;      ///< Inclusive.
    std::size_t num_memory;  ///< Number of the memory, from 0.
    std::string memory;      ///< Its name, see memory_name_text().
    std::string interface;   ///< Name and ports, shortened.
    const char* note;        ///< Whether the addresses wrap; empty if not.
};

/// The address ranges of the board, sorted by their first address.
std::vector<AddressRange> address_ranges(const board::BoardSpec& spec);

/// One line of an address map: a range, the gap between two ranges, or the overlap of two.
struct AddressMapRow {
    enum Kind { Range, Gap, Overlap };

    Kind kind;
    std::uint64_t first;
    std::uint64_t last;       ///< Inclusive.
    std::string memory;       ///< Of a range.
    std::string description;  ///< Of a range, its interface.
};

/// The lines of the address map, in ascending order of addresses. An overlap is that of a range
/// with the one before it that extends farthest.
std::vector<AddressMapRow> address_map_rows(const std::vector<AddressRange>& ranges);

/// The address map as text: one line per memory interface, with a line that begins with "--" for
/// each gap, and one with "!!" for each interface that overlaps an earlier one.
std::string address_map(const board::BoardSpec& spec);

/// 0x and at least eight hexadecimal digits.
std::string address_text(std::uint64_t address);

/// First and last address, with a hyphen between.
std::string range_text(std::uint64_t first, std::uint64_t last);

/// The name of a memory, shortened if necessary. The only memory of a board may have none.
std::string memory_name_text(const board::GlobalMemConfig& memory);

/// Names two overlapping memories for which the board is invalid, with their addresses. There must
/// be some, see board::has_overlapping_memories.
std::string overlap_text(const board::BoardSpec& spec);

/// range_text of the memory's minimum and maximum address.
std::string memory_range_text(const board::GlobalMemConfig& memory);

/// A number of bytes as at most four digits with a unit. "~" marks a rounded number.
std::string size_text(std::uint64_t bytes);

}  // namespace vemo::dump
