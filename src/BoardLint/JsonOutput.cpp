#include "BoardLint/JsonOutput.h"

#include <nlohmann/json.hpp>

#include "BoardLint/FindingText.h"

namespace vemo::lint {
namespace {

using Json = nlohmann::ordered_json;

constexpr int INDENTATION = 2;
constexpr bool ONLY_ASCII = true;

Json if_known(unsigned number) { return number > 0 ? Json(number) : Json(nullptr); }

Json if_given(const std::string& text) { return text.empty() ? Json(nullptr) : Json(text); }

void add_location(const Location& location, Json& object) {
    object["file"] = if_given(location.file);
    object["line"] = if_known(location.line);
    object["column"] = if_known(location.column);
    object["length"] = if_known(location.length);
}

Json describe(const Note& note) {
    Json object = Json::object();
    add_location(note.location, object);
    object["message"] = note.text;
    return object;
}

Json describe(const Finding& finding) {
    Json object = {{"severity", severity_name(finding.severity)}, {"id", finding.id}};
    add_location(finding.location, object);
    object["message"] = finding.message;
    object["suggestion"] = if_given(finding.suggestion);
    Json& notes = object["notes"] = Json::array();
    for (const Note& note : finding.notes) {
        notes.push_back(describe(note));
    }
    return object;
}

}  // namespace

std::string json_output(const std::vector<Finding>& findings) {
    Json list = Json::array();
    for (const Finding& finding : findings) {
        list.push_back(describe(finding));
    }
    const Json object = {{"findings", list}};
    return object.dump(INDENTATION, ' ', ONLY_ASCII, Json::error_handler_t::replace) + "\n";
}

}  // namespace vemo::lint
