#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "BoardDump/AddressMap.h"

namespace vemo::dump {

/// The memory number of a range that represents several memories.
constexpr std::size_t NO_MEMORY = static_cast<std::size_t>(-1);

/// At most `max_groups` ranges in place of many. Each represents a group of neighbors; its texts
/// give their number, and the gaps and overlaps between them.
std::vector<AddressRange> grouped(const std::vector<AddressRange>& ranges, std::size_t max_groups);

/// A stretch of addresses in which no range begins or ends.
struct AddressStretch {
    std::uint64_t first;
    std::uint64_t last;      ///< Inclusive.
    std::size_t num_covers;  ///< Number of ranges that cover it: 0 for a gap, several an overlap.
    std::vector<std::size_t> begins;  ///< Numbers of the ranges that begin with it.
    int top;                          ///< In pixels below the top of the scale.
    int height;                       ///< In pixels.
};

/// The place of a range on the scale.
struct RangePlace {
    int top;
    int height;
    std::size_t lane;  ///< From 0. Ranges in one lane do not overlap, except in the last of many.
};

/// The layout of address ranges on a scale that shows a few bytes as well as gigabytes. Addresses
/// ascend from top to bottom. The height of a stretch follows the logarithm of its size, but leaves
/// room for its lines of text.
struct AddressScale {
    /// `ranges` must be sorted as by address_ranges(). `line_height` is the height of a line of
    /// text in pixels. Takes O(n log n) time.
    AddressScale(const std::vector<AddressRange>& ranges, int line_height);

    std::vector<AddressStretch> stretches;
    std::vector<RangePlace> places;  ///< One for each range.
    std::size_t num_lanes = 0;
    int height = 0;  ///< Of the whole.
};

}  // namespace vemo::dump
