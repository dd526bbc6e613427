// Repairs of what is wrong with several elements together.

#include "BoardLint/FileCheck.h"

#include <algorithm>

#include "BaseVisitor/UnsignedNumber.h"
#include "BoardLint/Elements.h"
#include "BoardLint/FindingText.h"

namespace vemo::lint {
namespace {

using tinyxml2::XMLElement;
using vemo::xml::ElementPair;

// Limit for the notes about the other elements of a rule.
constexpr std::size_t MAX_NOTES = 8;

constexpr const char* FRESH_NAME = "vemo-lint-";

/// The addresses of an interface, truncated to 32 bits.
struct Range {
    explicit Range(const XMLElement& interface)
        : first(read(interface, "address")), last(first + read(interface, "size") - 1) {}

    std::string text() const { return hex_text(first) + "-" + hex_text(last); }

    unsigned first;
    unsigned last;

private:
    static unsigned read(const XMLElement& interface, const char* attribute) {
        xml::unsigned64_hex number;
        return xml::convert_word(text_of(interface, attribute).c_str(), &number)
                   ? static_cast<unsigned>(number.value)
                   : 0;
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
        return attempt([&] {
            for (const XMLElement* elem : interfaces) {
                m_draft.write(editable(elem), attribute, value);
            }
        });
    };
    // Those that the check has written follow the others.
    const bool has_written =
        std::any_of(interfaces.begin(), interfaces.end(),
                    [&](const XMLElement* elem) { return m_draft.is_written(*elem, attribute); });
    if (has_written && first_authors != interfaces.end()) {
        const std::string value =
            has_attribute(**first_authors, attribute) ? text_of(**first_authors, attribute) : "1";
        if (attempt([&] {
                for (const XMLElement* elem : interfaces) {
                    if (m_draft.is_written(*elem, attribute)) {
                        m_draft.write(editable(elem), attribute, value);
                    }
                }
            })) {
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

std::string FileCheck::fresh_name() { return FRESH_NAME + std::to_string(++m_num_fresh); }

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
    return attempt([&] {
        for (const ElementPair& pair : mistake.pairs) {
            m_draft.write(culprit_of(pair), attribute, fresh_name());
        }
    });
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
    return attempt([this] { m_overlap = board::Overlap::Allow; });
}

bool FileCheck::repair_hazards() {
    XMLElement* elem = editable(m_mistake.elem);
    add_finding();
    return attempt([&] { m_draft.write(elem, "hazard_free_attributes", "false"); });
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
        if (attempt([&] { m_draft.write(port, WIDTH, std::to_string(MAX_WIDTH)); })) {
            return true;
        }
        return attempt([&] {
            m_draft.write(port, WIDTH, std::to_string(MAX_WIDTH));
            m_draft.write(elem, "encoding", "0");
        });
    }
    if (width < MAX_WIDTH
        && attempt([&] { m_draft.write(port, WIDTH, std::to_string(MAX_WIDTH)); })) {
        return true;
    }
    m_mistake.message = "The encoding does not fit in 31 bits.";
    add_finding();
    return attempt([&] { m_draft.write(elem, "encoding", "0"); });
}

}  // namespace vemo::lint
