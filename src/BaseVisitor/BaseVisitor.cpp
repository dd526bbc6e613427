#include "BaseVisitor/BaseVisitor.h"

#include <algorithm>

#include "Base/Assert.h"

namespace vemo::xml {
namespace {

// The reading of an attribute's text, one overload a type. `*value` is left alone on failure.

bool convert_attribute(const tinyxml2::XMLAttribute& attribute, std::string* value) {
    *value = attribute.Value();
    return true;
}

bool convert_attribute(const tinyxml2::XMLAttribute& attribute, const char** value) {
    *value = attribute.Value();
    return true;
}

bool convert_attribute(const tinyxml2::XMLAttribute& attribute, unsigned* value) {
    unsigned number = 0;
    if (!convert_to_unsigned(attribute.Value(), &number, 10)) {
        return false;
    }
    *value = number;
    return true;
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

template <typename HexNumber>
bool convert_attribute(const tinyxml2::XMLAttribute& attribute, HexNumber* value) {
    HexNumber number;
    if (!convert_word(attribute.Value(), &number)) {
        return false;
    }
    *value = number;
    return true;
}

// A text that each type reads.

const char* example(const std::string*) { return "x"; }
const char* example(const char* const*) { return "x"; }
const char* example(const bool*) { return "true"; }
template <typename Number>
const char* example(const Number*) {
    return "1";
}

// How each type is read.

Syntax syntax_of(const unsigned*) { return Syntax::Decimal; }
Syntax syntax_of(const unsigned_hex*) { return Syntax::Prefixed; }
Syntax syntax_of(const unsigned64_hex*) { return Syntax::Wide; }
Syntax syntax_of(const float*) { return Syntax::Float; }
Syntax syntax_of(const bool*) { return Syntax::Boolean; }
template <typename Text>
Syntax syntax_of(const Text*) {
    return Syntax::Text;
}

}  // namespace

BaseVisitor::BaseVisitor(VisitorCallbacks* callbacks, bool debug)
    : m_debug(debug), m_callbacks(callbacks) {}

BaseVisitor::BaseVisitor(BaseVisitor* parent) : BaseVisitor(nullptr, false) {
    VEMO_ASSERT(parent != 0);
    m_debug = parent->m_debug;
    m_callbacks = parent->m_callbacks;
    m_report_sink = parent->m_report_sink;
}

bool BaseVisitor::VisitEnter(const XMLDocument&) {
    debug("[xml] entering document\n");
    return !m_has_error;
}

bool BaseVisitor::VisitExit(const XMLDocument&) {
    debug("[xml] exiting document\n");
    return !m_has_error;
}

void BaseVisitor::trace(const char* action) const {
    debug(std::string("[xml] ") + action + " " + get_elem_stack_key() + "\n");
}

// All data is in attributes: text between elements is ignored.

bool BaseVisitor::Visit(const tinyxml2::XMLDeclaration&) { return !m_has_error; }

bool BaseVisitor::Visit(const tinyxml2::XMLText&) { return !m_has_error; }

bool BaseVisitor::Visit(const tinyxml2::XMLComment&) { return !m_has_error; }

bool BaseVisitor::Visit(const tinyxml2::XMLUnknown&) { return !m_has_error; }

const char* BaseVisitor::get_source_name() const {
    VEMO_ASSERT(m_callbacks != NULL);
    const char* name = m_callbacks->get_source_name();
    return name == nullptr ? "" : name;
}

void BaseVisitor::debug(const std::string& text) const {
    if (m_debug && m_callbacks != nullptr) {
        m_callbacks->debug(text);
    }
}

std::string BaseVisitor::get_elem_stack_key() const { return m_elem_stack.key(); }

unsigned& BaseVisitor::get_elem_stack_count_entry() { return m_elem_stack.count(); }

unsigned BaseVisitor::get_element_count(unsigned n, ...) const {
    std::va_list names;
    va_start(names, n);
    const unsigned count = get_element_count_va(n, names);
    va_end(names);
    return count;
}

unsigned BaseVisitor::get_element_count_va(unsigned n, std::va_list names) const {
    return m_elem_stack.count_of(n, names);
}

bool BaseVisitor::check_element_stack(unsigned n, ...) const {
    std::va_list names;
    va_start(names, n);
    const bool matches = check_element_stack_va(n, names);
    va_end(names);
    return matches;
}

bool BaseVisitor::check_element_stack_va(unsigned n, std::va_list names) const {
    return m_elem_stack.size() == std::size_t{n} + 1 && m_elem_stack.begins_with(n, names);
}

bool BaseVisitor::check_element_stack_with_top(unsigned n, ...) const {
    std::va_list names;
    va_start(names, n);
    const bool matches = check_element_stack_with_top_va(n, names);
    va_end(names);
    return matches;
}

bool BaseVisitor::check_element_stack_with_top_va(unsigned n, std::va_list names) const {
    return m_elem_stack.size() == n && m_elem_stack.begins_with(n, names);
}

const tinyxml2::XMLAttribute* BaseVisitor::find_attribute(const XMLElement& elem,
                                                          const char* name) {
    const XMLAttribute* attribute = elem.FirstAttribute();
    while (attribute != nullptr && !equal_names(attribute->Name(), name)) {
        attribute = attribute->Next();
    }
    return attribute;
}

bool BaseVisitor::attribute_exists(const XMLElement& elem, const char* name) {
    return find_attribute(elem, name) != nullptr;
}

bool BaseVisitor::report_error(const XMLNode& node, const std::string& msg,
                               const ReportDetails& details) {
    hand_out("invalid-element", node.ToElement(), "", msg, details);
    return write_located_error(node.GetLineNum(), msg);
}

bool BaseVisitor::report_error(const XMLAttribute& attribute, const std::string& msg) {
    hand_out("invalid-attribute", nullptr, attribute.Name(), msg, {});
    return write_located_error(attribute.GetLineNum(), msg);
}

bool BaseVisitor::report_error(const std::string& msg, const ReportDetails& details) {
    hand_out("invalid-document", details.elem, "", msg, details);
    m_has_error = true;
    if (m_callbacks != nullptr) {
        m_callbacks->report_error(std::string("Error in '") + get_source_name() + "':\n"
                                  + (msg.empty() ? msg : msg + "\n"));
    }
    return false;
}

bool BaseVisitor::write_located_error(int line, const std::string& msg) {
    m_has_error = true;
    if (m_callbacks == nullptr) {
        return false;
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
    return false;
}

void BaseVisitor::hand_out(const char* rule, const XMLElement* elem, const std::string& attribute,
                           const std::string& msg, const ReportDetails& details) {
    if (m_report_sink != nullptr) {
        m_report_sink->report({details.rule == nullptr ? rule : details.rule, msg, elem,
                               details.attribute == nullptr ? attribute : details.attribute,
                               details.attribute == nullptr, details.accepted,
                               details.parent == nullptr ? "" : details.parent,
                               details.child == nullptr ? "" : details.child, details.pairs});
    }
}

bool BaseVisitor::report_warning(const std::string& msg) {
    if (m_callbacks != nullptr) {
        m_callbacks->report_warning(std::string("Warning in '") + get_source_name() + "':\n"
                                    + (msg.empty() ? msg : msg + "\n"));
    }
    return true;
}

bool BaseVisitor::report_unexpected_elem(const XMLElement& elem, const std::string& msg,
                                         const ReportDetails& details) {
    const std::string text = std::string("Unexpected element '") + elem.Value() + "'.";
    ReportDetails own_details = details;
    own_details.rule = "unexpected-element";
    return report_error(elem, msg.empty() ? text : text + "\n" + msg, own_details);
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
                                                     unsigned max_count,
                                                     const ReportDetails& details) {
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
    return report_error(elem, text, details);
}

bool BaseVisitor::report_unexpected_elem_count(const XMLElement& elem, unsigned min_count,
                                               unsigned max_count, unsigned n, ...) {
    VEMO_ASSERT(min_count <= max_count);
    std::va_list names;
    va_start(names, n);
    const bool is_expected = report_unexpected_path_count(elem, min_count, max_count, n, names);
    va_end(names);
    return is_expected;
}

bool BaseVisitor::report_unexpected_elem_count(const XMLElement& elem, unsigned count, unsigned n,
                                               ...) {
    std::va_list names;
    va_start(names, n);
    const bool is_expected = report_unexpected_path_count(elem, count, count, n, names);
    va_end(names);
    return is_expected;
}

bool BaseVisitor::report_unexpected_path_count(const XMLElement& elem, unsigned min_count,
                                               unsigned max_count, unsigned n, std::va_list names) {
    std::va_list names_again;
    va_copy(names_again, names);
    const unsigned found = get_element_count_va(n, names);
    bool is_expected = min_count <= found && found <= max_count;
    if (!is_expected) {
        const char* parent = elem.Value();
        const char* counted = parent;
        for (unsigned i = 0; i < n; ++i) {
            parent = counted;
            counted = va_arg(names_again, const char*);
        }
        is_expected = report_unexpected_elem_count_error(
            elem, min_count, max_count,
            {found < min_count ? "missing-element" : "repeated-element",
             {},
             counted,
             nullptr,
             {},
             nullptr,
             equal_names(parent, elem.Value()) ? nullptr : parent});
    }
    va_end(names_again);
    return is_expected;
}

bool BaseVisitor::report_unexpected_elem_stack_count(const XMLElement& elem, unsigned min_count,
                                                     unsigned max_count) {
    VEMO_ASSERT(min_count <= max_count);
    const unsigned found = get_elem_stack_count_entry();
    return (min_count <= found && found <= max_count)
           || report_unexpected_elem_count_error(elem, min_count, max_count, {"repeated-element"});
}

bool BaseVisitor::report_unexpected_elem_stack_count(const XMLElement& elem, unsigned count) {
    return report_unexpected_elem_stack_count(elem, count, count);
}

bool BaseVisitor::report_missing_attr(const XMLElement& elem, const std::string& attr,
                                      const std::string& msg, const ReportDetails& details) {
    const std::string text = "Expected attribute '" + attr + "' on element '" + elem.Value() + "'.";
    const std::string whole_text = msg.empty() ? text : text + "\n" + msg;
    hand_out("missing-attribute", &elem, attr, whole_text, details);
    return write_located_error(elem.GetLineNum(), whole_text);
}

bool BaseVisitor::report_attr_type_error(const XMLElement& elem, const std::string& attr,
                                         const std::string& msg, const ReportDetails& details) {
    const std::string text =
        "Incorrect type for attribute '" + attr + "' on element '" + elem.Value() + "'.";
    ReportDetails own_details = details;
    own_details.rule = "wrong-type";
    return report_attr_error(elem, attr, msg.empty() ? text : text + "\n" + msg, own_details);
}

bool BaseVisitor::report_attr_error(const XMLElement& elem, const std::string& attr,
                                    const std::string& msg, const ReportDetails& details) {
    hand_out("invalid-attribute", &elem, attr, msg, details);
    const XMLAttribute* attribute = find_attribute(elem, attr.c_str());
    return write_located_error(attribute == nullptr ? elem.GetLineNum() : attribute->GetLineNum(),
                               msg);
}

void BaseVisitor::report_unexpected_attr(const XMLElement& elem, const XMLAttribute& attribute,
                                         std::vector<std::string> allowed) {
    const std::string text = std::string("Unexpected attribute '") + attribute.Name() + "'.";
    hand_out("unknown-attribute", &elem, attribute.Name(), text, {nullptr, std::move(allowed)});
    write_located_error(attribute.GetLineNum(), text);
}

bool BaseVisitor::report_unexpected_attrs(const XMLElement& elem,
                                          const std::vector<std::string>& allowed) {
    return report_attrs_unless(elem, allowed, [&allowed](const XMLAttribute& attribute) {
        return std::find(allowed.begin(), allowed.end(), attribute.Name()) != allowed.end();
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
                                          const char* const* allowed) {
    return report_attrs_unless(
        elem, ArrayView<const char*>(allowed, n), [n, allowed](const XMLAttribute& attribute) {
            const char* name = attribute.Name();
            return std::any_of(allowed, allowed + n, [name](const char* allowed_name) {
                return equal_names(name, allowed_name);
            });
        });
}

template <typename T>
bool BaseVisitor::query_attribute(const XMLElement& elem, const char* name, T* value, bool report,
                                  bool required) {
    return query_attribute(elem, {name, find_attribute(elem, name)}, value, report, required);
}

template <typename T>
bool BaseVisitor::query_attribute(const XMLElement& elem, const FoundAttribute& found, T* value,
                                  bool report, bool required) {
    if (found.attribute == nullptr) {
        return report && required
               && report_missing_attr(elem, found.name, "", {nullptr, {example(value)}});
    }
    if (!convert_attribute(*found.attribute, value)) {
        return report && report_attr_type_error(elem, found.name, "", {nullptr, {example(value)}});
    }
    hand_out_syntax(elem, found.name, syntax_of(value));
    return true;
}

// The types of attribute that there are. (A type cannot be in parentheses.)
// NOLINTBEGIN(bugprone-macro-parentheses)
#define VEMO_INSTANTIATE_QUERY_ATTRIBUTE(T)                                                        \
    template bool BaseVisitor::query_attribute(const XMLElement&, const char*, T*, bool, bool);    \
    template bool BaseVisitor::query_attribute(const XMLElement&, const FoundAttribute&, T*, bool, \
                                               bool)
VEMO_INSTANTIATE_QUERY_ATTRIBUTE(std::string);
VEMO_INSTANTIATE_QUERY_ATTRIBUTE(const char*);
VEMO_INSTANTIATE_QUERY_ATTRIBUTE(unsigned);
VEMO_INSTANTIATE_QUERY_ATTRIBUTE(int);
VEMO_INSTANTIATE_QUERY_ATTRIBUTE(float);
VEMO_INSTANTIATE_QUERY_ATTRIBUTE(bool);
VEMO_INSTANTIATE_QUERY_ATTRIBUTE(unsigned_hex);
VEMO_INSTANTIATE_QUERY_ATTRIBUTE(unsigned64_hex);
#undef VEMO_INSTANTIATE_QUERY_ATTRIBUTE
// NOLINTEND(bugprone-macro-parentheses)

bool BaseVisitor::walk_with(const XMLElement& elem, BaseVisitor* child) {
    if (!elem.Accept(child)) {
        m_has_error = true;
    }
    return !m_has_error;
}

}  // namespace vemo::xml
