#include "UnsignedNumber.h"

#include <cstdlib>
#include <limits>
#include <string>

namespace vemo::xml {
namespace {

constexpr int BASE_BY_PREFIX = 0;

bool is_decimal_digit(char c) { return c >= '0' && c <= '9'; }

bool is_blank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// The base that the prefix of `text` selects. The C library would know it as well, but newer ones
/// also take "0b", which is no number here.
int base_of_prefix(const char* text) {
    if (text[0] != '0') {
        return 10;
    }
    return text[1] == 'x' || text[1] == 'X' ? 16 : 8;
}

template <typename Unsigned>
bool convert(const char* text, Unsigned* out, int base) {
    if (!is_decimal_digit(text[0])) {
        return false;
    }
    char* end = nullptr;
    // Saturates at 64 bits by itself.
    const auto number =
        std::strtoull(text, &end, base == BASE_BY_PREFIX ? base_of_prefix(text) : base);
    constexpr auto LARGEST = std::numeric_limits<Unsigned>::max();
    *out = number > LARGEST ? LARGEST : static_cast<Unsigned>(number);
    return *end == '\0';
}

template <typename Number>
std::istream& extract(std::istream& stream, Number& number) {
    std::string word;
    stream >> word;
    if (!convert(word.c_str(), &number.value, BASE_BY_PREFIX)) {
        stream.setstate(std::ios::failbit);
    }
    return stream;
}

const char* skip_blanks(const char* text) {
    while (is_blank(*text)) {
        ++text;
    }
    return text;
}

}  // namespace

bool convert_to_unsigned(const char* text, std::uint32_t* out, int base) {
    return convert(text, out, base);
}

bool convert_to_unsigned64(const char* text, std::uint64_t* out, int base) {
    return convert(text, out, base);
}

std::istream& operator>>(std::istream& stream, unsigned_hex& number) {
    return extract(stream, number);
}

std::istream& operator>>(std::istream& stream, unsigned64_hex& number) {
    return extract(stream, number);
}

bool convert_word(const char* text, unsigned_hex* number) {
    return convert(skip_blanks(text), &number->value, BASE_BY_PREFIX);
}

bool convert_word(const char* text, unsigned64_hex* number) {
    return convert(skip_blanks(text), &number->value, BASE_BY_PREFIX);
}

}  // namespace vemo::xml
