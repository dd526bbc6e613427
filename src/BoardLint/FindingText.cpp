#include "BoardLint/FindingText.h"

#include <cinttypes>
#include <cstdio>

namespace vemo::lint {

const char* severity_name(Severity severity) {
    return severity == Severity::Error ? "error" : "warning";
}

std::string quoted(std::string_view text) { return std::string("'").append(text).append("'"); }

std::string hex_text(std::uint64_t number) {
    char text[sizeof "0xffffffffffffffff"];
    std::snprintf(text, sizeof text, "0x%" PRIx64, number);
    return text;
}

std::string question(const Finding& finding) {
    return finding.suggestion.empty() ? "" : "did you mean " + quoted(finding.suggestion) + "?";
}

std::string message_with_suggestion(const Finding& finding) {
    return finding.suggestion.empty() ? finding.message
                                      : finding.message + " (" + question(finding) + ")";
}

}  // namespace vemo::lint
