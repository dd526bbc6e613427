#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "BoardSpec/BoardSpec.h"

namespace vemo::dump {

/// Addresses without a break that belong to one memory interface. One that goes beyond the end of
/// the 32-bit addresses has two such ranges.
struct AddressRange {
    std::uint64_t first;
    std::uint64_t last;      ///< Inclusive.
    std::size_t num_memory;  ///< Number of the memory, from 0.
    std::string memory;      ///< Its name, see memory_name_text().
    std::string interface;   ///< Name and ports, shortened.
    const char* note;        ///< Whether the addresses wrap; empty if not.
};

/// The address ranges of the board, those that begin lower first.
std::vector<AddressRange> address_ranges(const board::BoardSpec& spec);

/// One line of an address map: a range, or what there is to say about the addresses between two
/// ranges (a gap) or in several (an overlap).
struct AddressMapRow {
    enum Kind { Range, Gap, Overlap };

    Kind kind;
    std::uint64_t first;
    std::uint64_t last;       ///< Inclusive.
    std::string memory;       ///< Of a range.
    std::string description;  ///< Of a range, its interface.
};

/// The lines of the address map, those about lower addresses first. An overlap is that of the range
/// before it with the one that extends the farthest of those before that.
std::vector<AddressMapRow> address_map_rows(const std::vector<AddressRange>& ranges);

/// The memory interfaces of the board by address, one a line, with a line that begins with "--" for
/// each gap between two of them and one with "!!" for each interface that overlaps one before it.
std::string address_map(const board::BoardSpec& spec);

/// 0x and (at least) eight hexadecimal digits.
std::string address_text(std::uint64_t address);

/// First and last address, with a hyphen between.
std::string range_text(std::uint64_t first, std::uint64_t last);

/// The name of a memory, which a board's only memory may lack. Shortened if need be.
std::string memory_name_text(const board::GlobalMemConfig& memory);

/// Two memories for which the board is not valid because they overlap, and where they are. There
/// must be some, see board::has_overlapping_memories.
std::string overlap_text(const board::BoardSpec& spec);

/// range_text of the memory's minimum and maximum address.
std::string memory_range_text(const board::GlobalMemConfig& memory);

/// A number of bytes in four digits and a unit, with "~" before it when that is not the exact size.
std::string size_text(std::uint64_t bytes);

}  // namespace vemo::dump
