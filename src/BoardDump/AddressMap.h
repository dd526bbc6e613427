#pragma once

#include <cstdint>
#include <string>

#include "BoardSpec/BoardSpec.h"

namespace vemo::dump {

/// The memory interfaces of the board by address, one a line, with a line that begins with "--" for
/// each gap between two of them and one with "!!" for each interface that overlaps one before it.
/// An interface that goes beyond the end of the 32-bit addresses has two lines.
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
