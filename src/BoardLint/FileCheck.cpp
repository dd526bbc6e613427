#include "BoardLint/FileCheck.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "BaseVisitor/UnsignedNumber.h"
#include "BoardLint/NearName.h"

namespace vemo::lint {
namespace {

using tinyxml2::XMLDocument;
using tinyxml2::XMLElement;
using tinyxml2::XMLNode;
using vemo::xml::ElementPair;

// What a check may cost: elements read, a reading counting as some of them. It takes seconds.
constexpr std::size_t MAX_WORK = 20'000'000;
constexpr std::size_t WORK_OF_READING = 1000;

// A reading that takes more elements is made to take less.
constexpr std::size_t MAX_ENTERED = 1000;

// An element with more unknown attributes loses them unlooked at.
constexpr std::size_t MAX_RENAMED_ATTRIBUTES = 16;

// Notes about the other elements of a rule on several.
constexpr std::size_t MAX_NOTES = 8;

constexpr const char* FRESH_NAME = "vemo-lint-";

XMLElement* editable(const XMLElement* elem) { return const_cast<XMLElement*>(elem); }

std::string in_one_line(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

std::string trimmed(const std::string& text) {
    constexpr const char* BLANKS = " \t\r\n\v\f";
    const std::size_t begin = text.find_first_not_of(BLANKS);
    return begin == std::string::npos
               ? ""
               : text.substr(begin, text.find_last_not_of(BLANKS) - begin + 1);
}

std::string text_of(const XMLElement& elem, const std::string& attribute) {
    const char* text = elem.Attribute(attribute.c_str());
    return text == nullptr ? "" : text;
}

bool has_attribute(const XMLElement& elem, const std::string& name) {
    return elem.FindAttribute(name.c_str()) != nullptr;
}

std::size_t depth_of(const XMLNode* node) {
    std::size_t depth = 0;
    for (; node->Parent() != nullptr; node = node->Parent()) {
        ++depth;
    }
    return depth;
}

/// Whether `a`, a sibling of `b`, comes first.
bool is_earlier_sibling(const XMLNode* a, const XMLNode* b) {
    // In both directions by turns: the two are often neighbors.
    for (const XMLNode *back = b, *forth = b; back != nullptr || forth != nullptr;) {
        if (back == a || forth == a) {
            return back == a;
        }
        back = back == nullptr ? nullptr : back->PreviousSibling();
        forth = forth == nullptr ? nullptr : forth->NextSibling();
    }
    return false;
}

bool is_unexpected(const Mistake& mistake) {
    return mistake.rule == "unexpected-element" || mistake.rule == "repeated-element";
}

/// Calls visit(elem) for `elem` and the elements in it, until it returns false.
template <typename Visit>
bool for_each_element(const XMLElement* elem, Visit visit) {
    if (!visit(*elem)) {
        return false;
    }
    for (const XMLElement* child = elem->FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
        if (!for_each_element(child, visit)) {
            return false;
        }
    }
    return true;
}

/// Name of the element around `elem`; empty for a root.
std::string_view parent_name(const XMLElement& elem) {
    const XMLElement* parent = elem.Parent() == nullptr ? nullptr : elem.Parent()->ToElement();
    return parent == nullptr ? std::string_view() : parent->Name();
}

bool is_in_same_place(const XMLElement& a, const XMLElement& b) {
    return std::string_view(a.Name()) == b.Name() && parent_name(a) == parent_name(b);
}

/// The addresses of an interface: 32 bits count.
struct Range {
    explicit Range(const XMLElement& interface)
        : first(read(interface, "address")), last(first + read(interface, "size") - 1) {}

    std::string text() const { return hex(first) + "-" + hex(last); }

    unsigned first;
    unsigned last;

private:
    static unsigned read(const XMLElement& interface, const char* attribute) {
        xml::unsigned64_hex number;
        return xml::convert_word(text_of(interface, attribute).c_str(), &number)
                   ? static_cast<unsigned>(number.value)
                   : 0;
    }
    static std::string hex(unsigned number) {
        std::string digits;
        for (; number != 0 || digits.empty(); number /= 16) {
            digits.insert(digits.begin(), "0123456789abcdef"[number % 16]);
        }
        return "0x" + digits;
    }
};

std::vector<const XMLElement*> interfaces_of(const XMLElement& memory) {
    std::vector<const XMLElement*> interfaces;
    for_each_element(&memory, [&interfaces](const XMLElement& elem) {
        if (std::string_view("interface") == elem.Name()) {
            interfaces.push_back(&elem);
        }
        return interfaces.size() < MAX_NOTES;
    });
    return interfaces;
}

/// An interface of each of two memories, those that overlap if some do.
ElementPair overlapping_interfaces(const XMLElement& a, const XMLElement& b) {
    const auto of_a = interfaces_of(a);
    const auto of_b = interfaces_of(b);
    for (const XMLElement* first : of_a) {
        for (const XMLElement* second : of_b) {
            const Range range(*first);
            const Range other(*second);
            if (range.first <= other.last && other.first <= range.last) {
                return {first, second};
            }
        }
    }
    return {of_a.empty() ? &a : of_a.front(), of_b.empty() ? &b : of_b.front()};
}

}  // namespace

FileCheck::FileCheck(XMLDocument* doc, Format format, SourceText* text)
    : m_doc(doc), m_format(format), m_text(text), m_draft(doc) {}

void FileCheck::run(std::size_t max_findings) {
    m_max_findings = max_findings;
    read();
    m_loads = m_outcome.loads;
    if (m_loads) {
        m_is_complete = true;
        return;
    }
    m_text->attach(*m_doc);
    while (m_findings.size() < m_max_findings && m_work < MAX_WORK) {
        // Rules on several elements need all of them.
        if (m_draft.has_parked()
            && (m_outcome.loads
                || (m_outcome.mistakes.front().is_on_leaving
                    && !m_outcome.mistakes.front().pairs.empty()
                    && m_draft.has_parked_in(*m_outcome.mistakes.front().elem)))) {
            m_draft.unpark();
            read();
            continue;
        }
        if (m_outcome.loads) {
            break;
        }
        m_mistake = m_outcome.mistakes.front();
        if (m_outcome.num_entered > MAX_ENTERED && m_mistake.elem != nullptr) {
            m_draft.park_before(*m_mistake.elem);
        }
        m_found_along = std::move(m_outcome.mistakes);
        m_has_finding = false;
        if (!repair()) {
            break;
        }
    }
    m_is_complete = m_other_version == nullptr ? m_outcome.loads : m_other_version->is_complete();
}

void FileCheck::read() {
    m_outcome = read_document(*m_doc, m_format, m_overlap);
    m_work += m_outcome.num_entered + WORK_OF_READING;
}

FileCheck::Moment FileCheck::moment_of(const Mistake& mistake) {
    return {mistake.elem, mistake.is_on_leaving};
}

FileCheck::Moment FileCheck::moment_before(const XMLElement& elem) {
    if (const XMLElement* previous = elem.PreviousSiblingElement()) {
        return {previous, true};
    }
    return {elem.Parent() == nullptr ? nullptr : elem.Parent()->ToElement(), false};
}

bool FileCheck::is_before(const Moment& a, const Moment& b) {
    if (a.elem == nullptr || b.elem == nullptr) {
        return a.elem == nullptr && b.elem != nullptr && !a.is_leaving;
    }
    if (a.elem == b.elem) {
        return !a.is_leaving && b.is_leaving;
    }
    const XMLNode* a_node = a.elem;
    const XMLNode* b_node = b.elem;
    std::size_t a_depth = depth_of(a_node);
    std::size_t b_depth = depth_of(b_node);
    for (; a_depth > b_depth; --a_depth) {
        a_node = a_node->Parent();
    }
    if (a_node == b.elem) {
        return b.is_leaving;  // a is inside b
    }
    for (; b_depth > a_depth; --b_depth) {
        b_node = b_node->Parent();
    }
    if (b_node == a.elem) {
        return !a.is_leaving;
    }
    while (a_node->Parent() != b_node->Parent()) {
        a_node = a_node->Parent();
        b_node = b_node->Parent();
    }
    return is_earlier_sibling(a_node, b_node);
}

bool FileCheck::attempt(const Moment& start, const Edit& edit, const Test& is_good) {
    const std::size_t size = m_draft.size();
    edit();
    read();
    if (m_outcome.loads) {
        return true;
    }
    const Mistake& next = m_outcome.mistakes.front();
    const bool is_same = next.rule == m_mistake.rule && next.elem == m_mistake.elem
                         && next.attribute == m_mistake.attribute && next.child == m_mistake.child;
    if (!is_same && !is_before(moment_of(next), start) && is_good(next)) {
        return true;
    }
    m_draft.roll_back(size);
    return false;
}

bool FileCheck::attempt(const Edit& edit, const Test& is_good) {
    return attempt(moment_before(*m_mistake.elem), edit, is_good);
}

bool FileCheck::repair() {
    if (m_mistake.elem == nullptr) {
        add_finding();
        return false;
    }
    return repair_by_rule() || remove_element();
}

bool FileCheck::repair_by_rule() {
    struct Repair {
        const char* rule;
        bool (FileCheck::*repair)();
    };
    static constexpr Repair REPAIRS[] = {
        {"unknown-attribute", &FileCheck::repair_unknown_attribute},
        {"missing-attribute", &FileCheck::repair_missing_attribute},
        {"unexpected-element", &FileCheck::repair_unexpected_element},
        {"repeated-element", &FileCheck::repair_repeated_element},
        {"missing-element", &FileCheck::repair_missing_element},
        {"missing-port", &FileCheck::repair_missing_attribute},
        {"compile-before-14.1", &FileCheck::repair_flows_before_14_1},
        {"interface-widths-differ", &FileCheck::repair_differing_interfaces},
        {"interface-bursts-differ", &FileCheck::repair_differing_interfaces},
        {"unnamed-memory", &FileCheck::repair_identifiers},
        {"empty-channel-id", &FileCheck::repair_identifiers},
        {"duplicate-channel-id", &FileCheck::repair_identifiers},
        {"memory-overlap", &FileCheck::repair_overlaps},
        {"attributes-need-hazards", &FileCheck::repair_hazards},
        {"encoding-too-wide", &FileCheck::repair_encoding},
    };
    const auto* row =
        std::find_if(std::begin(REPAIRS), std::end(REPAIRS),
                     [this](const Repair& candidate) { return m_mistake.rule == candidate.rule; });
    if (row != std::end(REPAIRS)) {
        return (this->*row->repair)();
    }
    return !m_mistake.attribute.empty() && repair_value();
}

// Attributes.

bool FileCheck::repair_unknown_attribute() {
    XMLElement* elem = editable(m_mistake.elem);
    if (m_found_along.size() > MAX_RENAMED_ATTRIBUTES) {
        for (const Mistake& mistake : m_found_along) {
            m_mistake = mistake;
            if (m_findings.size() < m_max_findings) {
                add_finding();
            }
        }
        return attempt(
            [this, elem] {
                for (const Mistake& mistake : m_found_along) {
                    m_draft.remove_attribute(elem, mistake.attribute);
                }
            },
            [](const Mistake&) { return true; });
    }
    const std::string attribute = m_mistake.attribute;
    const std::vector<std::string> near = near_names(attribute, m_mistake.accepted);
    for (const std::string& name : near) {
        // Its absence may have been noticed before it was.
        const auto added = m_added.find({elem, name});
        if (added != m_added.end()
            && attempt(
                [&] {
                    m_draft.remove_attribute(elem, name);
                    m_draft.rename_attribute(elem, attribute, name);
                },
                [](const Mistake&) { return true; })) {
            if (added->second < m_findings.size()) {
                Finding& finding = m_findings[added->second];
                finding.suggestion = name;
                const Location place = locate(*elem, name, SourceText::Extent::Name);
                if (place.line == finding.location.line) {
                    finding.location = place;
                } else {
                    finding.notes.push_back({place, "'" + attribute + "' stands here"});
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
    return attempt([&] { m_draft.remove_attribute(elem, attribute); },
                   [](const Mistake&) { return true; });
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
        if (attempt([&] { m_draft.write(elem, m_mistake.attribute, value); },
                    [](const Mistake&) { return true; })) {
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
        // What a neighbor has is of the right kind.
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

std::string FileCheck::fresh_name() { return FRESH_NAME + std::to_string(++m_num_fresh); }

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
    if (!m_draft.is_written(*elem, attribute)) {
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
    }
    for (const std::string& value : values_for(*elem, attribute)) {
        if (try_value(value, is_about_another)) {
            return true;
        }
    }
    return attempt([&] { m_draft.remove_attribute(elem, attribute); },
                   [](const Mistake&) { return true; });
}

bool FileCheck::repair_board_version() {
    // Every version has rules of its own. The one under which least is wrong is meant.
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

// Elements.

bool FileCheck::repair_unexpected_element() {
    XMLElement* elem = editable(m_mistake.elem);
    if (elem == m_doc->RootElement()) {
        add_finding();
        const std::string name = root_name(m_format);
        const std::string former = elem->Name();
        if (name != former
            && attempt(
                {elem, false}, [&] { m_draft.rename(elem, name); },
                [](const Mistake&) { return true; })) {
            if (is_near(former, name)) {
                suggest(name);
            }
            return true;
        }
        return false;
    }
    add_finding();
    const std::string name = elem->Name();
    const auto is_accepted = [&](const Mistake& next) {
        return !(next.elem == elem && is_unexpected(next));
    };
    for (auto twin = m_inventions.rbegin(); twin != m_inventions.rend(); ++twin) {
        // It was missed elsewhere.
        XMLElement* stand_in = *twin;
        if (name == stand_in->Name() && stand_in->Parent()->ToElement() != nullptr
            && m_draft.is_invented(*stand_in)
            && attempt(
                moment_before(*stand_in),
                [&] {
                    m_draft.move(elem, stand_in->Parent()->ToElement());
                    m_draft.set_aside(stand_in);
                },
                is_accepted)) {
            m_inventions.erase(std::next(twin).base());
            return true;
        }
    }
    const XMLElement* parent = elem->Parent()->ToElement();  // null beside the root
    XMLElement* root = m_doc->RootElement();
    if (parent != root && is_section(name)
        && attempt([&] { m_draft.move(elem, root); }, is_accepted)) {
        return true;
    }
    const std::vector<std::string> near =
        parent == nullptr ? std::vector<std::string>() : near_names(name, m_mistake.accepted);
    // A name that leaves another child missing is not it, if there is a better one. Nor is one
    // that the parent has a child of, unless it is very near.
    for (const bool is_strict : {true, false}) {
        for (const std::string& candidate : near) {
            const bool is_there = parent->FirstChildElement(candidate.c_str()) != nullptr;
            if ((!is_there || is_very_near(name, candidate))
                && attempt([&] { m_draft.rename(elem, candidate); },
                           [&](const Mistake& next) {
                               return is_accepted(next)
                                      && !(next.rule == "repeated-element"
                                           && next.elem->Parent() == parent
                                           && candidate == next.elem->Name())
                                      && !(is_strict && next.rule == "missing-element"
                                           && (next.elem == parent || is_there));
                           })) {
                suggest(candidate);
                return true;
            }
        }
    }
    if (elem->FirstChildElement() != nullptr) {
        std::vector<const XMLElement*> children;
        for (const XMLElement* child = elem->FirstChildElement(); child != nullptr;
             child = child->NextSiblingElement()) {
            children.push_back(child);
        }
        if (attempt([&] { m_draft.unwrap(elem); },
                    [&](const Mistake& next) {
                        return !is_unexpected(next)
                               || std::find(children.begin(), children.end(), next.elem)
                                      == children.end();
                    })) {
            return true;
        }
    }
    m_misplaced.push_back(elem);
    return remove_element();
}

bool FileCheck::is_section(const std::string& name) const {
    XMLDocument doc;
    XMLElement* root = doc.NewElement(m_doc->RootElement()->Name());
    doc.InsertEndChild(root);
    for (const auto* attribute = m_doc->RootElement()->FirstAttribute(); attribute != nullptr;
         attribute = attribute->Next()) {
        root->SetAttribute(attribute->Name(), attribute->Value());
    }
    XMLElement* section = doc.NewElement(name.c_str());
    root->InsertEndChild(section);
    const Outcome outcome = read_document(doc, m_format, m_overlap);
    return outcome.loads || outcome.mistakes.front().elem != section
           || !is_unexpected(outcome.mistakes.front());
}

bool FileCheck::repair_repeated_element() {
    XMLElement* elem = editable(m_mistake.elem);
    for (XMLElement* twin = elem->Parent()->FirstChildElement(elem->Name()); twin != nullptr;
         twin = twin->NextSiblingElement(elem->Name())) {
        if (twin != elem && m_draft.is_invented(*twin)
            && attempt(
                moment_before(*twin), [&] { m_draft.set_aside(twin); },
                [](const Mistake&) { return true; })) {
            return true;
        }
    }
    add_finding();
    if (m_has_finding) {
        const XMLElement* first = elem->Parent()->FirstChildElement(elem->Name());
        if (first != elem) {
            add_note(m_text->locate(*first), "the first one is here");
        }
    }
    return remove_element();
}

bool FileCheck::remove_element() {
    XMLElement* elem = editable(m_mistake.elem);
    if (!m_has_finding) {
        add_finding();
    }
    if (elem == m_doc->RootElement()) {
        return false;
    }
    return attempt([&] { m_draft.set_aside(elem); }, [](const Mistake&) { return true; });
}

bool FileCheck::repair_missing_element() {
    XMLElement* parent = editable(m_mistake.elem);
    if (!m_mistake.parent.empty()
        && parent->FirstChildElement(m_mistake.parent.c_str()) != nullptr) {
        parent = parent->FirstChildElement(m_mistake.parent.c_str());
    }
    const std::string name = m_mistake.child;
    // It may have been found in another place, or under another name.
    const std::vector<Draft::Aside> asides = m_draft.asides();
    for (auto aside = asides.rbegin(); aside != asides.rend(); ++aside) {
        XMLElement* elem = aside->elem;
        const bool has_name = name == elem->Name();
        if (std::find(m_misplaced.begin(), m_misplaced.end(), elem) == m_misplaced.end()
            || (!has_name && aside->parent != parent)) {
            continue;
        }
        if (attempt(
                {parent, false},
                [&] {
                    if (!has_name) {
                        m_draft.rename(elem, name);
                    }
                    m_draft.move(elem, parent);
                },
                [&](const Mistake& next) {
                    return next.elem != elem || (has_name && !is_unexpected(next));
                })) {
            return true;
        }
    }
    add_finding();
    if (m_has_finding) {
        add_note(m_text->locate(*parent), "<" + name + "> is missing here");
    }
    const XMLElement* model = nullptr;
    for_each_element(m_doc->RootElement(), [&](const XMLElement& elem) {
        if (name == elem.Name() && parent_name(elem) == parent->Name()) {
            model = &elem;
        }
        return model == nullptr;
    });
    XMLElement* invention = nullptr;
    const auto keep = [&] {
        m_inventions.push_back(invention);
        return true;
    };
    const auto is_accepted = [&](const Mistake& next) {
        return !(next.elem == invention && is_unexpected(next));
    };
    if (model != nullptr
        && attempt(
            {parent, false}, [&] { invention = m_draft.invent(parent, *model); }, is_accepted)) {
        return keep();
    }
    return attempt(
               {parent, false}, [&] { invention = m_draft.invent(parent, name); }, is_accepted)
           && keep();
}

bool FileCheck::repair_flows_before_14_1() {
    add_finding();
    // The mistake may be the version: one finding will do.
    return attempt(
        [this] {
            XMLElement* root = m_doc->RootElement();
            while (XMLElement* flow = root->FirstChildElement("compile")) {
                m_draft.set_aside(flow);
            }
        },
        [](const Mistake&) { return true; });
}

// Rules on several elements.

bool FileCheck::repair_differing_interfaces() {
    const std::string& attribute = m_mistake.attribute;
    std::vector<const XMLElement*> interfaces;
    for (const ElementPair& pair : m_mistake.pairs) {
        if (interfaces.empty()) {
            interfaces.push_back(pair.first);
        }
        interfaces.push_back(pair.second);
    }
    const auto first_authors =
        std::find_if(interfaces.begin(), interfaces.end(),
                     [&](const XMLElement* elem) { return !m_draft.is_written(*elem, attribute); });
    const auto equalize = [&](const std::string& value) {
        return attempt(
            [&] {
                for (const XMLElement* elem : interfaces) {
                    m_draft.write(editable(elem), attribute, value);
                }
            },
            [](const Mistake&) { return true; });
    };
    // Those that the check has written follow the others.
    const bool has_written =
        std::any_of(interfaces.begin(), interfaces.end(),
                    [&](const XMLElement* elem) { return m_draft.is_written(*elem, attribute); });
    if (has_written && first_authors != interfaces.end()) {
        const std::string value =
            has_attribute(**first_authors, attribute) ? text_of(**first_authors, attribute) : "1";
        if (attempt(
                [&] {
                    for (const XMLElement* elem : interfaces) {
                        if (m_draft.is_written(*elem, attribute)) {
                            m_draft.write(editable(elem), attribute, value);
                        }
                    }
                },
                [](const Mistake&) { return true; })) {
            return true;
        }
    }
    add_finding();
    if (m_has_finding) {
        for (std::size_t i = 0; i < interfaces.size() && i < MAX_NOTES; ++i) {
            const XMLElement& elem = *interfaces[i];
            if (!m_draft.is_written(elem, attribute)) {
                const std::string value =
                    has_attribute(elem, attribute) ? text_of(elem, attribute) : "1, the default,";
                add_note(locate(elem, attribute),
                         (i == 0 ? "the first interface has " : "this one has ") + value);
            }
        }
    }
    return !interfaces.empty()
           && equalize(has_attribute(*interfaces[0], attribute) ? text_of(*interfaces[0], attribute)
                                                                : "1");
}

bool FileCheck::repair_identifiers() {
    const std::string attribute = m_mistake.attribute;
    const Mistake mistake = m_mistake;
    const auto culprit_of = [](const ElementPair& pair) {
        return editable(pair.second == nullptr ? pair.first : pair.second);
    };
    for (const ElementPair& pair : mistake.pairs) {
        const XMLElement& culprit = *culprit_of(pair);
        if (m_draft.is_written(culprit, attribute)
            || (pair.second != nullptr && m_draft.is_written(*pair.first, attribute))) {
            continue;
        }
        if (m_findings.size() >= m_max_findings) {
            break;
        }
        add_finding();
        if (!m_has_finding) {
            break;
        }
        if (pair.second != nullptr) {
            add_note(locate(culprit, attribute), "this is '" + text_of(culprit, attribute) + "'");
            add_note(locate(*pair.first, attribute), "the other one is here");
        } else if (&culprit != mistake.elem) {
            add_note(locate(culprit, attribute), "this one has none");
        }
    }
    return attempt(
        [&] {
            for (const ElementPair& pair : mistake.pairs) {
                m_draft.write(culprit_of(pair), attribute, fresh_name());
            }
        },
        [](const Mistake&) { return true; });
}

bool FileCheck::repair_overlaps() {
    std::vector<ElementPair> pairs;
    for (const ElementPair& pair : m_mistake.pairs) {
        const ElementPair interfaces = overlapping_interfaces(*pair.first, *pair.second);
        const auto is_written = [this](const XMLElement* elem) {
            return m_draft.is_written(*elem, "address") || m_draft.is_written(*elem, "size");
        };
        if (!is_written(interfaces.first) && !is_written(interfaces.second)) {
            pairs.push_back(pair);
        }
    }
    // The memory that overlaps most others is the one in the wrong place.
    while (!pairs.empty() && m_findings.size() < m_max_findings) {
        std::map<const XMLElement*, std::size_t> counts;
        const XMLElement* culprit = pairs.front().second;
        for (const ElementPair& pair : pairs) {
            for (const XMLElement* memory : {pair.second, pair.first}) {
                if (++counts[memory] > std::max<std::size_t>(counts[culprit], 1)) {
                    culprit = memory;
                }
            }
        }
        std::size_t num_notes = 0;
        for (const ElementPair& pair : pairs) {
            if (pair.first != culprit && pair.second != culprit) {
                continue;
            }
            const XMLElement* other = pair.first == culprit ? pair.second : pair.first;
            const ElementPair interfaces = overlapping_interfaces(*culprit, *other);
            if (num_notes == 0) {
                m_findings.push_back({Severity::Error,
                                      m_mistake.rule,
                                      locate(*interfaces.first, "address"),
                                      m_mistake.message,
                                      "",
                                      {}});
                add_note(Location(), "this range is " + Range(*interfaces.first).text());
            }
            if (++num_notes <= MAX_NOTES) {
                add_note(locate(*interfaces.second, "address"),
                         "the other range is here: " + Range(*interfaces.second).text());
            }
        }
        pairs.erase(std::remove_if(pairs.begin(), pairs.end(),
                                   [culprit](const ElementPair& pair) {
                                       return pair.first == culprit || pair.second == culprit;
                                   }),
                    pairs.end());
    }
    // From here on, memories may overlap.
    return attempt([this] { m_overlap = board::Overlap::Allow; },
                   [](const Mistake&) { return true; });
}

bool FileCheck::repair_hazards() {
    XMLElement* elem = editable(m_mistake.elem);
    add_finding();
    return attempt([&] { m_draft.write(elem, "hazard_free_attributes", "false"); },
                   [](const Mistake&) { return true; });
}

bool FileCheck::repair_encoding() {
    constexpr const char* WIDTH = "attribute_width";
    constexpr unsigned MAX_WIDTH = 31;
    XMLElement* elem = editable(m_mistake.elem);
    XMLElement* port = elem->Parent()->ToElement();
    const bool is_width_written = m_draft.is_written(*port, WIDTH);
    unsigned width = 0;
    xml::convert_to_unsigned(text_of(*port, WIDTH).c_str(), &width, 10);
    if (!is_width_written) {
        m_mistake.message = "The encoding does not fit the attribute_width of the port.";
        if (width > MAX_WIDTH) {
            // No encoding does.
            m_mistake.elem = port;
            m_mistake.attribute = WIDTH;
            m_mistake.message = "No encoding fits an attribute_width of 32 or more.";
        }
        add_finding();
        if (m_has_finding && width <= MAX_WIDTH) {
            add_note(locate(*port, WIDTH), "the width is here");
        }
        m_mistake.elem = elem;
        m_mistake.attribute = "encoding";
        if (attempt([&] { m_draft.write(port, WIDTH, std::to_string(MAX_WIDTH)); },
                    [](const Mistake&) { return true; })) {
            return true;
        }
        return attempt(
            [&] {
                m_draft.write(port, WIDTH, std::to_string(MAX_WIDTH));
                m_draft.write(elem, "encoding", "0");
            },
            [](const Mistake&) { return true; });
    }
    if (width < MAX_WIDTH
        && attempt([&] { m_draft.write(port, WIDTH, std::to_string(MAX_WIDTH)); },
                   [](const Mistake&) { return true; })) {
        return true;
    }
    m_mistake.message = "The encoding does not fit in 31 bits.";
    add_finding();
    return attempt([&] { m_draft.write(elem, "encoding", "0"); },
                   [](const Mistake&) { return true; });
}

// Findings.

bool FileCheck::is_authors() const {
    return !m_draft.is_invented(*m_mistake.elem)
           && (m_mistake.attribute.empty()
               || !m_draft.is_written(*m_mistake.elem, m_mistake.attribute));
}

void FileCheck::add_finding() {
    m_has_finding = m_mistake.elem == nullptr || is_authors();
    if (!m_has_finding) {
        return;
    }
    Finding finding;
    finding.id = m_mistake.rule;
    finding.message = in_one_line(m_mistake.message);
    finding.location = m_text->whole();
    if (m_mistake.elem != nullptr) {
        const XMLElement& elem = *m_mistake.elem;
        finding.location = m_text->locate(elem);
        if (has_attribute(elem, m_mistake.attribute)) {
            const Location place =
                locate(elem, m_mistake.attribute,
                       m_mistake.rule == "unknown-attribute" ? SourceText::Extent::Name
                                                             : SourceText::Extent::NameAndValue);
            if (m_mistake.is_at_attribute || place.line == finding.location.line) {
                finding.location = place;
            } else {
                finding.notes.push_back({place, "the value is here"});
            }
        }
    }
    if (m_mistake.accepted.size() > 1
        || (!m_mistake.accepted.empty()
            && (m_mistake.rule == "unknown-attribute" || is_unexpected(m_mistake)))) {
        std::string names;
        for (const std::string& name : m_mistake.accepted) {
            bool is_around = false;
            for (const XMLElement* around = m_mistake.elem; around != nullptr && !is_around;
                 around = around->Parent()->ToElement()) {
                is_around = name == parent_name(*around);
            }
            if (!is_around) {
                names += (names.empty() ? "allowed: " : ", ") + name;
            }
        }
        if (!names.empty()) {
            finding.notes.push_back({Location(), names});
        }
    }
    if (m_mistake.broken_condition != nullptr) {
        finding.notes.push_back(
            {Location(), std::string("vemo-boardspec aborts here: assertion failed: ")
                             + m_mistake.broken_condition});
    } else if (m_mistake.rule == "encoding-too-wide") {
        finding.notes.push_back({Location(), "vemo-boardspec refuses the file without a message"});
    }
    m_findings.push_back(std::move(finding));
}

void FileCheck::add_note(const Location& location, const std::string& text) {
    m_findings.back().notes.push_back({location, text});
}

void FileCheck::suggest(const std::string& name) {
    if (m_has_finding) {
        m_findings.back().suggestion = name;
    }
}

Location FileCheck::locate(const XMLElement& elem, const std::string& attribute,
                           SourceText::Extent extent) const {
    return m_text->locate(elem, m_draft.original_name(elem, attribute), extent);
}

std::pair<const XMLElement*, const char*> FileCheck::referrer() const {
    const XMLElement* elem = m_doc->RootElement();
    const char* attribute = "target_model";
    if (elem != nullptr && m_format == Format::Board) {
        elem = elem->FirstChildElement("device");
        attribute = "device_model";
    }
    if (m_format == Format::TargetModel || elem == nullptr || !has_attribute(*elem, attribute)
        || m_draft.is_written(*elem, attribute)) {
        return {nullptr, nullptr};
    }
    return {elem, attribute};
}

Reference FileCheck::reference() const {
    if (m_other_version != nullptr) {
        return m_other_version->reference();
    }
    // A file without an element loads, too, and refers to the model of an empty name.
    if (m_loads && m_format == Format::DeviceModel) {
        return {true, models().dm->target_model};
    }
    const auto [elem, attribute] = referrer();
    return elem == nullptr ? Reference() : Reference{true, text_of(*elem, attribute)};
}

Location FileCheck::locate_reference() const {
    if (m_other_version != nullptr) {
        return m_other_version->locate_reference();
    }
    const auto [elem, attribute] = referrer();
    if (elem == nullptr) {
        return m_text->whole();
    }
    return locate(*elem, attribute);
}

}  // namespace vemo::lint
