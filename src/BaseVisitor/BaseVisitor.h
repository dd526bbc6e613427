#pragma once

#include <algorithm>
#include <cstdarg>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <tinyxml2.h>

#include "Base/ArrayView.h"
#include "Base/Assert.h"
#include "BaseVisitor/ElementStack.h"
#include "BaseVisitor/FoundAttributes.h"
#include "BaseVisitor/Report.h"
#include "BaseVisitor/UnsignedNumber.h"
#include "BaseVisitor/VisitorCallbacks.h"

namespace vemo::xml {

/// Base of every schema reader: a visitor that the XML library walks over a document, or over a
/// subtree that another visitor has handed to it.
///
/// It keeps the stack of open elements and the number of entries of each element path, and offers
/// the checks, reports and typed attribute reads from which a reader is written. The first reported
/// error sets `m_has_error`, and from then on every callback returns false, which ends the walk.
///
/// The document must outlive the visitor, which keeps pointers to the names of elements.
///
/// Operations with `n` and an ellipsis take `n` names as `const char*`.
class BaseVisitor : public tinyxml2::XMLVisitor {
public:
    using XMLAttribute = tinyxml2::XMLAttribute;
    using XMLDocument = tinyxml2::XMLDocument;
    using XMLElement = tinyxml2::XMLElement;
    using XMLNode = tinyxml2::XMLNode;

    /// A root visitor. `callbacks` is not owned and may be null: then nothing is written anywhere,
    /// but errors still end the walk.
    BaseVisitor(VisitorCallbacks* callbacks, bool debug);

    /// A child visitor: shares callbacks and debug switch of `parent` (not null), nothing else. Its
    /// stack and counts start empty, with the element it is handed as their root.
    explicit BaseVisitor(BaseVisitor* parent);

    /// Hands out the errors of this visitor and of its children as data, too. `sink` is not owned;
    /// null for none. To be called before the walk.
    void set_report_sink(ReportSink* sink) { m_report_sink = sink; }

    BaseVisitor(const BaseVisitor&) = delete;
    BaseVisitor& operator=(const BaseVisitor&) = delete;
    ~BaseVisitor() override = default;

    bool VisitEnter(const XMLDocument& doc) override;
    bool VisitExit(const XMLDocument& doc) override;

    // Every visitor of a walk calls these two for every element.

    bool VisitEnter(const XMLElement& elem, const XMLAttribute*) override {
        if (m_has_error) {
            return false;
        }
        m_elem_stack.push(elem.Value());
        if (m_report_sink != nullptr) {
            m_report_sink->enter(elem);
        }
        if (m_debug) {
            trace("entering");
        }
        return true;
    }

    bool VisitExit(const XMLElement& elem) override {
        if (m_has_error) {
            return false;
        }
        VEMO_ASSERT(m_elem_stack.size() > 0);  // NOLINT(readability-container-size-empty): its text
        VEMO_ASSERT(m_elem_stack.back() == elem.Value());
        if (m_debug) {
            trace("exiting");
        }
        m_elem_stack.pop();
        return true;
    }

    bool Visit(const tinyxml2::XMLDeclaration& declaration) override;
    bool Visit(const tinyxml2::XMLText& text) override;
    bool Visit(const tinyxml2::XMLComment& comment) override;
    bool Visit(const tinyxml2::XMLUnknown& unknown) override;

    /// What the callbacks name the document; "" when they have no name for it. Needs callbacks.
    const char* get_source_name() const;

    /// Passes `text` on to the callbacks when the debug switch is on.
    void debug(const std::string& text) const;

    /// The element path key: the names on the stack joined with "/", outermost first.
    std::string get_elem_stack_key() const;

    /// The count of the current path. The reference holds until the next element is entered.
    unsigned& get_elem_stack_count_entry();

    /// How many elements of a path were entered. Its key is the given names joined with "/".
    unsigned get_element_count(unsigned n, ...) const;
    unsigned get_element_count_va(unsigned n, std::va_list names) const;

    /// Whether the given names, outermost first, are exactly the ancestors of the current element.
    bool check_element_stack(unsigned n, ...) const;
    bool check_element_stack_va(unsigned n, std::va_list names) const;

