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

/// Reads `text` as an unsigned number; the whole text must be one, beginning with a digit: no
/// blanks, no sign. With base 0 the prefix of C decides (0x, 0, none). Stores into `*out` what the
/// leading digits give, also when false is returned for what follows them; nothing when the text
/// does not begin with a digit. A number too large is stored as the largest one and accepted.
bool convert_to_unsigned(const char* text, std::uint32_t* out, int base);
bool convert_to_unsigned64(const char* text, std::uint64_t* out, int base);

/// Read one blank-delimited word in the notation of base 0; set failbit when it is no number.
std::istream& operator>>(std::istream& stream, unsigned_hex& number);
std::istream& operator>>(std::istream& stream, unsigned64_hex& number);

/// What the extraction above gives on a stream of `text` when it must come to the very end of it:
/// blanks before the number are skipped, while one behind it is left over, and fails.
bool convert_word(const char* text, unsigned_hex* number);
bool convert_word(const char* text, unsigned64_hex* number);

}  // namespace vemo::xml
