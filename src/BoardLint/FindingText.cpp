#include "BoardLint/FindingText.h"

namespace vemo::lint {

const char* severity_name(Severity severity) {
    return severity == Severity::Error ? "error" : "warning";
}

std::string question(const Finding& finding) {
    return finding.suggestion.empty() ? "" : "did you mean '" + finding.suggestion + "'?";
}

std::string message_with_suggestion(const Finding& finding) {
    return finding.suggestion.empty() ? finding.message
                                      : finding.message + " (" + question(finding) + ")";
}

}  // namespace vemo::lint
