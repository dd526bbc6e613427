#include "BaseVisitor.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <utility>

#include "Assert.h"
#include "BaseXmlLoader.h"

namespace vemo::xml {
namespace {

constexpr int BASE_BY_PREFIX = 0;

bool is_decimal_digit(char c) { return c >= '0' && c <= '9'; }

bool is_blank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// The base that the prefix of `text` selects. The C library would know it as well, but newer ones
/// also take "0b", which is no number here.
int base_of_prefix(const char* text) {
    if (text[0] != '0') {
        return 10;
    }
    return text[1] == 'x' || text[1] == 'X' ? 16 : 8;
}

/// Reads `text` with the C library's conversion `strto`, which saturates by itself at 64 bits.
template <typename Unsigned, typename Converter>
bool convert(const char* text, Unsigned* out, int base, Converter strto) {
    if (!is_decimal_digit(text[0])) {
        return false;
    }
    char* end = nullptr;
    const auto number = strto(text, &end, base == BASE_BY_PREFIX ? base_of_prefix(text) : base);
    constexpr auto LARGEST = std::numeric_limits<Unsigned>::max();
    *out = number > LARGEST ? LARGEST : static_cast<Unsigned>(number);
    return *end == '\0';
}

bool convert_by_prefix(const char* text, unsigned_hex* number) {
    return convert_to_unsigned(text, &number->value, BASE_BY_PREFIX);
}

bool convert_by_prefix(const char* text, unsigned64_hex* number) {
    return convert_to_unsigned64(text, &number->value, BASE_BY_PREFIX);
}

template <typename Number>
std::istream& extract(std::istream& stream, Number& number) {
    std::string word;
    stream >> word;
    if (!convert_by_prefix(word.c_str(), &number)) {
        stream.setstate(std::ios::failbit);
    }
    return stream;
}

// The reading of an attribute's text, one overload a type.

bool convert_attribute(const tinyxml2::XMLAttribute& attribute, std::string* value) {
    *value = attribute.Value();
    return true;
}

bool convert_attribute(const tinyxml2::XMLAttribute& attribute, unsigned* value) {
    return convert_to_unsigned(attribute.Value(), value, 10);
}

bool convert_attribute(const tinyxml2::XMLAttribute& attribute, int* value) {
    return attribute.QueryIntValue(value) == tinyxml2::XML_SUCCESS;
}

bool convert_attribute(const tinyxml2::XMLAttribute& attribute, float* value) {
    return attribute.QueryFloatValue(value) == tinyxml2::XML_SUCCESS;
}

bool convert_attribute(const tinyxml2::XMLAttribute& attribute, bool* value) {
    return attribute.QueryBoolValue(value) == tinyxml2::XML_SUCCESS;
}

/// What extraction from a stream of the text, up to its very end, would give: blanks before the
/// number are skipped, but a blank behind it is left over. The stream itself would cost more than
/// all the rest of a run.
template <typename Number>
bool convert_word(const tinyxml2::XMLAttribute& attribute, Number* number) {
    const char* text = attribute.Value();
    while (is_blank(*text)) {
        ++text;
    }
    return convert_by_prefix(text, number);
}

bool convert_attribute(const tinyxml2::XMLAttribute& attribute, unsigned_hex* value) {
    return convert_word(attribute, value);
}

bool convert_attribute(const tinyxml2::XMLAttribute& attribute, unsigned64_hex* value) {
    return convert_word(attribute, value);
}

}  // namespace

bool convert_to_unsigned(const char* text, std::uint32_t* out, int base) {
    return convert(text, out, base, std::strtoull);
}

bool convert_to_unsigned64(const char* text, std::uint64_t* out, int base) {
    return convert(text, out, base, std::strtoull);
}

std::istream& operator>>(std::istream& stream, unsigned_hex& number) {
    return extract(stream, number);
}

std::istream& operator>>(std::istream& stream, unsigned64_hex& number) {
    return extract(stream, number);
}

BaseVisitor::BaseVisitor(VisitorCallbacks* callbacks, bool debug)
    : m_debug(debug), m_callbacks(callbacks) {}

BaseVisitor::BaseVisitor(BaseVisitor* parent) : m_debug(false), m_callbacks(nullptr) {
    VEMO_ASSERT(parent != 0);
    m_debug = parent->m_debug;
    m_callbacks = parent->m_callbacks;
}

bool BaseVisitor::VisitEnter(const XMLDocument&) {
    debug("[xml] entering document\n");
    return !m_has_error;
}

bool BaseVisitor::VisitExit(const XMLDocument&) {
    debug("[xml] exiting document\n");
    return !m_has_error;
}

bool BaseVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute*) {
    if (m_has_error) {
        return false;
    }
    if (!m_elem_stack.empty()) {
        m_elem_stack_key += '/';
    }
    m_elem_stack.emplace_back(elem.Value());
    m_elem_stack_key += m_elem_stack.back();
    ++get_elem_stack_count_entry();
    if (m_debug) {
        debug("[xml] entering " + m_elem_stack_key + "\n");
    }
    return !m_has_error;
}

