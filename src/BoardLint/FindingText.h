#pragma once

#include <string>

#include "BoardLint/Finding.h"

// Texts that all outputs have in common.

namespace vemo::lint {

/// "error" or "warning".
const char* severity_name(Severity severity);

/// "did you mean 'NAME'?", or empty without a suggestion.
std::string question(const Finding& finding);

/// The message, followed by the suggestion if there is one.
std::string message_with_suggestion(const Finding& finding);

}  // namespace vemo::lint
