#pragma once

#include <initializer_list>
#include <string>
#include <utility>

#include "BoardDump/AttributeValue.h"

namespace vemo::dump {

/// Writes a JSON text part by part, two spaces deeper at each level. A caller gives a name to what
/// it puts into an object, and none to what it puts into an array or to the whole.
class JsonWriter {
public:
    using Member = std::pair<const char*, AttributeValue>;

    void begin_object(const char* name = nullptr) { begin(name, '{', '}'); }
    void begin_array(const char* name = nullptr) { begin(name, '[', ']'); }

    /// Ends the object or array that was begun last.
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
