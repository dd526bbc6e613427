// Repairs of missing, unknown and wrong attributes.

#include "BoardLint/FileCheck.h"

#include <algorithm>
#include <string_view>

#include "BoardLint/Elements.h"
#include "BoardLint/NearName.h"

namespace vemo::lint {
namespace {

using tinyxml2::XMLDocument;
using tinyxml2::XMLElement;

// If an element has more unknown attributes, they are removed without a closer look.
constexpr std::size_t MAX_RENAMED_ATTRIBUTES = 16;

std::string trimmed(const std::string& text) {
    constexpr const char* WHITESPACE = " \t\r\n\v\f";
    const std::size_t begin = text.find_first_not_of(WHITESPACE);
    return begin == std::string::npos
               ? ""
               : text.substr(begin, text.find_last_not_of(WHITESPACE) - begin + 1);
}

bool is_in_same_place(const XMLElement& a, const XMLElement& b) {
    return std::string_view(a.Name()) == b.Name() && parent_name(a) == parent_name(b);
}

}  // namespace

bool FileCheck::repair_unknown_attribute() {
    XMLElement* elem = editable(m_mistake.elem);
    if (m_found_along.size() > MAX_RENAMED_ATTRIBUTES) {
        for (const Mistake& mistake : m_found_along) {
            m_mistake = mistake;
            if (m_findings.size() < m_max_findings) {
                add_finding();
            }
        }
        return attempt([this, elem] {
            for (const Mistake& mistake : m_found_along) {
                m_draft.remove_attribute(elem, mistake.attribute);
            }
        });
    }
    const std::string attribute = m_mistake.attribute;
    const std::vector<std::string> near = near_names(attribute, m_mistake.accepted);
    for (const std::string& name : near) {
        // Its absence may have been reported first.
        const auto added = m_added.find({elem, name});
        if (added != m_added.end() && attempt([&] {
                m_draft.remove_attribute(elem, name);
                m_draft.rename_attribute(elem, attribute, name);
            })) {
            if (added->second < m_findings.size()) {
                Finding& finding = m_findings[added->second];
                finding.suggestion = name;
                const Location place = locate(*elem, name, SourceText::Extent::Name);
                if (place.line == finding.location.line) {
                    finding.location = place;
                } else {
                    finding.notes.push_back({place, "'" + attribute + "' is here"});
                }
            }
            return true;
        }
    }
    add_finding();
    // A name that leaves the element without another one is not it, if there is a better one.
    for (const bool is_strict : {true, false}) {
        for (const std::string& name : near) {
            if (!has_attribute(*elem, name)
                && attempt([&] { m_draft.rename_attribute(elem, attribute, name); },
                           [&](const Mistake& next) {
                               return !is_strict || next.elem != elem
                                      || next.rule == "unknown-attribute";
                           })) {
                suggest(name);
                return true;
            }
        }
    }
    return attempt([&] { m_draft.remove_attribute(elem, attribute); });
}

bool FileCheck::repair_missing_attribute() {
    XMLElement* elem = editable(m_mistake.elem);
    if (m_format == Format::Board && elem == m_doc->RootElement()
        && m_mistake.attribute == "version") {
        add_finding();
        return repair_board_version();
    }
    add_finding();
    for (const std::string& value : values_for(*elem, m_mistake.attribute)) {
        if (attempt([&] { m_draft.write(elem, m_mistake.attribute, value); })) {
            m_added[{elem, m_mistake.attribute}] =
                m_has_finding ? m_findings.size() - 1 : m_findings.max_size();
            return true;
        }
    }
    return false;
}

std::vector<std::string> FileCheck::values_for(const XMLElement& elem,
                                               const std::string& attribute) const {
    std::vector<std::string> values = m_mistake.accepted;
    if (values.empty()) {
        // The value of a neighbor is of the right kind.
        const auto take = [&](const XMLElement& other) {
            if (&other != &elem && is_in_same_place(other, elem)
                && has_attribute(other, attribute)) {
                values.push_back(text_of(other, attribute));
                return false;
            }
            return true;
        };
        for (const XMLElement* other = elem.PreviousSiblingElement(elem.Name()); other != nullptr;
             other = other->PreviousSiblingElement(elem.Name())) {
            if (!take(*other)) {
                break;
            }
        }
        if (values.empty()) {
            for_each_element(m_doc->RootElement(), take);
        }
    }
    values.emplace_back("1");
    return values;
}

bool FileCheck::repair_value() {
    XMLElement* elem = editable(m_mistake.elem);
    const std::string attribute = m_mistake.attribute;
    add_finding();
    if (m_mistake.rule == "unsupported-version" && m_format == Format::Board) {
        return repair_board_version();
    }
    const std::string text = text_of(*elem, attribute);
    const auto is_about_another = [&](const Mistake& next) {
        return next.elem != elem || next.attribute != attribute;
    };
    const auto try_value = [&](const std::string& value, const Test& test) {
        return attempt([&] { m_draft.write(elem, attribute, value); }, test);
    };
    std::vector<std::string> likely;
    if (m_mistake.accepted.size() > 1 || m_mistake.rule == "unsupported-version"
        || m_mistake.rule == "wrong-interface-type") {
        likely = near_names(trimmed(text), m_mistake.accepted);
    }
    if (trimmed(text) != text) {
        likely.insert(likely.begin(), trimmed(text));
    }
    for (const std::string& value : likely) {
        if (try_value(value, is_about_another)) {
            suggest(value);
            return true;
        }
    }
    for (const std::string& value : values_for(*elem, attribute)) {
        if (try_value(value, is_about_another)) {
            return true;
        }
    }
    return attempt([&] { m_draft.remove_attribute(elem, attribute); });
}

bool FileCheck::repair_board_version() {
    // Each version has rules of its own. The one with the fewest mistakes is meant.
    static constexpr const char* VERSIONS[] = {"17.0", "14.1", "0.9"};
    for (const char* version : VERSIONS) {
        auto new_doc = std::make_unique<XMLDocument>();
        XMLDocument& doc = *new_doc;
        if (doc.Parse(m_text->bytes().data(), m_text->bytes().size()) != tinyxml2::XML_SUCCESS) {
            return false;
        }
        m_text->attach(doc);
        auto check = std::make_unique<FileCheck>(&doc, m_format, m_text);
        XMLElement* root = doc.RootElement();
        if (std::string_view(root->Name()) != m_doc->RootElement()->Name()) {
            check->m_draft.rename(root, m_doc->RootElement()->Name());
        }
        // What has been found at the root already is repaired there as it is here.
        std::vector<std::string> names;
        for (const auto* attribute = root->FirstAttribute(); attribute != nullptr;
             attribute = attribute->Next()) {
            names.emplace_back(attribute->Name());
        }
        for (const std::string& name : names) {
            if (!has_attribute(*m_doc->RootElement(), name)) {
                check->m_draft.remove_attribute(root, name);
            }
        }
        for (const auto* attribute = m_doc->RootElement()->FirstAttribute(); attribute != nullptr;
             attribute = attribute->Next()) {
            if (!has_attribute(*root, attribute->Name())) {
                check->m_draft.write(root, attribute->Name(), attribute->Value());
            }
        }
        check->m_draft.write(root, "version", version);
        check->m_work = m_work;
        check->run(m_max_findings - std::min(m_max_findings, m_findings.size()));
        m_work = check->m_work;
        if (m_other_version == nullptr
            || check->m_findings.size() < m_other_version->m_findings.size()) {
            m_other_version = std::move(check);
            m_other_doc = std::move(new_doc);
        }
    }
    m_findings.insert(m_findings.end(), m_other_version->m_findings.begin(),
                      m_other_version->m_findings.end());
    return false;
}

}  // namespace vemo::lint
