#pragma once

#include <string>

/// The text of a board that loads, with `count` each of memories, channels and compile flows
/// ("flow0", "flow1", ...).
std::string board_text(int count);
