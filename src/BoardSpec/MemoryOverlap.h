#pragma once

#include <vector>

#include "BoardSpec/GlobalMemConfig.h"

namespace vemo::board {

/// Whether two different memories i and j overlap: min(i) < max(j) and min(j) < max(i), with min
/// and max the minimum and maximum byte address. As the maximum is inclusive, two memories may
/// share their boundary byte. Takes O(n log n) time.
bool has_overlapping_memories(const std::vector<GlobalMemConfig*>& memories);

}  // namespace vemo::board
