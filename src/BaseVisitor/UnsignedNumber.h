#pragma once

#include <cstdint>
#include <istream>

namespace vemo::xml {

/// Selects the reading of a 32-bit number in decimal, octal (0...) or hexadecimal (0x...).
struct unsigned_hex {
    std::uint32_t value = 0;
};

/// The same with 64 bits.
struct unsigned64_hex {
    std::uint64_t value = 0;
};

/// Reads `text` as an unsigned number; the whole text must be one and begin with a decimal digit:
/// no spaces, no sign. `base` is 2 to 36, or 0 to let the prefix decide (0x hexadecimal, 0 octal,
/// else decimal); any other base reads nothing. Returns false if the text is no such number. Stores
/// what the leading digits give into `*out` even then, unless the text does not begin with a digit.
/// A number too large is stored as the largest one and accepted.
bool convert_to_unsigned(const char* text, std::uint32_t* out, int base);
bool convert_to_unsigned64(const char* text, std::uint64_t* out, int base);

/// Read one whitespace-delimited word with base 0; set failbit when it is no number.
std::istream& operator>>(std::istream& stream, unsigned_hex& number);
std::istream& operator>>(std::istream& stream, unsigned64_hex& number);

/// What the extraction above gives on a stream of `text` that it must consume: whitespace before
/// the number is skipped, whitespace after it fails.
bool convert_word(const char* text, unsigned_hex* number);
bool convert_word(const char* text, unsigned64_hex* number);

}  // namespace vemo::xml
