#include "BoardLint/Walk.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "Base/CLocaleScope.h"
#include "Base/InvariantTrap.h"
#include "BoardSpecXml/BoardVisitor.h"
#include "DeviceModelXml.h"
#include "TargetModelXml/TargetModelVisitor.h"

namespace vemo::lint {
namespace {

using tinyxml2::XMLDocument;
using tinyxml2::XMLElement;

constexpr const char* ROOT_NAMES[] = {"board", "device_model", "target_model"};

/// An assertion that input can break: the mistake behind it, in an author's words.
struct Invariant {
    const char* condition;
    const char* rule;
    const char* attribute;  // null for a mistake in the element
    const char* message;
    const char* accepted;  // null if there is no alternative
};

constexpr const char* NOT_A_NUMBER = "The value must be a number.";

constexpr Invariant INVARIANTS[] = {
    {"!m_config->has_automigrate()", "repeated-element", nullptr,
     "A compile flow must not have a second <auto_migrate>.", nullptr},
    {"!m_config->has_generate()", "repeated-element", nullptr,
     "A compile flow must not have a second <generate>.", nullptr},
    {"!m_config->has_synthesis()", "repeated-element", nullptr,
     "A compile flow must not have a second <synthesize>.", nullptr},
    {"size > 0", "out-of-range", "size",
     "Interface size must not be a multiple of 4 GiB: its low 32 bits count.", "1"},
    {"max_bandwidth >= 0.0f", "out-of-range", "max_bandwidth", NOT_A_NUMBER, "1"},
    {"sampling_rate > 0", "out-of-range", "sampling_rate", NOT_A_NUMBER, "1"},
    {"group_per_all_rams >= 0.0f", "out-of-range", "value", NOT_A_NUMBER, "1"},
    {"total_per_all_rams >= 0.0f", "out-of-range", "value", NOT_A_NUMBER, "1"},
    {"per_coalescing_width >= 0.0f", "out-of-range", "value", NOT_A_NUMBER, "1"},
    {"per_log2_num_banks >= 0.0f", "out-of-range", "value", NOT_A_NUMBER, "1"},
    {"per_port_fanin >= 0.0f", "out-of-range", "value", NOT_A_NUMBER, "1"},
    {"a >= 0.0f", "out-of-range", "value", NOT_A_NUMBER, "1"},
};

// The one that needs a closer look: which of its steps a flow lacks.
constexpr std::string_view STEPS_CONDITION =
    "compile_config->has_automigrate() && compile_config->has_generate() && "
    "compile_config->has_synthesis()";
constexpr const char* STEPS[] = {"generate", "synthesize", "auto_migrate"};

bool is_inside(const XMLElement* elem, const XMLElement* around) {
    const tinyxml2::XMLNode* node = elem;
    while (node != nullptr && node != around) {
        node = node->Parent();
    }
    return node == around && elem != around;
}

class Sink : public xml::ReportSink {
public:
    void report(const xml::Report& report) override {
        // After the first report, the walk only comes to its end. What is found on the way follows
        // from it, except that all attributes of an element are looked at.
        constexpr std::string_view SEVERAL = "unknown-attribute";
        if (m_mistakes.empty() || (m_mistakes.front().rule == SEVERAL && report.rule == SEVERAL)) {
            m_mistakes.push_back({report.rule, report.message, report.elem, report.attribute,
                                  report.is_at_attribute, is_found_on_leaving(report),
                                  report.accepted, report.parent, report.child, report.pairs});
        }
    }

    void enter(const XMLElement& elem) override {
        m_last_entered = &elem;
        ++m_num_entered;
    }

    void read_number(const XMLElement& elem, const char* name, xml::Syntax syntax) override {
        m_numbers.push_back({&elem, name, syntax});
    }

