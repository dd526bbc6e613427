#include "Base/Characters.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "Base/ArrayView.h"

namespace vemo {
namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// Controls, line and paragraph separators, direction marks and overrides, what has no width, and
// code points that are no characters (the last two of each plane are checked apart).
constexpr Range HIDDEN[] = {{0x00, 0x1f},     {0x7f, 0x9f},     {0xad, 0xad},
                            {0x61c, 0x61c},   {0x180e, 0x180e}, {0x200b, 0x200f},
                            {0x2028, 0x202e}, {0x2060, 0x206f}, {0xfdd0, 0xfdef},
                            {0xfeff, 0xfeff}, {0xfff9, 0xfffb}, {0xe0000, 0xe0fff}};

constexpr Range COMBINING[] = {{0x300, 0x36f},   {0x483, 0x489},   {0x591, 0x5bd},
                               {0x1ab0, 0x1aff}, {0x1dc0, 0x1dff}, {0x20d0, 0x20ff},
                               {0xfe00, 0xfe0f}, {0xfe20, 0xfe2f}};

// East Asian characters and emoji.
constexpr Range WIDE[] = {{0x1100, 0x115f},   {0x2e80, 0x303e},  {0x3041, 0xa4cf},
                          {0xac00, 0xd7a3},   {0xf900, 0xfaff},  {0xfe30, 0xfe6f},
                          {0xff00, 0xff60},   {0xffe0, 0xffe6},  {0x1f300, 0x1f64f},
                          {0x1f900, 0x1f9ff}, {0x20000, 0x3fffd}};

/// `ranges` are in ascending order.
bool is_in(char32_t code, ArrayView<Range> ranges) {
    const Range* range =
        std::lower_bound(ranges.begin(), ranges.end(), code,
                         [](const Range& candidate, char32_t c) { return candidate.last < c; });
    return range != ranges.end() && range->first <= code;
}

bool is_hidden(char32_t code) { return is_in(code, HIDDEN) || (code & 0xfffeU) == 0xfffe; }

/// Columns of a character that is not hidden.
std::size_t width_of(char32_t code) {
    if (code < COMBINING[0].first) {
        return 1;  // as most do
    }
    if (is_in(code, WIDE)) {
        return 2;
    }
    return is_in(code, COMBINING) ? 0 : 1;
}

/// Least code point that takes a sequence of this many bytes: shorter ones must not.
constexpr char32_t LEAST[] = {0, 0, 0x80, 0x800, 0x10000};
constexpr char32_t GREATEST = 0x10ffff;
constexpr Range SURROGATES = {0xd800, 0xdfff};

std::size_t sequence_length(unsigned char lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead < 0xc0) {
        return 0;
    }
    if (lead < 0xe0) {
        return 2;
    }
    if (lead < 0xf0) {
        return 3;
    }
    return lead < 0xf8 ? 4 : 0;
}

}  // namespace

Character take_character(std::string_view& text) {
    const auto byte_at = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte_at(0);
    std::size_t length = sequence_length(lead);
    char32_t code = lead;
    bool is_valid = length > 0 && length <= text.size();
    if (is_valid && length > 1) {
        code = lead & (0x7fU >> length);
        for (std::size_t i = 1; i < length; ++i) {
            is_valid = is_valid && (byte_at(i) & 0xc0U) == 0x80;
            code = (code << 6U) | (byte_at(i) & 0x3fU);
        }
        is_valid = is_valid && code >= LEAST[length] && code <= GREATEST
                   && !(SURROGATES.first <= code && code <= SURROGATES.last);
    }
    if (!is_valid) {
        length = 1;
        code = lead;
    }
    const Character character = {code, is_valid, text.substr(0, length)};
    text.remove_prefix(length);
    return character;
}

std::size_t count_characters(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count) {
        take_character(text);
    }
    return count;
}

std::string printable(const Character& character) {
    if (character.is_valid && !is_hidden(character.code)) {
        return std::string(character.bytes);
    }
    char escape[sizeof "\\u{10ffff}"];
    const bool is_byte = !character.is_valid || character.code < 0x80;
    std::snprintf(escape, sizeof escape, is_byte ? "\\x%02x" : "\\u{%04x}",
                  static_cast<unsigned>(character.code));
    return escape;
}

std::string printable(std::string_view text) {
    const auto is_special = [](char c) { return c < ' ' || c > '~'; };  // of any sign
    std::string out;
    while (!text.empty()) {
        const auto* special = std::find_if(text.begin(), text.end(), is_special);
        const auto num_plain = static_cast<std::size_t>(special - text.begin());
        out += text.substr(0, num_plain);
        text.remove_prefix(num_plain);
        if (!text.empty()) {
            out += printable(take_character(text));
        }
    }
    return out;
}

std::size_t display_width(std::string_view text) {
    std::size_t width = 0;
    while (!text.empty()) {
        width += width_of(take_character(text).code);
    }
    return width;
}

}  // namespace vemo
