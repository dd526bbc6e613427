#include "BoardSpec/MemoryOverlap.h"

#include <algorithm>

namespace vemo::board {
namespace {

struct Range {
    unsigned min;
    unsigned max;
};

}  // namespace

bool has_overlapping_memories(const std::vector<GlobalMemConfig*>& memories) {
    std::vector<Range> ranges;
    ranges.reserve(memories.size());
    for (const GlobalMemConfig* memory : memories) {
        ranges.push_back({memory->get_min_byte_address(), memory->get_max_byte_address()});
    }
    std::sort(ranges.begin(), ranges.end(),
              [](const Range& a, const Range& b) { return a.min < b.min; });

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

}  // namespace vemo::board
