#pragma once

#include <initializer_list>
#include <string>
#include <utility>

#include "BoardDump/AttributeValue.h"

namespace vemo::dump {

/// Writes a JSON text piece by piece, indented by two spaces per level. Values in an object need a
/// name; values in an array, and the outermost value, have none.
class JsonWriter {
public:
    using Member = std::pair<const char*, AttributeValue>;

    void begin_object(const char* name = nullptr) { begin(name, '{', '}'); }
    void begin_array(const char* name = nullptr) { begin(name, '[', ']'); }

    /// Ends the innermost open object or array.
    void end();

    /// Nothing, or a number that is not finite, is null.
    void value(const AttributeValue& value, const char* name = nullptr);

    /// The members of an object.
    void members(std::initializer_list<Member> members);

    /// What was written.
    const std::string& text() const { return m_text; }

private:
    void begin(const char* name, char bracket, char closing_bracket);
    void begin_item(const char* name);
    void begin_line();

    std::string m_text;
    std::string m_closing_brackets;  // of the objects and arrays that are not at their end
    bool m_is_empty = true;          // the innermost of them, so far
};

}  // namespace vemo::dump
