#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace vemo::dump {

/// A document, or a part of one, that is both XML and HTML, with one element per line. Names must
/// be literals of this program. Values and texts can be anything: they are written as
/// vemo::printable() returns them, with the characters of markup escaped. Attributes with an empty
/// value are omitted.
class Markup {
public:
    struct Attribute {
        Attribute(const char* n, std::string_view v) : name(n), value(v) {}
        Attribute(const char* n, int v) : name(n), value(std::to_string(v)) {}

        const char* name;
        std::string value;
    };
    using Attributes = std::initializer_list<Attribute>;

    /// Opens an element. What follows is inside, up to close().
    void open(const char* element, Attributes attributes = {});

    /// Closes the innermost open element.
    void close();

    /// An element that contains only text.
    void element(const char* name, Attributes attributes, std::string_view text);

    /// An element without content: in HTML one that is always empty, in SVG any.
    void empty(const char* name, Attributes attributes = {});

    /// Markup that is part of this program, written as it is.
    void constant(const char* markup) { m_text += markup; }

    /// Another part, whose elements must be closed.
    void append(const Markup& part) { m_text += part.m_text; }

    const std::string& text() const { return m_text; }

private:
    void start(const char* name, Attributes attributes);
    void escape(std::string_view text);

    std::string m_text;
    std::vector<const char*> m_open;
};

/// The beginning of `text` that fits into `columns` columns, with an ellipsis if it is cut.
/// Characters that take no column count as one, which limits the size of the result.
std::string fitted(std::string_view text, std::size_t columns);

}  // namespace vemo::dump