    /// Whether the given names are exactly the stack, the current element included.
    bool check_element_stack_with_top(unsigned n, ...) const;
    bool check_element_stack_with_top_va(unsigned n, std::va_list names) const;

    static bool attribute_exists(const XMLElement& elem, const char* name);

    // Reports. Each returns false after an error, having set `m_has_error`, and true when there was
    // nothing to report. The texts carry the line of the node or attribute where one is known. The
    // details go to the report sink alone.

    bool report_error(const XMLNode& node, const std::string& msg,
                      const ReportDetails& details = {});
    bool report_error(const XMLAttribute& attribute, const std::string& msg);
    bool report_error(const std::string& msg, const ReportDetails& details = {});

    /// A warning is no error: always true.
    bool report_warning(const std::string& msg);

    bool report_unexpected_elem(const XMLElement& elem, const std::string& msg,
                                const ReportDetails& details = {});

    /// Report the element as unexpected unless check_element_stack(n, ...) holds; in the second
    /// form, check_element_stack_with_top(n, ...).
    bool report_unexpected_elem_stack(const XMLElement& elem, unsigned n, ...);
    bool report_unexpected_elem_stack_with_top(const XMLElement& elem, unsigned n, ...);

    /// Reports that `elem` does not appear `min_count` to `max_count` times.
    bool report_unexpected_elem_count_error(const XMLElement& elem, unsigned min_count,
                                            unsigned max_count, const ReportDetails& details = {});

    /// Check the number of elements of the given path. The report names `elem`, which is the parent
    /// where a reader counts children: the wording is meant.
    bool report_unexpected_elem_count(const XMLElement& elem, unsigned min_count,
                                      unsigned max_count, unsigned n, ...);
    bool report_unexpected_elem_count(const XMLElement& elem, unsigned count, unsigned n, ...);

    /// Check the number of elements of the current path.
    bool report_unexpected_elem_stack_count(const XMLElement& elem, unsigned min_count,
                                            unsigned max_count);
    bool report_unexpected_elem_stack_count(const XMLElement& elem, unsigned count);

    /// Reported at the element.
    bool report_missing_attr(const XMLElement& elem, const std::string& attr,
                             const std::string& msg, const ReportDetails& details = {});

    /// Reported at the attribute, or at the element when it has no such attribute.
    bool report_attr_type_error(const XMLElement& elem, const std::string& attr,
                                const std::string& msg, const ReportDetails& details = {});
    bool report_attr_error(const XMLElement& elem, const std::string& attr, const std::string& msg,
                           const ReportDetails& details = {});

    /// Report every attribute that is not allowed, each with a text of its own. The result is
    /// false as well when an earlier error had already set `m_has_error`.
    bool report_unexpected_attrs(const XMLElement& elem, const std::vector<std::string>& allowed);
    bool report_unexpected_attrs(const XMLElement& elem, unsigned n, ...);
    bool report_unexpected_attrs(const XMLElement& elem, unsigned n, const char* const* allowed);

    /// The same for those that are not in the table of `found`, which has been made of `elem`.
    template <typename Row, std::size_t N>
    bool report_unexpected_attrs(const XMLElement& elem, const FoundAttributes<Row, N>& found) {
        if (!found.has_others()) {
            return !m_has_error;
        }
        return report_attrs_unless(elem, found.names(), [&found](const XMLAttribute& attribute) {
            return found.is_in_table(attribute.Name());
        });
    }

    // Flags of query_attribute.
    static constexpr bool REPORT = true;
    static constexpr bool REQUIRED = true;
    static constexpr bool OPTIONAL = false;

    /// Reads an attribute into `*value`. True when it was read; false when it is absent or its text
    /// is no T. With `report` an ill-typed attribute is reported, and a missing one if `required`.
    ///
    /// T is one of std::string, const char* (the text in the document), unsigned
    /// (decimal), int, float, bool (the last three as the XML library reads them), unsigned_hex and
    /// unsigned64_hex (whitespace before the number is skipped, whitespace after it is an error).
    template <typename T>
    bool query_attribute(const XMLElement& elem, const char* name, T* value, bool report,
                         bool required);

