#pragma once

#include <optional>
#include <string>

#include <tinyxml2.h>

#include "BaseVisitor/Report.h"

namespace vemo::lint {

/// A number that loads, but is not used as it is written.
struct NumberWarning {
    const char* id;
    std::string message;
};

/// False if there may be a warning about `text`. True for most texts and most numbers.
bool is_harmless_number(const char* text);

/// What is wrong with a number that has been read from `attribute`; nothing if it is used as it is
/// written.
std::optional<NumberWarning> find_number_warning(const tinyxml2::XMLAttribute& attribute,
                                                 xml::Syntax syntax);

}  // namespace vemo::lint
