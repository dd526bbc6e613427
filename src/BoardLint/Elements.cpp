#include "BoardLint/Elements.h"

namespace vemo::lint {

using tinyxml2::XMLElement;

bool has_attribute(const XMLElement& elem, const std::string& name) {
    return elem.FindAttribute(name.c_str()) != nullptr;
}

std::string text_of(const XMLElement& elem, const std::string& attribute) {
    const char* text = elem.Attribute(attribute.c_str());
    return text == nullptr ? "" : text;
}

std::string_view parent_name(const XMLElement& elem) {
    const XMLElement* parent = elem.Parent()->ToElement();
    return parent == nullptr ? std::string_view() : parent->Name();
}

}  // namespace vemo::lint