    /// query_attribute for an attribute of `elem` that has been looked up.
    template <typename T>
    bool query_attribute(const XMLElement& elem, const FoundAttribute& found, T* value, bool report,
                         bool required);

protected:
    /// Whether ReportDetails are used.
    bool has_report_sink() const { return m_report_sink != nullptr; }

    bool is_tracing() const { return m_debug; }

    /// Name of the element that has been entered last and not been left.
    std::string_view current_name() const { return m_elem_stack.back(); }

    /// Number of elements entered and not left: 0 before the walk, 1 in the element it starts on.
    std::size_t depth() const { return m_elem_stack.size(); }

    /// Tells the report sink, if there is one, how an attribute has been read.
    void hand_out_syntax(const XMLElement& elem, const char* name, Syntax syntax) {
        if (m_report_sink != nullptr && syntax != Syntax::Text) {
            m_report_sink->read_number(elem, name, syntax);
        }
    }

    /// Passes an error on to the report sink, if there is one. `rule` counts unless the details
    /// name another.
    void hand_out(const char* rule, const XMLElement* elem, const std::string& attribute,
                  const std::string& msg, const ReportDetails& details);

    /// Lets `child` walk the subtree of `elem` and takes over its outcome. True when no error is
    /// set.
    bool walk_with(const XMLElement& elem, BaseVisitor* child);

    /// A row of a visitor's table of the elements that it knows.
    template <typename Visitor>
    struct ElementHandler {
        const char* name;
        bool (Visitor::*visit)(const XMLElement& elem);
    };

    /// The row of the current element, or null if the table has none.
    template <typename Visitor, std::size_t N>
    const ElementHandler<Visitor>* find_handler(
        const ElementHandler<Visitor> (&handlers)[N]) const {
        const auto* found = std::find_if(
            handlers, handlers + N,
            [name = current_name()](const auto& handler) { return name == handler.name; });
        return found == handlers + N ? nullptr : found;
    }

    /// Calls the handler of the current element; reports an element that the table does not have.
    template <typename Visitor, std::size_t N>
    static bool dispatch(Visitor* visitor, const XMLElement& elem,
                         const ElementHandler<Visitor> (&handlers)[N]) {
        if (const auto* handler = visitor->find_handler(handlers)) {
            return (visitor->*handler->visit)(elem);
        }
        return visitor->report_unexpected_elem(elem, "", {nullptr, names_of(handlers)});
    }

    /// The names in a table of rows.
    template <typename Rows>
    static std::vector<std::string> names_of(const Rows& rows) {
        std::vector<std::string> names;
        for (const auto& row : rows) {
            names.emplace_back(row.name);
        }
        return names;
    }

    /// Hands the subtree of `elem` to a new Child(this, model). Always false: the child has walked
    /// the subtree, this visitor must not walk it again.
    template <typename Child, typename Model>
    bool delegate(const XMLElement& elem, Model* model) {
        Child child(this, model);
        walk_with(elem, &child);
        return false;
    }

    bool m_has_error = false;

private:
    static const XMLAttribute* find_attribute(const XMLElement& elem, const char* name);

    template <typename AllowedNames, typename IsAllowed>
    bool report_attrs_unless(const XMLElement& elem, const AllowedNames& allowed,
                             IsAllowed is_allowed) {
        for (const XMLAttribute* attribute = elem.FirstAttribute(); attribute != nullptr;
             attribute = attribute->Next()) {
            if (!is_allowed(*attribute)) {
                report_unexpected_attr(elem, *attribute, {allowed.begin(), allowed.end()});
            }
        }
        return !m_has_error;
    }
    void report_unexpected_attr(const XMLElement& elem, const XMLAttribute& attribute,
                                std::vector<std::string> allowed);

    bool report_unexpected_path_count(const XMLElement& elem, unsigned min_count,
                                      unsigned max_count, unsigned n, std::va_list names);

    /// Writes the text of an error in `line`, or in no line if that is 0.
    bool write_located_error(int line, const std::string& msg);
    void trace(const char* action) const;

    ElementStack m_elem_stack;  // its names live in the document
    bool m_debug;
    VisitorCallbacks* m_callbacks;        // not owned, may be null
    ReportSink* m_report_sink = nullptr;  // not owned
};

}  // namespace vemo::xml