bool BaseVisitor::VisitExit(const XMLElement& elem) {
    if (m_has_error) {
        return false;
    }
    VEMO_ASSERT(m_elem_stack.size() > 0);  // NOLINT(readability-container-size-empty): its text
    VEMO_ASSERT(m_elem_stack.back() == elem.Value());
    if (m_debug) {
        debug("[xml] exiting " + m_elem_stack_key + "\n");
    }
    const std::size_t separator = m_elem_stack.size() > 1 ? 1 : 0;
    m_elem_stack_key.resize(m_elem_stack_key.size() - m_elem_stack.back().size() - separator);
    m_elem_stack.pop_back();
    return !m_has_error;
}

// All data is in attributes: what stands between elements is passed over.

bool BaseVisitor::Visit(const tinyxml2::XMLDeclaration&) { return !m_has_error; }

bool BaseVisitor::Visit(const tinyxml2::XMLText&) { return !m_has_error; }

bool BaseVisitor::Visit(const tinyxml2::XMLComment&) { return !m_has_error; }

bool BaseVisitor::Visit(const tinyxml2::XMLUnknown&) { return !m_has_error; }

const char* BaseVisitor::get_source_name() const {
    VEMO_ASSERT(m_callbacks != NULL);
    return m_callbacks->get_source_name();
}

void BaseVisitor::debug(const std::string& text) const {
    if (m_debug && m_callbacks != nullptr) {
        m_callbacks->debug(text);
    }
}

const std::string& BaseVisitor::get_elem_stack_key() const { return m_elem_stack_key; }

unsigned& BaseVisitor::get_elem_stack_count_entry() { return m_elem_counts[m_elem_stack_key]; }

unsigned BaseVisitor::get_element_count(unsigned n, ...) const {
    std::va_list names;
    va_start(names, n);
    const unsigned count = get_element_count_va(n, names);
    va_end(names);
    return count;
}

unsigned BaseVisitor::get_element_count_va(unsigned n, std::va_list names) const {
    std::string key;
    for (unsigned i = 0; i < n; ++i) {
        if (i > 0) {
            key += '/';
        }
        key += va_arg(names, const char*);
    }
    const auto entry = m_elem_counts.find(key);
    return entry == m_elem_counts.end() ? 0 : entry->second;
}

bool BaseVisitor::check_element_stack(unsigned n, ...) const {
    std::va_list names;
    va_start(names, n);
    const bool matches = check_element_stack_va(n, names);
    va_end(names);
    return matches;
}

bool BaseVisitor::check_element_stack_va(unsigned n, std::va_list names) const {
    return m_elem_stack.size() == std::size_t{n} + 1 && is_lowest_on_stack(n, names);
}

bool BaseVisitor::check_element_stack_with_top(unsigned n, ...) const {
    std::va_list names;
    va_start(names, n);
    const bool matches = check_element_stack_with_top_va(n, names);
    va_end(names);
    return matches;
}

bool BaseVisitor::check_element_stack_with_top_va(unsigned n, std::va_list names) const {
    return m_elem_stack.size() == n && is_lowest_on_stack(n, names);
}

/// Whether the lowest `n` names of the stack, which holds that many, are `names`.
bool BaseVisitor::is_lowest_on_stack(unsigned n, std::va_list names) const {
    for (unsigned i = 0; i < n; ++i) {
        const char* elem_name = va_arg(names, const char*);
        VEMO_ASSERT(elem_name != 0);
        if (m_elem_stack[i] != elem_name) {
            return false;
        }
    }
    return true;
}

