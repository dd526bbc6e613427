#include "BoardSpec/MemoryOverlap.h"

#include <algorithm>

namespace vemo::board {
namespace {

struct Range {
    unsigned min;
    unsigned max;
    std::size_t index;
};

/// The ranges of the memories, those that begin lower first.
std::vector<Range> sorted_ranges(const std::vector<GlobalMemConfig*>& memories) {
    std::vector<Range> ranges;
    ranges.reserve(memories.size());
    for (const GlobalMemConfig* memory : memories) {
        ranges.push_back(
            {memory->get_min_byte_address(), memory->get_max_byte_address(), ranges.size()});
    }
    std::sort(ranges.begin(), ranges.end(),
              [](const Range& a, const Range& b) { return a.min < b.min; });
    return ranges;
}

}  // namespace

bool has_overlapping_memories(const std::vector<GlobalMemConfig*>& memories) {
    const std::vector<Range> ranges = sorted_ranges(memories);

    // Of a pair, it is the range that begins later which finds the other one: among the ranges
    // before it, those that begin below its end overlap it if one of them reaches beyond its
    // beginning. (A range may end below its own beginning, since addresses wrap and the minimum is
    // the first interface's address; so not all that begin before it begin below its end.)
    std::vector<unsigned> reach = {0};  // reach[k]: the highest end of the first k ranges
    for (auto range = ranges.begin(); range != ranges.end(); ++range) {
        const auto candidates_end = std::lower_bound(
            ranges.begin(), range, range->max,
            [](const Range& candidate, unsigned end) { return candidate.min < end; });
        if (reach[static_cast<std::size_t>(candidates_end - ranges.begin())] > range->min) {
            return true;
        }
        reach.push_back(std::max(reach.back(), range->max));
    }
    return false;
}

std::vector<std::pair<std::size_t, std::size_t>> overlapping_memories(
    const std::vector<GlobalMemConfig*>& memories, std::size_t max_pairs) {
    std::vector<std::pair<std::size_t, std::size_t>> pairs;
    std::vector<Range> open;  // begin before the current range and end behind its beginning
    for (const Range& range : sorted_ranges(memories)) {
        open.erase(std::remove_if(open.begin(), open.end(),
                                  [&range](const Range& other) { return other.max <= range.min; }),
                   open.end());
        for (const Range& other : open) {
            if (other.min < range.max && pairs.size() < max_pairs) {
                pairs.emplace_back(std::minmax(other.index, range.index));
            }
        }
        if (pairs.size() == max_pairs) {
            break;
        }
        open.push_back(range);
    }
    std::sort(pairs.begin(), pairs.end());
    return pairs;
}

}  // namespace vemo::board
