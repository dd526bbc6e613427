#pragma once

#include <string_view>
#include <variant>

#include "Base/ArrayView.h"
#include "BoardSpec/Interface.h"

namespace vemo::dump {

/// Value of an attribute: a flag, a number, a text, or nothing when the file gives none.
using AttributeValue = std::variant<std::monostate, bool, unsigned, float, std::string_view>;

/// An attribute of an interface. A text lives as long as the interface.
struct InterfaceAttribute {
    const char* name;  // as in the board file
    AttributeValue (*value)(const board::Interface& intf);
};

/// The attributes of an interface that formats show, in their order. `port` is not among them: an
/// interface has a list of ports.
extern const ArrayView<InterfaceAttribute> INTERFACE_ATTRIBUTES;

}  // namespace vemo::dump
