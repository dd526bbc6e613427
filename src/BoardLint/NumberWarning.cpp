#include "BoardLint/NumberWarning.h"

#include <cctype>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string_view>

#include "BaseVisitor/UnsignedNumber.h"
#include "BoardLint/Elements.h"
#include "BoardLint/FindingText.h"
#include "BoardSpec/BoardSpec.h"

namespace vemo::lint {
namespace {

using tinyxml2::XMLAttribute;
using tinyxml2::XMLElement;

constexpr std::uint32_t GREATEST_32 = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint64_t GREATEST_64 = std::numeric_limits<std::uint64_t>::max();
constexpr const char* WHITESPACE = " \t\n\v\f\r";

/// How a reader understands the text of an attribute.
enum class Number {
    Count,    // decimal, 32 bits
    Window,   // by prefix, 32 bits
    Address,  // by prefix, 64 bits, of which the low 32 are kept
    Float,
    Version,  // the leading number
    Boolean,  // an integer or a word
};

struct NumberAttribute {
    const char* name = nullptr;
    Number number = Number::Count;
    const char* only_in = nullptr;  // the element or its parent, where others have that name, too
};

// The first row that fits counts. Attributes that are not here are texts and words.
constexpr NumberAttribute NUMBERS[] = {
    {"num", Number::Count},
    {"size", Number::Window, "kernel_config"},
    {"size", Number::Address},
    {"address", Number::Address},
    {"width", Number::Count},
    {"maxburst", Number::Count},
    {"latency", Number::Count},
    {"waitrequest", Number::Count},
    {"waitrequest_allowance", Number::Count},
    {"bsp_vnmm_write_ack", Number::Count},
    {"addpipe", Number::Count},
    {"misc", Number::Count},
    {"sampling_rate", Number::Float},
    {"attribute_width", Number::Count},
    {"encoding", Number::Count},
    {"max_bandwidth", Number::Float},
    {"interleaved_bytes", Number::Address},
    {"config_addr", Number::Address},
    {"start", Number::Window},
    {"generic_kernel", Number::Boolean},
    {"version", Number::Version, "board"},
    {"expected", Number::Float},
    {"min", Number::Float},
    {"high", Number::Float},
    {"value", Number::Float, "fmax_degradation"},
    {"value", Number::Float, "global_interconnect"},
    {"value", Number::Count, "local_mem"},
    {"value", Number::Count, "delay_model"},
    {"value", Number::Count, "family_info"},
};

const NumberAttribute* find_number(const XMLElement& elem, const char* name) {
    for (const NumberAttribute& row : NUMBERS) {
        if (std::strcmp(row.name, name) == 0
            && (row.only_in == nullptr || row.only_in == std::string_view(elem.Name())
                || parent_name(elem) == row.only_in)) {
            return &row;
        }
    }
    return nullptr;
}

/// Whether no warning about numbers is possible: most texts, and most numbers.
bool is_harmless(const char* text) {
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

std::optional<NumberWarning> check_number(const char* name, const char* text, Number number) {
    std::uint64_t count = 0;
    xml::unsigned64_hex address;
    switch (number) {
        case Number::Count:
            if (xml::convert_to_unsigned64(text, &count, 10)) {
                return check_count(name, count);
            }
            break;
        case Number::Window:
            if (xml::convert_word(text, &address)) {
                return check_count(name, address.value);
            }
            break;
        case Number::Address:
            if (xml::convert_word(text, &address)) {
                return check_address(name, address.value);
            }
            break;
        case Number::Float:
            return check_rest(name, leading_float(text));
        case Number::Version:
            return check_rest(name, leading_version(text));
        case Number::Boolean:
            return check_rest(name, leading_boolean(text));
    }
    return std::nullopt;
}

}  // namespace

std::optional<NumberWarning> find_number_warning(const XMLElement& elem,
                                                 const XMLAttribute& attribute) {
    const char* text = attribute.Value();
    const NumberAttribute* row = is_harmless(text) ? nullptr : find_number(elem, attribute.Name());
    return row == nullptr ? std::nullopt : check_number(attribute.Name(), text, row->number);
}

}  // namespace vemo::lint
