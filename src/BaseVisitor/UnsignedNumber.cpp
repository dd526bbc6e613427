#include "BaseVisitor/UnsignedNumber.h"

#include <charconv>
#include <cstring>
#include <limits>
#include <string>
#include <system_error>

namespace vemo::xml {
namespace {

constexpr int BASE_BY_PREFIX = 0;
constexpr int LEAST_BASE = 2;
constexpr int GREATEST_BASE = 36;

bool is_decimal_digit(char c) { return c >= '0' && c <= '9'; }

bool is_blank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

bool has_hex_prefix(const char* text) {
    return text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
}

int base_of_prefix(const char* text) {
    if (has_hex_prefix(text)) {
        return 16;
    }
    return text[0] == '0' ? 8 : 10;
}

template <typename Unsigned>
bool convert(const char* text, Unsigned* out, int base) {
    if (!is_decimal_digit(*text)) {
        return false;
    }
    if (base == BASE_BY_PREFIX) {
        base = base_of_prefix(text);
    }
    if (base < LEAST_BASE || base > GREATEST_BASE) {
        *out = 0;
        return false;
    }
    if (base == 16 && has_hex_prefix(text)) {
        text += 2;
    }
    const char* text_end = text + std::strlen(text);
    Unsigned number = 0;  // what a mere prefix gives
    const std::from_chars_result result = std::from_chars(text, text_end, number, base);
    const bool is_too_large = result.ec == std::errc::result_out_of_range;
    *out = is_too_large ? std::numeric_limits<Unsigned>::max() : number;
    return result.ec != std::errc::invalid_argument && result.ptr == text_end;
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
