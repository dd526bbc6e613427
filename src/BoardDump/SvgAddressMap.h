#pragma once

#include <cstddef>
#include <string>

#include "BoardDump/SvgCanvas.h"
#include "BoardSpec/BoardSpec.h"

namespace vemo::dump {

/// The style of a memory in the picture, by its number.
std::string memory_style(std::size_t num_memory);

/// Draws the address map of the global memories with its heading, between `left` and `right` and
/// from `top` down. Returns the bottom. Many ranges are summarized, and the picture states that.
int draw_address_map(SvgCanvas& out, const board::BoardSpec& spec, int left, int right, int top);

}  // namespace vemo::dump
