#pragma once

#include <iterator>
#include <string_view>

#include "BoardSpec/GlobalMemConfig.h"
#include "BoardSpec/Interface.h"
#include "BoardSpec/Port.h"

namespace vemo::board {

// How board files write enumerators. Each table is indexed by its enumeration.

constexpr std::string_view MEMORY_TYPE_WORDS[] = {"shared virtual", "shared physical",
                                                  "device private"};
static_assert(std::size(MEMORY_TYPE_WORDS) == GlobalMemConfig::TypeCount);

constexpr std::string_view INTERFACE_TYPE_WORDS[] = {"slave", "master", "irq", "streamsource",
                                                     "streamsink"};
static_assert(std::size(INTERFACE_TYPE_WORDS) == Interface::TypeCount);

constexpr std::string_view DIRECTION_WORDS[] = {"rw", "r", "w"};
static_assert(std::size(DIRECTION_WORDS) == Port::TypeCount);

// Indexed by Interface::latency_type.
constexpr std::string_view LATENCY_TYPE_WORDS[] = {"average", "fixed"};

}  // namespace vemo::board
