#include "BoardDump/Markup.h"

#include <algorithm>

#include "Base/Characters.h"

namespace vemo::dump {
namespace {

/// The escape for a character of markup; null for other characters.
const char* entity_of(char c) {
    switch (c) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\'':
            return "&#39;";
        default:
            return nullptr;
    }
}

}  // namespace

void Markup::start(const char* name, Attributes attributes) {
    m_text += '<';
    m_text += name;
    for (const Attribute& attribute : attributes) {
        if (attribute.value.empty()) {
            continue;
        }
        m_text += ' ';
        m_text += attribute.name;
        m_text += "=\"";
        escape(attribute.value);
        m_text += '"';
    }
}

void Markup::escape(std::string_view text) {
    const std::string shown = printable(text);
    std::size_t begin = 0;  // of what is not written yet
    for (std::size_t i = 0; i < shown.size(); ++i) {
        if (const char* entity = entity_of(shown[i])) {
            m_text.append(shown, begin, i - begin).append(entity);
            begin = i + 1;
        }
    }
    m_text.append(shown, begin);
}

void Markup::open(const char* element, Attributes attributes) {
    start(element, attributes);
    m_text += ">\n";
    m_open.push_back(element);
}

void Markup::close() {
    m_text += "</";
    m_text += m_open.back();
    m_text += ">\n";
    m_open.pop_back();
}

void Markup::element(const char* name, Attributes attributes, std::string_view text) {
    start(name, attributes);
    m_text += '>';
    escape(text);
    m_text += "</";
    m_text += name;
    m_text += ">\n";
}

void Markup::empty(const char* name, Attributes attributes) {
    start(name, attributes);
    m_text += "/>\n";
}

std::string fitted(std::string_view text, std::size_t columns) {
    std::string shown;
    std::size_t width = 0;
    std::size_t end = 0;  // of what still fits with an ellipsis behind it
    while (!text.empty()) {
        const std::string character = printable(take_character(text));
        width += std::max<std::size_t>(display_width(character), 1);
        if (width > columns) {
            return shown.substr(0, end) + "…";
        }
        shown += character;
        if (width < columns) {
            end = shown.size();
        }
    }
    return shown;
}

}  // namespace vemo::dump
