#include "BoardDump/JsonString.h"

#include <algorithm>

#include <nlohmann/json.hpp>

namespace vemo::dump {
namespace {

bool is_plain(char c) { return c >= ' ' && c < 0x7f && c != '"' && c != '\\'; }

}  // namespace

void append_json_string(std::string& out, std::string_view text, JsonCharacters characters) {
    if (std::all_of(text.begin(), text.end(), is_plain)) {
        out.append("\"").append(text).append("\"");
    } else {
        out += nlohmann::json(text).dump(-1, ' ', characters == JsonCharacters::Ascii,
                                         nlohmann::json::error_handler_t::replace);
    }
}

}  // namespace vemo::dump
