#pragma once

#include <string>
#include <string_view>

namespace vemo::dump {

enum class JsonCharacters { Utf8, Ascii };

/// Appends `text` to `out` as a JSON string with quotes. Invalid UTF-8 becomes U+FFFD. With
/// JsonCharacters::Ascii, other characters than ASCII are escaped.
void append_json_string(std::string& out, std::string_view text, JsonCharacters characters);

}  // namespace vemo::dump
