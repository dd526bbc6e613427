#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "BoardSpec/GlobalMemConfig.h"

namespace vemo::board {

/// Whether two memories i and j overlap: min(i) < max(j) and min(j) < max(i), where min and max are
/// their minimum and maximum byte addresses. The maximum is inclusive and the comparisons are
/// strict, so two memories may share their boundary byte. Takes O(n log n) time.
bool has_overlapping_memories(const std::vector<GlobalMemConfig*>& memories);

/// The indices of memories that overlap, the lesser one first, in ascending order. At most
/// `max_pairs` pairs: if there are more, it is unspecified which.
std::vector<std::pair<std::size_t, std::size_t>> overlapping_memories(
    const std::vector<GlobalMemConfig*>& memories, std::size_t max_pairs);

}  // namespace vemo::board