    std::vector<Mistake> m_mistakes;
    std::vector<ReadNumber> m_numbers;
    const XMLElement* m_last_entered = nullptr;
    std::size_t m_num_entered = 0;

private:
    bool is_found_on_leaving(const xml::Report& report) const {
        // Rules on children; and attributes that are read when children have been. A rule on
        // several elements is found when the last of them has been read.
        return !report.child.empty() || report.elem == nullptr
               || is_inside(m_last_entered, report.elem)
               || (!report.pairs.empty() && std::string_view("unnamed-memory") != report.rule);
    }
};

/// The element `elem` or the nearest one around it for which `is_wanted` holds; else `elem`.
template <typename Predicate>
const XMLElement* closest(const XMLElement* elem, Predicate is_wanted) {
    for (const tinyxml2::XMLNode* node = elem; node != nullptr; node = node->Parent()) {
        if (node->ToElement() != nullptr && is_wanted(*node->ToElement())) {
            return node->ToElement();
        }
    }
    return elem;
}

Mistake mistake_behind(const BrokenInvariant& broken, const XMLElement* visited) {
    Mistake mistake = {"unexpected-element", "", visited, "", true, false, {}, "", "", {}};
    mistake.broken_condition = broken.condition;
    if (broken.condition == STEPS_CONDITION) {
        mistake.elem = closest(visited, [](const XMLElement& elem) {
            return std::string_view("compile") == elem.Name();
        });
        const auto* missing =
            std::find_if(std::begin(STEPS), std::end(STEPS), [&mistake](const char* step) {
                return mistake.elem->FirstChildElement(step) == nullptr;
            });
        mistake.rule = "missing-element";
        mistake.is_on_leaving = true;
        mistake.child = missing == std::end(STEPS) ? STEPS[0] : *missing;
        mistake.message = "A compile flow needs <" + mistake.child + ">.";
        return mistake;
    }
    const auto* row = std::find_if(
        std::begin(INVARIANTS), std::end(INVARIANTS), [&broken](const Invariant& invariant) {
            return std::string_view(invariant.condition) == broken.condition;
        });
    if (row == std::end(INVARIANTS)) {
        mistake.message = "The file is refused here.";
        return mistake;
    }
    mistake.rule = row->rule;
    mistake.message = row->message;
    if (row->attribute != nullptr) {
        // Children may have been read before the attribute was.
        mistake.elem = closest(visited, [row](const XMLElement& elem) {
            return elem.FindAttribute(row->attribute) != nullptr;
        });
        mistake.is_on_leaving = mistake.elem != visited;
        mistake.attribute = row->attribute;
        mistake.accepted = {row->accepted};
    }
    return mistake;
}

/// Lets `Visitor` fill a new model, which `*model` owns if that succeeds.
template <typename Visitor, typename Owner, typename... Flags>
Outcome read_with(const XMLDocument& doc, Owner Models::*model, Flags... flags) {
    using Model = typename Owner::element_type;
    Owner owner(new Model);
    Visitor visitor(owner.get(), nullptr, false, flags...);
    Sink sink;
    visitor.set_report_sink(&sink);
    Outcome outcome;
    try {
        const CLocaleScope c_locale;
        const InvariantTrap trap;
        outcome.loads = doc.Accept(&visitor);
    } catch (const BrokenInvariant& broken) {
        sink.m_mistakes = {mistake_behind(broken, sink.m_last_entered)};
    }
    outcome.num_entered = sink.m_num_entered;
    if (outcome.loads) {
        outcome.models.*model = std::move(owner);
        outcome.numbers = std::move(sink.m_numbers);
        return outcome;
    }
    if (sink.m_mistakes.empty()) {
        sink.m_mistakes = {mistake_behind({"", "", 0}, sink.m_last_entered)};
    }
    for (Mistake& mistake : sink.m_mistakes) {
        if (mistake.elem == nullptr) {
            mistake.elem = doc.RootElement();
        }
    }
    outcome.mistakes = std::move(sink.m_mistakes);
    return outcome;
}

}  // namespace

const char* root_name(Format format) { return ROOT_NAMES[static_cast<std::size_t>(format)]; }

Outcome read_document(const XMLDocument& doc, Format format, board::Overlap overlap) {
    switch (format) {
        case Format::DeviceModel:
            return read_with<dmodel::xml::DeviceModelVisitor>(doc, &Models::dm);
        case Format::TargetModel:
            return read_with<tmodel::xml::TargetModelVisitor>(doc, &Models::tm);
        case Format::Board:
            break;
    }
    return read_with<board::xml::BoardVisitor>(doc, &Models::spec,
                                               overlap == board::Overlap::Allow);
}

}  // namespace vemo::lint
