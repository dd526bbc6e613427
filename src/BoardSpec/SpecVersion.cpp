#include "BoardSpec/SpecVersion.h"

#include <charconv>

namespace vemo::board {
namespace {

constexpr int SIGNIFICANT_DIGITS = 6;
constexpr std::size_t LONGEST_TEXT = 16;  // of six digits, with sign, point and exponent

}  // namespace

std::string number_text(SpecVersion version) {
    char text[LONGEST_TEXT];
    const std::to_chars_result result = std::to_chars(
        text, text + LONGEST_TEXT, version, std::chars_format::general, SIGNIFICANT_DIGITS);
    return {text, result.ptr};
}

std::string to_string(SpecVersion version) {
    const std::string number = number_text(version);
    return version == 0 ? "<unknown>(" + number + ")" : number;
}

}  // namespace vemo::board
