#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "BoardDump/AddressMap.h"

namespace vemo::dump {

/// The number of a memory that stands for several.
constexpr std::size_t NO_MEMORY = static_cast<std::size_t>(-1);

/// At most `max_groups` ranges in place of many: each stands for a group of neighbours, of which
/// its texts tell the number and what is between them.
std::vector<AddressRange> grouped(const std::vector<AddressRange>& ranges, std::size_t max_groups);

/// Addresses in which no range begins or ends.
struct AddressStretch {
    std::uint64_t first;
    std::uint64_t last;      ///< Inclusive.
    std::size_t num_covers;  ///< Number of ranges that cover it: 0 for a gap, several an overlap.
    std::vector<std::size_t> begins;  ///< Numbers of the ranges that begin with it.
    int top;                          ///< In pixels below the top of the scale.
    int height;                       ///< In pixels.
};

/// Where a range is on the scale.
struct RangePlace {
    int top;
    int height;
    std::size_t lane;  ///< From 0. Ranges in one lane do not overlap, except in the last of many.
};

/// A drawing of address ranges to a scale on which a few bytes and gigabytes are both seen: from
/// the lowest address down to the highest, and each stretch as high as the logarithm of its size
/// and the lines of text beside it demand.
struct AddressScale {
    /// `ranges` are sorted by their first address, as address_ranges() does it. `line_height` is
    /// that of a line of text in pixels. Takes time proportional to n log n for n ranges.
    AddressScale(const std::vector<AddressRange>& ranges, int line_height);

    std::vector<AddressStretch> stretches;
    std::vector<RangePlace> places;  ///< One for each range.
    std::size_t num_lanes = 0;
    int height = 0;  ///< Of the whole.
};

}  // namespace vemo::dump
