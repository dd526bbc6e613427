#pragma once

#include <string>
#include <string_view>

#include <tinyxml2.h>

namespace vemo::lint {

/// The element of a document that is being repaired, for an edit.
inline tinyxml2::XMLElement* editable(const tinyxml2::XMLElement* elem) {
    return const_cast<tinyxml2::XMLElement*>(elem);
}

bool has_attribute(const tinyxml2::XMLElement& elem, const std::string& name);

/// Value of an attribute; empty if the element has none of that name.
std::string text_of(const tinyxml2::XMLElement& elem, const std::string& attribute);

/// Name of the element around `elem`; empty for a root.
std::string_view parent_name(const tinyxml2::XMLElement& elem);

/// Calls visit(elem) for `elem` and the elements in it, until it returns false.
template <typename Visit>
bool for_each_element(const tinyxml2::XMLElement* elem, Visit visit) {
    if (!visit(*elem)) {
        return false;
    }
    for (const auto* child = elem->FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
        if (!for_each_element(child, visit)) {
            return false;
        }
    }
    return true;
}

}  // namespace vemo::lint
