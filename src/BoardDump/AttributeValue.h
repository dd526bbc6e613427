#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>

namespace vemo::dump {

/// Value of an attribute: a flag, a number, a text, or nothing when the file gives none. A text
/// belongs to the model.
using AttributeValue = std::variant<std::monostate, bool, unsigned, float, std::string_view>;

/// A figure that is above 0 once given; nothing if it is not.
template <typename Number>
AttributeValue figure_value(Number number) {
    return number > 0 ? AttributeValue(number) : AttributeValue();
}

/// The word for an enumerator; nothing for any other value.
template <std::size_t N>
AttributeValue word_value(const std::string_view (&words)[N], std::size_t index) {
    return index < N ? AttributeValue(words[index]) : AttributeValue();
}

/// The value as plain text: 1 or 0 for a flag, an empty text for nothing. A number has as many
/// digits as are needed to read back the same value.
std::string to_text(const AttributeValue& value);

}  // namespace vemo::dump
