#pragma once

#include <iterator>

#include "BoardSpec/GlobalMemConfig.h"
#include "BoardSpec/Interface.h"
#include "BoardSpec/Port.h"

namespace vemo::board::xml {

// How board files write enumerators. Each table is indexed by its enumeration.

constexpr const char* MEMORY_TYPE_WORDS[] = {"shared virtual", "shared physical", "device private"};
static_assert(std::size(MEMORY_TYPE_WORDS) == GlobalMemConfig::TypeCount);

constexpr const char* INTERFACE_TYPE_WORDS[] = {"slave", "master", "irq", "streamsource",
                                                "streamsink"};
static_assert(std::size(INTERFACE_TYPE_WORDS) == Interface::TypeCount);

constexpr const char* DIRECTION_WORDS[] = {"rw", "r", "w"};
static_assert(std::size(DIRECTION_WORDS) == Port::TypeCount);

// Indexed by Interface::latency_type.
constexpr const char* LATENCY_TYPE_WORDS[] = {"average", "fixed"};

}  // namespace vemo::board::xml
