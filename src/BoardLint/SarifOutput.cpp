#include "BoardLint/SarifOutput.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <utility>

#include <nlohmann/json.hpp>

#include "BoardLint/FindingText.h"
#include "BoardLint/Rules.h"
#include "vemo-boardspec-version.h"

namespace vemo::lint {
namespace {

using Json = nlohmann::ordered_json;
using Path = std::filesystem::path;

constexpr int INDENTATION = 2;
constexpr bool ONLY_ASCII = true;
constexpr const char* BASE_ID = "%SRCROOT%";

bool is_unreserved(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')
           || std::string_view("-._~/").find(c) != std::string_view::npos;
}

std::string escape_uri(std::string_view path) {
    constexpr const char* DIGITS = "0123456789ABCDEF";
    std::string uri;
    for (const char c : path) {
        if (is_unreserved(c)) {
            uri += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            uri += {'%', DIGITS[byte >> 4], DIGITS[byte & 0xf]};
        }
    }
    return uri;
}

class SarifWriter {
public:
    explicit SarifWriter(const std::string& working_directory)
        : m_directory((Path(working_directory) / "").lexically_normal()) {}

    Json log(const std::vector<Finding>& findings) const {
        Json results = Json::array();
        for (const Finding& finding : findings) {
            results.push_back(result(finding));
        }
        Json run = {{"tool", {{"driver", driver()}}},
                    {"originalUriBaseIds",
                     {{BASE_ID, {{"uri", "file://" + escape_uri(m_directory.string())}}}}},
                    {"columnKind", "unicodeCodePoints"},
                    {"results", std::move(results)}};
        return {{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
                {"version", "2.1.0"},
                {"runs", Json::array({std::move(run)})}};
    }

private:
    static Json text(const std::string& text) { return {{"text", text}}; }

    static Json driver() {
        Json list = Json::array();
        for (const Rule& rule : rules()) {
            list.push_back({{"id", rule.id},
                            {"shortDescription", text(rule.summary + std::string("."))},
                            {"fullDescription", text(rule.explanation)},
                            {"help", text(explain(rule))},
                            {"defaultConfiguration", {{"level", severity_name(rule.severity)}}}});
        }
        return {{"name", "vemo-boardspec-lint"},
                {"version", VEMO_BOARDSPEC_VERSION},
                {"rules", std::move(list)}};
    }

    Json result(const Finding& finding) const {
        Json result = {{"ruleId", finding.id}};
        if (const Rule* rule = find_rule(finding.id)) {
            result["ruleIndex"] = rule - rules().begin();
        }
        result["level"] = severity_name(finding.severity);
        std::string message = message_with_suggestion(finding);
        Json related = Json::array();
        for (const Note& note : finding.notes) {
            if (note.location.line > 0) {
                related.push_back(
                    {{"physicalLocation", physical(note.location)}, {"message", text(note.text)}});
            } else {
                message += "\n" + note.text;
            }
        }
        result["message"] = text(message);
        if (!finding.location.file.empty()) {
            result["locations"] =
                Json::array({Json{{"physicalLocation", physical(finding.location)}}});
        }
        if (!related.empty()) {
            result["relatedLocations"] = std::move(related);
        }
        return result;
    }

    Json physical(const Location& location) const {
        Json object = {{"artifactLocation", artifact(location.file)}};
        if (location.line > 0) {
            Json region = {{"startLine", location.line}};
            if (location.column > 0) {
                region["startColumn"] = location.column;
                region["endColumn"] = location.column + std::max(location.length, 1U);
            }
            object["region"] = std::move(region);
        }
        return object;
    }

    Json artifact(const std::string& file) const {
        const Path path = (m_directory / file).lexically_normal();
        const Path relative = path.lexically_relative(m_directory);
        if (relative.empty() || *relative.begin() == "..") {
            return {{"uri", "file://" + escape_uri(path.string())}};
        }
        return {{"uri", escape_uri(relative.string())}, {"uriBaseId", BASE_ID}};
    }

    Path m_directory;  // with a slash at its end
};

}  // namespace

std::string sarif_output(const std::vector<Finding>& findings,
                         const std::string& working_directory) {
    return SarifWriter(working_directory)
               .log(findings)
               .dump(INDENTATION, ' ', ONLY_ASCII, Json::error_handler_t::replace)
           + "\n";
}

}  // namespace vemo::lint
