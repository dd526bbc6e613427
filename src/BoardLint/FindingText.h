#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "BoardLint/Finding.h"

// Texts of findings.

namespace vemo::lint {

/// "error" or "warning".
const char* severity_name(Severity severity);

/// `text` in single quotes.
std::string quoted(std::string_view text);

/// 0x and hexadecimal digits.
std::string hex_text(std::uint64_t number);

/// "did you mean 'NAME'?", or empty without a suggestion.
std::string question(const Finding& finding);

/// The message, followed by the suggestion if there is one.
std::string message_with_suggestion(const Finding& finding);

}  // namespace vemo::lint
