#pragma once

#include <string>

namespace vemo {

/// Appends the text `text_of` gives for each item of `items` to `out`, with ", " between two texts.
template <typename Items, typename TextOf>
void append_joined(std::string& out, const Items& items, TextOf text_of) {
    const char* separator = "";
    for (const auto& item : items) {
        out += separator;
        out += text_of(item);
        separator = ", ";
    }
}

}  // namespace vemo