bool BaseVisitor::attribute_exists(const XMLElement& elem, const char* name) {
    return elem.FindAttribute(name) != nullptr;
}

bool BaseVisitor::report_error(const XMLNode& node, const std::string& msg) {
    report_located_error(node.GetLineNum(), msg);
    return false;
}

bool BaseVisitor::report_error(const XMLAttribute& attribute, const std::string& msg) {
    report_located_error(attribute.GetLineNum(), msg);
    return false;
}

/// `line` 0 stands for none.
void BaseVisitor::report_located_error(int line, const std::string& msg) {
    m_has_error = true;
    if (m_callbacks == nullptr) {
        return;
    }
    std::string text = std::string("Error in '") + get_source_name() + "'";
    if (line > 0) {
        text += ", line " + std::to_string(line);
    }
    text += "\n";
    if (!msg.empty()) {
        text += msg + "\n";
    }
    m_callbacks->report_error(text);
}

bool BaseVisitor::report_error(const std::string& msg) {
    m_has_error = true;
    if (m_callbacks != nullptr) {
        m_callbacks->report_error(std::string("Error in '") + get_source_name() + "':\n"
                                  + (msg.empty() ? msg : msg + "\n"));
    }
    return false;
}

bool BaseVisitor::report_warning(const std::string& msg) {
    if (m_callbacks != nullptr) {
        m_callbacks->report_warning(std::string("Warning in '") + get_source_name() + "':\n"
                                    + (msg.empty() ? msg : msg + "\n"));
    }
    return true;
}

bool BaseVisitor::report_unexpected_elem(const XMLElement& elem, const std::string& msg) {
    const std::string text = std::string("Unexpected element '") + elem.Value() + "'.";
    return report_error(elem, msg.empty() ? text : text + "\n" + msg);
}

bool BaseVisitor::report_unexpected_elem_stack(const XMLElement& elem, unsigned n, ...) {
    std::va_list names;
    va_start(names, n);
    const bool matches = check_element_stack_va(n, names);
    va_end(names);
    return matches || report_unexpected_elem(elem, "");
}

bool BaseVisitor::report_unexpected_elem_stack_with_top(const XMLElement& elem, unsigned n, ...) {
    std::va_list names;
    va_start(names, n);
    const bool matches = check_element_stack_with_top_va(n, names);
    va_end(names);
    return matches || report_unexpected_elem(elem, "");
}

bool BaseVisitor::report_unexpected_elem_count_error(const XMLElement& elem, unsigned min_count,
                                                     unsigned max_count) {
    VEMO_ASSERT(min_count <= max_count);
    if (max_count == 0) {
        return report_unexpected_elem(elem, "");
    }
    std::string text = std::string("Expected element <") + elem.Value() + "> to appear ";
    if (min_count != max_count) {
        text += std::to_string(min_count) + "-" + std::to_string(max_count) + " times.";
    } else if (max_count == 1) {
        text += "exactly once.";
    } else {
        text += "exactly " + std::to_string(max_count) + " times.";
    }
    return report_error(elem, text);
}

bool BaseVisitor::report_unexpected_elem_count(const XMLElement& elem, unsigned min_count,
                                               unsigned max_count, unsigned n, ...) {
    VEMO_ASSERT(min_count <= max_count);
    std::va_list names;
    va_start(names, n);
    const unsigned found = get_element_count_va(n, names);
    va_end(names);
    return (min_count <= found && found <= max_count)
           || report_unexpected_elem_count_error(elem, min_count, max_count);
}

bool BaseVisitor::report_unexpected_elem_count(const XMLElement& elem, unsigned count, unsigned n,
                                               ...) {
    std::va_list names;
    va_start(names, n);
    const unsigned found = get_element_count_va(n, names);
    va_end(names);
    return found == count || report_unexpected_elem_count_error(elem, count, count);
}

bool BaseVisitor::report_unexpected_elem_stack_count(const XMLElement& elem, unsigned min_count,
                                                     unsigned max_count) {
    VEMO_ASSERT(min_count <= max_count);
    const unsigned found = get_elem_stack_count_entry();
    return (min_count <= found && found <= max_count)
           || report_unexpected_elem_count_error(elem, min_count, max_count);
}

