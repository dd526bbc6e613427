#include "BoardDump/JsonWriter.h"

#include <cmath>
#include <type_traits>
#include <variant>

#include "BoardDump/JsonString.h"

namespace vemo::dump {

void JsonWriter::begin(const char* name, char bracket, char closing_bracket) {
    begin_item(name);
    m_text += bracket;
    m_closing_brackets += closing_bracket;
    m_is_empty = true;
}

void JsonWriter::end() {
    const char bracket = m_closing_brackets.back();
    m_closing_brackets.pop_back();
    if (!m_is_empty) {
        begin_line();
    }
    m_text += bracket;
    m_is_empty = false;
}

void JsonWriter::value(const AttributeValue& value, const char* name) {
    begin_item(name);
    std::visit(
        [this, &value](const auto& alternative) {
            using Alternative = std::decay_t<decltype(alternative)>;
            if constexpr (std::is_same_v<Alternative, std::monostate>) {
                m_text += "null";
            } else if constexpr (std::is_same_v<Alternative, bool>) {
                m_text += alternative ? "true" : "false";
            } else if constexpr (std::is_same_v<Alternative, std::string_view>) {
                append_json_string(m_text, alternative, JsonCharacters::Utf8);
            } else if constexpr (std::is_same_v<Alternative, float>) {
                const std::string number = std::isfinite(alternative) ? to_text(value) : "null";
                m_text += number;
                // Readers shall give a figure the same type, whatever it is.
                m_text += number.find_first_of(".en") == std::string::npos ? ".0" : "";
            } else {
                m_text += to_text(value);
            }
        },
        value);
}

void JsonWriter::members(std::initializer_list<Member> members) {
    for (const Member& member : members) {
        value(member.second, member.first);
    }
}

void JsonWriter::begin_item(const char* name) {
    if (!m_closing_brackets.empty()) {
        m_text += m_is_empty ? "" : ",";
        begin_line();
    }
    if (name != nullptr) {
        m_text.append("\"").append(name).append("\": ");
    }
    m_is_empty = false;
}

void JsonWriter::begin_line() { m_text.append("\n").append(2 * m_closing_brackets.size(), ' '); }

}  // namespace vemo::dump
