#pragma once

#include "Base/ArrayView.h"
#include "BoardDump/AttributeValue.h"
#include "BoardSpec/Interface.h"

namespace vemo::dump {

/// An attribute of an interface.
struct InterfaceAttribute {
    const char* name;  // as in the board file
    AttributeValue (*value)(const board::Interface& intf);
};

/// The attributes of an interface that formats show, in their order. `port` is not among them: an
/// interface has a list of ports.
extern const ArrayView<InterfaceAttribute> INTERFACE_ATTRIBUTES;

}  // namespace vemo::dump
