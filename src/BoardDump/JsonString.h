#pragma once

#include <string>
#include <string_view>

namespace vemo::dump {

enum class JsonCharacters { Utf8, Ascii };

/// Appends `text` to `out` as a JSON string, quotes included. Bytes that are no UTF-8 become
/// U+FFFD. With JsonCharacters::Ascii, all that is not ASCII is escaped.
void append_json_string(std::string& out, std::string_view text, JsonCharacters characters);

}  // namespace vemo::dump