bool BaseVisitor::report_unexpected_elem_stack_count(const XMLElement& elem, unsigned count) {
    return report_unexpected_elem_stack_count(elem, count, count);
}

bool BaseVisitor::report_missing_attr(const XMLElement& elem, const std::string& attr,
                                      const std::string& msg) {
    const std::string text = "Expected attribute '" + attr + "' on element '" + elem.Value() + "'.";
    return report_error(elem, msg.empty() ? text : text + "\n" + msg);
}

bool BaseVisitor::report_attr_type_error(const XMLElement& elem, const std::string& attr,
                                         const std::string& msg) {
    const std::string text =
        "Incorrect type for attribute '" + attr + "' on element '" + elem.Value() + "'.";
    return report_attr_error(elem, attr, msg.empty() ? text : text + "\n" + msg);
}

bool BaseVisitor::report_attr_error(const XMLElement& elem, const std::string& attr,
                                    const std::string& msg) {
    const XMLAttribute* attribute = elem.FindAttribute(attr.c_str());
    return attribute == nullptr ? report_error(elem, msg) : report_error(*attribute, msg);
}

template <typename IsAllowed>
bool BaseVisitor::report_attrs_unless(const XMLElement& elem, IsAllowed is_allowed) {
    for (const XMLAttribute* attribute = elem.FirstAttribute(); attribute != nullptr;
         attribute = attribute->Next()) {
        if (!is_allowed(attribute->Name())) {
            report_error(*attribute,
                         std::string("Unexpected attribute '") + attribute->Name() + "'.");
        }
    }
    return !m_has_error;
}

bool BaseVisitor::report_unexpected_attrs(const XMLElement& elem,
                                          const std::vector<std::string>& allowed) {
    return report_attrs_unless(elem, [&allowed](const char* name) {
        return std::find(allowed.begin(), allowed.end(), name) != allowed.end();
    });
}

bool BaseVisitor::report_unexpected_attrs(const XMLElement& elem, unsigned n, ...) {
    std::vector<const char*> allowed(n);
    std::va_list names;
    va_start(names, n);
    for (const char*& name : allowed) {
        name = va_arg(names, const char*);
    }
    va_end(names);
    return report_unexpected_attrs(elem, n, allowed.data());
}

bool BaseVisitor::report_unexpected_attrs(const XMLElement& elem, unsigned n,
                                          const char** allowed) {
    return report_attrs_unless(elem, [n, allowed](const char* name) {
        return std::any_of(allowed, allowed + n, [name](const char* allowed_name) {
            return std::strcmp(name, allowed_name) == 0;
        });
    });
}

template <typename T>
bool BaseVisitor::query_attribute(const XMLElement& elem, const char* name, T* value, bool report,
                                  bool required) {
    const XMLAttribute* attribute = elem.FindAttribute(name);
    if (attribute == nullptr) {
        return report && required && report_missing_attr(elem, name, "");
    }
    T converted{};
    if (!convert_attribute(*attribute, &converted)) {
        return report && report_attr_type_error(elem, name, "");
    }
    *value = std::move(converted);
    return true;
}

template bool BaseVisitor::query_attribute(const XMLElement&, const char*, std::string*, bool,
                                           bool);
template bool BaseVisitor::query_attribute(const XMLElement&, const char*, unsigned*, bool, bool);
template bool BaseVisitor::query_attribute(const XMLElement&, const char*, int*, bool, bool);
template bool BaseVisitor::query_attribute(const XMLElement&, const char*, float*, bool, bool);
template bool BaseVisitor::query_attribute(const XMLElement&, const char*, bool*, bool, bool);
template bool BaseVisitor::query_attribute(const XMLElement&, const char*, unsigned_hex*, bool,
                                           bool);
template bool BaseVisitor::query_attribute(const XMLElement&, const char*, unsigned64_hex*, bool,
                                           bool);

bool BaseVisitor::walk_with(const XMLElement& elem, BaseVisitor* child) {
    if (!elem.Accept(child)) {
        m_has_error = true;
    }
    return !m_has_error;
}

}  // namespace vemo::xml
