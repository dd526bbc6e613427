#include "BoardLint/FileCheck.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "BoardLint/Elements.h"

namespace vemo::lint {
namespace {

using tinyxml2::XMLDocument;
using tinyxml2::XMLElement;

// Limit for the cost of a check, which takes some seconds: the elements read, plus a constant for
// each reading.
constexpr std::size_t MAX_WORK = 20'000'000;
constexpr std::size_t WORK_OF_READING = 1000;

// Readings that take more elements are shortened.
constexpr std::size_t MAX_ENTERED = 1000;

std::string in_one_line(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
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
        // Rules on several elements need all elements.
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
    if (!is_same && !is_before(Moment{next.elem, next.is_on_leaving}, start) && is_good(next)) {
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
            && (m_mistake.rule == "unknown-attribute" || m_mistake.is_unexpected_element()))) {
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
