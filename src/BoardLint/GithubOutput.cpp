#include "BoardLint/GithubOutput.h"

#include <algorithm>
#include <string_view>

#include "Base/Characters.h"
#include "BoardLint/FindingText.h"

namespace vemo::lint {
namespace {

// Percent signs are escaped everywhere; line breaks do not survive printable().
constexpr std::string_view SPECIAL_IN_TEXT = "%";
constexpr std::string_view SPECIAL_IN_PROPERTY = "%:,";
constexpr const char* LINE_BREAK = "%0A";

std::string escape(std::string_view text, std::string_view special) {
    constexpr const char* DIGITS = "0123456789ABCDEF";
    std::string out;
    for (const char c : printable(text)) {
        if (special.find(c) == std::string_view::npos) {
            out += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            out += {'%', DIGITS[byte >> 4], DIGITS[byte & 0xf]};
        }
    }
    return out;
}

std::string command(const Finding& finding) {
    const Location& place = finding.location;
    std::string out = std::string("::") + severity_name(finding.severity)
                      + " file=" + escape(place.file, SPECIAL_IN_PROPERTY);
    if (place.line > 0) {
        out += ",line=" + std::to_string(place.line);
        if (place.column > 0) {
            out += ",col=" + std::to_string(place.column)
                   + ",endColumn=" + std::to_string(place.column + std::max(place.length, 1U) - 1);
        }
    }
    out += ",title=" + escape(finding.id, SPECIAL_IN_PROPERTY)
           + "::" + escape(message_with_suggestion(finding), SPECIAL_IN_TEXT);
    for (const Note& note : finding.notes) {
        out += LINE_BREAK;
        if (note.location.line > 0) {
            out += escape(note.location.file, SPECIAL_IN_TEXT) + ":"
                   + std::to_string(note.location.line) + ": ";
        }
        out += escape(note.text, SPECIAL_IN_TEXT);
    }
    return out + "\n";
}

}  // namespace

std::string github_output(const std::vector<Finding>& findings) {
    std::string out;
    for (const Finding& finding : findings) {
        out += command(finding);
    }
    return out;
}

}  // namespace vemo::lint
