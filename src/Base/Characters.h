#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// The characters of texts that come from files: how many columns they take, and how they are shown
// so that no terminal obeys them.

namespace vemo {

/// A character of UTF-8, or a byte that is none.
struct Character {
    char32_t code;           ///< The code point, or the byte.
    bool is_valid;           ///< False for a byte that belongs to no character.
    std::string_view bytes;  ///< As in the text.
};

/// The character at the beginning of `text`, which must not be empty. It is removed.
Character take_character(std::string_view& text);

/// Number of characters in `text`.
std::size_t count_characters(std::string_view text);

/// `text` with all that could mislead a reader made visible: control characters and bytes that are
/// no UTF-8 as \xNN, line separators, direction overrides and invisible characters as \u{NNNN}.
/// The result is one line of valid UTF-8.
std::string printable(std::string_view text);

/// printable() of one character.
std::string printable(const Character& character);

/// Columns that a printable text takes on a terminal: two for wide characters, none for combining
/// ones.
std::size_t display_width(std::string_view text);

}  // namespace vemo
