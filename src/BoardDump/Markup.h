#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace vemo::dump {

/// A document, or a part of one, that is XML and HTML at the same time: one element a line. Every
/// name must be a literal of this program. Values and texts may be anything: they come out as
/// vemo::printable() makes them, with the characters of markup escaped, and so never become markup.
/// Attributes without a value are left out.
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

    /// An element with nothing but a text in it.
    void element(const char* name, Attributes attributes, std::string_view text);

    /// An element that is always empty in HTML, or any in SVG.
    void empty(const char* name, Attributes attributes = {});

    /// Markup of this program itself, which is kept as it is.
    void constant(const char* markup) { m_text += markup; }

    /// Another part, whose elements are closed.
    void append(const Markup& part) { m_text += part.m_text; }

    const std::string& text() const { return m_text; }

private:
    void start(const char* name, Attributes attributes);
    void escape(std::string_view text);

    std::string m_text;
    std::vector<const char*> m_open;
};

/// The beginning of `text` that fits into so many columns, with an ellipsis where it is cut.
/// Characters that take no column count as one, so that the result is never long.
std::string fitted(std::string_view text, std::size_t columns);

}  // namespace vemo::dump
