#include "BoardLint/SourceText.h"

#include <algorithm>
#include <utility>

#include "Base/Characters.h"

namespace vemo::lint {
namespace {

using tinyxml2::XMLElement;
using tinyxml2::XMLNode;

constexpr std::string_view WHITESPACE = " \t\n\v\f\r";
constexpr std::string_view NAME_ENDS = " \t\n\v\f\r=/>";

bool begins_with(std::string_view text, std::string_view prefix) {
    return text.substr(0, prefix.size()) == prefix;
}

/// Offset behind the next `end` at or after `offset`, or the end of the text.
std::size_t skip_past(std::string_view text, std::string_view end, std::size_t offset) {
    const std::size_t found = text.find(end, offset);
    return found == std::string_view::npos ? text.size() : found + end.size();
}

std::size_t skip_blanks(std::string_view text, std::size_t offset) {
    return std::min(text.find_first_not_of(WHITESPACE, offset), text.size());
}

std::size_t skip_name(std::string_view text, std::size_t offset) {
    return std::min(text.find_first_of(NAME_ENDS, offset), text.size());
}

/// Calls visit(begin of the name, end of the name, end of the value) for each attribute of the
/// start tag at `offset`, until it returns false. Returns the offset behind the tag.
template <typename Visit>
std::size_t walk_attributes(std::string_view text, std::size_t offset, Visit visit) {
    offset = skip_name(text, offset + 1);
    while (true) {
        const std::size_t name = skip_blanks(text, offset);
        if (name == text.size() || text[name] == '>' || text[name] == '/') {
            return skip_past(text, ">", name);
        }
        const std::size_t name_end = skip_name(text, name);
        std::size_t value = skip_blanks(text, name_end);
        if (name_end == name || value == text.size() || text[value] != '=') {
            return text.size();  // the XML library had not accepted that
        }
        value = skip_blanks(text, value + 1);
        if (value == text.size()) {
            return value;
        }
        offset = skip_past(text, text.substr(value, 1), value + 1);
        if (!visit(name, name_end, offset)) {
            return offset;
        }
    }
}

/// The element behind `elem` in document order, or null.
const XMLElement* next_element(const XMLElement& elem) {
    if (const XMLElement* child = elem.FirstChildElement()) {
        return child;
    }
    for (const XMLNode* node = &elem; node != nullptr; node = node->Parent()) {
        if (const XMLElement* sibling = node->NextSiblingElement()) {
            return sibling;
        }
    }
    return nullptr;
}

}  // namespace

SourceText::SourceText(std::string file, std::string bytes)
    : m_file(std::move(file)), m_bytes(std::move(bytes)) {}

std::string_view SourceText::line(unsigned number) const {
    if (m_line_offsets.empty()) {
        m_line_offsets.push_back(0);
        for (std::size_t end = m_bytes.find('\n'); end != std::string::npos;
             end = m_bytes.find('\n', end + 1)) {
            m_line_offsets.push_back(end + 1);
        }
        m_line_offsets.push_back(m_bytes.size() + 1);
    }
    if (number == 0 || number >= m_line_offsets.size()) {
        return {};
    }
    const std::size_t begin = m_line_offsets[number - 1];
    std::string_view text(m_bytes);
    text = text.substr(begin, m_line_offsets[number] - 1 - begin);
    if (!text.empty() && text.back() == '\r') {
        text.remove_suffix(1);
    }
    return text;
}

void SourceText::find_tags() const {
    const std::string_view text(m_bytes.c_str());  // up to the first NUL, as the XML library reads
    unsigned line_number = 1;
    std::size_t counted = 0;  // line ends before here are in line_number
    std::size_t offset = text.find('<');
    while (offset < text.size()) {
        const std::string_view rest = text.substr(offset);
        std::size_t end = 0;
        if (begins_with(rest, "<?")) {
            end = skip_past(text, "?>", offset);
        } else if (begins_with(rest, "<!--")) {
            end = skip_past(text, "-->", offset);
        } else if (begins_with(rest, "<![CDATA[")) {
            end = skip_past(text, "]]>", offset);
        } else if (begins_with(rest, "<!") || begins_with(rest, "</")) {
            end = skip_past(text, ">", offset);
        } else {
            line_number += static_cast<unsigned>(
                std::count(text.begin() + static_cast<std::ptrdiff_t>(counted),
                           text.begin() + static_cast<std::ptrdiff_t>(offset), '\n'));
            counted = offset;
            m_tags.push_back({offset, line_number});
            end = walk_attributes(text, offset, [](auto...) { return true; });
        }
        offset = text.find('<', end);
    }
}

const SourceText::Tag* SourceText::tag_of(const XMLElement& elem) const {
    if (!m_is_attached) {
        attach(*elem.GetDocument());
    }
    return static_cast<const Tag*>(elem.GetUserData());
}

void SourceText::attach(const tinyxml2::XMLDocument& doc) const {
    m_is_attached = true;
    if (m_tags.empty()) {
        find_tags();
    }
    auto tag = m_tags.begin();
    for (const XMLElement* elem = doc.RootElement(); elem != nullptr && tag != m_tags.end();
         elem = next_element(*elem), ++tag) {
        const std::size_t name = tag->offset + 1;
        if (tag->line != static_cast<unsigned>(elem->GetLineNum())
            || m_bytes.compare(name, skip_name(m_bytes, name) - name, elem->Name()) != 0) {
            return;  // from here on, lines must do
        }
        // The user data belongs to the caller and is not part of the document.
        const_cast<XMLElement*>(elem)->SetUserData(&*tag);
    }
}

Location SourceText::location(unsigned line_number, std::size_t begin, std::size_t end) const {
    const std::size_t last_line_end =
        begin == 0 ? std::string::npos : m_bytes.rfind('\n', begin - 1);
    const std::size_t line_begin = last_line_end == std::string::npos ? 0 : last_line_end + 1;
    const std::string_view text(m_bytes);
    end = begin + std::min(end - begin, text.substr(begin, end - begin).find_first_of("\r\n"));
    return {
        m_file, line_number,
        static_cast<unsigned>(count_characters(text.substr(line_begin, begin - line_begin)) + 1),
        static_cast<unsigned>(count_characters(text.substr(begin, end - begin)))};
}

Location SourceText::locate(const XMLElement& elem) const {
    if (const Tag* tag = tag_of(elem)) {
        return location(tag->line, tag->offset, skip_name(m_bytes, tag->offset + 1));
    }
    return whole(static_cast<unsigned>(std::max(elem.GetLineNum(), 0)));
}

Location SourceText::locate(const XMLElement& elem, std::string_view attribute,
                            Extent extent) const {
    const Tag* tag = tag_of(elem);
    Location result = locate(elem);
    if (tag == nullptr) {
        const std::string name(attribute);
        if (const tinyxml2::XMLAttribute* found = elem.FindAttribute(name.c_str())) {
            result.line = std::max(result.line, static_cast<unsigned>(found->GetLineNum()));
        }
        return result;
    }
    const std::string_view text(m_bytes);
    walk_attributes(
        text, tag->offset, [&](std::size_t name, std::size_t name_end, std::size_t value_end) {
            if (text.substr(name, name_end - name) != attribute) {
                return true;
            }
            const auto lines = std::count(text.begin() + static_cast<std::ptrdiff_t>(tag->offset),
                                          text.begin() + static_cast<std::ptrdiff_t>(name), '\n');
            result = location(tag->line + static_cast<unsigned>(lines), name,
                              extent == Extent::Name ? name_end : value_end);
            return false;
        });
    return result;
}

SourceText& Sources::add(const std::string& file, std::string bytes) {
    const std::size_t found = position(file);
    return found == m_texts.size() ? m_texts.emplace_back(file, std::move(bytes)) : m_texts[found];
}

const SourceText* Sources::find(std::string_view file) const {
    const std::size_t found = position(file);
    return found == m_texts.size() ? nullptr : &m_texts[found];
}

std::size_t Sources::position(std::string_view file) const {
    const auto found = std::find_if(m_texts.begin(), m_texts.end(),
                                    [file](const SourceText& text) { return text.file() == file; });
    return static_cast<std::size_t>(found - m_texts.begin());
}

std::string_view Sources::line(std::string_view file, unsigned number) const {
    const SourceText* text = find(file);
    return text == nullptr ? std::string_view() : text->line(number);
}

}  // namespace vemo::lint
