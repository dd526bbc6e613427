#include "BoardLint/NumberWarning.h"

#include <cctype>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "BaseVisitor/UnsignedNumber.h"
#include "BoardLint/FindingText.h"
#include "BoardSpec/BoardSpec.h"

namespace vemo::lint {
namespace {

using tinyxml2::XMLAttribute;

constexpr std::uint32_t GREATEST_32 = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint64_t GREATEST_64 = std::numeric_limits<std::uint64_t>::max();
constexpr const char* WHITESPACE = " \t\n\v\f\r";

/// A number that the XML library or the C library reads from the beginning of a text.
struct Prefix {
    std::string value;  // as it is understood
    const char* rest;   // what is not read; null without a number
};

Prefix leading_float(const char* text) {
    float value = 0.0f;
    int length = 0;
    // As the XML library does. NOLINTNEXTLINE(cert-err34-c)
    if (std::sscanf(text, "%f%n", &value, &length) != 1) {
        return {"", nullptr};
    }
    char number[32];
    std::snprintf(number, sizeof number, "%g", static_cast<double>(value));
    return {number, text + length};
}

Prefix leading_version(const char* text) {
    char* rest = nullptr;
    const auto value = static_cast<float>(std::strtod(text, &rest));
    return {board::number_text(value), rest == text ? nullptr : rest};
}

Prefix leading_boolean(const char* text) {
    const char* digits = text + std::strspn(text, WHITESPACE);
    const bool is_hex = digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X');
    unsigned value = 0;
    int length = 0;
    if (std::sscanf(text, is_hex ? "%x%n" : "%u%n", &value, &length) != 1) {
        return {"", nullptr};
    }
    return {value == 0 ? "false" : "true", text + length};
}

std::string attribute_text(const char* name) { return "Attribute " + quoted(name); }

NumberWarning too_large(const char* name, std::uint64_t used) {
    return {"number-too-large",
            attribute_text(name) + " is too large: " + std::to_string(used) + " is used."};
}

std::optional<NumberWarning> check_count(const char* name, std::uint64_t count) {
    if (count <= GREATEST_32) {
        return std::nullopt;
    }
    return too_large(name, GREATEST_32);
}

std::optional<NumberWarning> check_address(const char* name, std::uint64_t address) {
    if (address == GREATEST_64) {
        return too_large(name, GREATEST_64);
    }
    if (address <= GREATEST_32) {
        return std::nullopt;
    }
    return NumberWarning{"dropped-bits", attribute_text(name) + " is more than 32 bits wide: "
                                             + hex_text(address & GREATEST_32) + " is used."};
}

std::optional<NumberWarning> check_rest(const char* name, const Prefix& prefix) {
    if (prefix.rest == nullptr || prefix.rest[std::strspn(prefix.rest, WHITESPACE)] == '\0') {
        return std::nullopt;
    }
    return NumberWarning{"partly-read-number", attribute_text(name) + " is read as " + prefix.value
                                                   + ": " + quoted(prefix.rest) + " is ignored."};
}

}  // namespace

bool is_harmless_number(const char* text) {
    const auto first = static_cast<unsigned char>(*text);
    if (std::isdigit(first) == 0 && std::isspace(first) == 0
        && std::strchr("+-.", first) == nullptr) {
        return true;
    }
    constexpr std::size_t MAX_DIGITS = 9;
    const bool is_hex = text[0] == '0' && text[1] == 'x';
    const char* digits = is_hex ? text + 2 : text;
    const std::size_t num_digits =
        std::strspn(digits, is_hex ? "0123456789abcdefABCDEF" : "0123456789");
    return digits[num_digits] == '\0' && num_digits + (is_hex ? 1 : 0) <= MAX_DIGITS;
}

std::optional<NumberWarning> find_number_warning(const XMLAttribute& attribute,
                                                 xml::Syntax syntax) {
    const char* name = attribute.Name();
    const char* text = attribute.Value();
    std::uint64_t count = 0;
    xml::unsigned64_hex address;
    switch (syntax) {
        case xml::Syntax::Text:
            break;
        case xml::Syntax::Decimal:
            xml::convert_to_unsigned64(text, &count, 10);
            return check_count(name, count);
        case xml::Syntax::Prefixed:
            xml::convert_word(text, &address);
            return check_count(name, address.value);
        case xml::Syntax::Wide:
            xml::convert_word(text, &address);
            return check_address(name, address.value);
        case xml::Syntax::Float:
            return check_rest(name, leading_float(text));
        case xml::Syntax::Version:
            return check_rest(name, leading_version(text));
        case xml::Syntax::Boolean:
            return check_rest(name, leading_boolean(text));
    }
    return std::nullopt;
}

}  // namespace vemo::lint
