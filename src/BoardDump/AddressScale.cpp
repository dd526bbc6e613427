#include "BoardDump/AddressScale.h"

#include <algorithm>

#include "BoardDump/Figures.h"

namespace vemo::dump {
namespace {

constexpr std::size_t MAX_LANES = 6;

/// One range in place of those from `begin` to `end`.
AddressRange group_of(const AddressRange* begin, const AddressRange* end) {
    AddressRange group = *begin;
    if (end - begin == 1) {
        return group;
    }
    std::size_t num_gaps = 0;
    std::size_t num_overlaps = 0;
    for (const AddressRange* range = begin + 1; range != end; ++range) {
        num_gaps += range->first > group.last + 1 ? 1U : 0U;
        num_overlaps += range->first <= group.last ? 1U : 0U;
        group.last = std::max(group.last, range->last);
    }
    group.num_memory = NO_MEMORY;
    group.memory = plural_text(static_cast<std::size_t>(end - begin), "range", "ranges");
    group.interface = begin->memory + " … " + (end - 1)->memory;
    if (num_gaps > 0) {
        group.interface += ", " + plural_text(num_gaps, "gap", "gaps");
    }
    if (num_overlaps > 0) {
        group.interface += ", " + plural_text(num_overlaps, "overlap", "overlaps");
    }
    group.note = "";
    return group;
}

/// The logarithm to the base 2, rounded down.
int log2_of(std::uint64_t number) {
    int log2 = 0;
    for (; number > 1; number /= 2) {
        ++log2;
    }
    return log2;
}

}  // namespace

std::vector<AddressRange> grouped(const std::vector<AddressRange>& ranges, std::size_t max_groups) {
    std::vector<AddressRange> groups;
    const std::size_t group_size = (ranges.size() + max_groups - 1) / max_groups;
    for (std::size_t i = 0; i < ranges.size(); i += group_size) {
        const std::size_t end = std::min(i + group_size, ranges.size());
        groups.push_back(group_of(ranges.data() + i, ranges.data() + end));
    }
    return groups;
}

AddressScale::AddressScale(const std::vector<AddressRange>& ranges, int line_height) {
    std::vector<std::uint64_t> cuts;
    std::vector<std::uint64_t> ends;  // behind the last address
    for (const AddressRange& range : ranges) {
        ends.push_back(range.last + 1);
        cuts.insert(cuts.end(), {range.first, range.last + 1});
    }
    std::sort(cuts.begin(), cuts.end());
    cuts.erase(std::unique(cuts.begin(), cuts.end()), cuts.end());
    std::sort(ends.begin(), ends.end());

    // A few stretches can show their sizes; many must still fit on a page.
    const int pixels_per_bit = cuts.size() <= 12 ? 4 : cuts.size() <= 24 ? 2 : 1;
    constexpr int LEAST_BITS = 8;  // that show
    std::size_t num_begun = 0;
    std::size_t num_ended = 0;
    for (std::size_t i = 0; i + 1 < cuts.size(); ++i) {
        AddressStretch stretch = {cuts[i], cuts[i + 1] - 1, 0, {}, height, 0};
        for (; num_begun < ranges.size() && ranges[num_begun].first == cuts[i]; ++num_begun) {
            stretch.begins.push_back(num_begun);
        }
        for (; num_ended < ends.size() && ends[num_ended] <= cuts[i]; ++num_ended) {
        }
        stretch.num_covers = num_begun - num_ended;
        const auto num_lines =
            static_cast<int>(stretch.begins.size()) + (stretch.num_covers == 1 ? 0 : 1);
        const int num_bits = log2_of(cuts[i + 1] - cuts[i]) - LEAST_BITS;
        stretch.height = std::max(std::max(num_lines, 1) * line_height, num_bits * pixels_per_bit);
        height += stretch.height;
        stretches.push_back(stretch);
    }

    const auto top_of = [this, &cuts](std::uint64_t address) {
        const auto cut = static_cast<std::size_t>(
            std::lower_bound(cuts.begin(), cuts.end(), address) - cuts.begin());
        return cut < stretches.size() ? stretches[cut].top : height;
    };
    std::vector<std::uint64_t> free_from;  // by lane
    for (const AddressRange& range : ranges) {
        std::size_t lane = 0;
        while (lane < free_from.size() && free_from[lane] > range.first) {
            ++lane;
        }
        lane = std::min(lane, MAX_LANES - 1);
        free_from.resize(std::max(free_from.size(), lane + 1));
        free_from[lane] = std::max(free_from[lane], range.last + 1);
        const int top = top_of(range.first);
        places.push_back({top, top_of(range.last + 1) - top, lane});
    }
    num_lanes = free_from.size();
}

}  // namespace vemo::dump
