#pragma once

#include <optional>
#include <string>

#include <tinyxml2.h>

namespace vemo::lint {

/// A number that loads, but is not used as it is written.
struct NumberWarning {
    const char* id;
    std::string message;
};

/// What is wrong with the number in `attribute` of `elem`; nothing if it is used as it is written,
/// or if the attribute is not a number. The file must load.
std::optional<NumberWarning> find_number_warning(const tinyxml2::XMLElement& elem,
                                                 const tinyxml2::XMLAttribute& attribute);

}  // namespace vemo::lint
