#pragma once

#include "Base/ArrayView.h"
#include "BoardDump/AttributeValue.h"
#include "BoardSpec/GlobalMemConfig.h"

namespace vemo::dump {

/// An attribute of a global memory, or a figure that follows from its interfaces.
struct MemoryAttribute {
    const char* name;  // as in the board file where it is there
    AttributeValue (*value)(const board::GlobalMemConfig& memory);
};

/// The attributes of a global memory that formats show besides its interfaces, in their order.
extern const ArrayView<MemoryAttribute> MEMORY_ATTRIBUTES;

}  // namespace vemo::dump
