#include "BoardLint/Warnings.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "Base/FilePath.h"
#include "BaseVisitor/UnsignedNumber.h"
#include "BoardLint/Elements.h"
#include "BoardLint/FindingText.h"
#include "BoardLint/NumberWarning.h"
#include "BoardSpec/BoardSpec.h"
#include "DeviceModel.h"

namespace vemo::lint {
namespace {

using tinyxml2::XMLAttribute;
using tinyxml2::XMLElement;
using tinyxml2::XMLNode;

constexpr std::uint32_t GREATEST_32 = std::numeric_limits<std::uint32_t>::max();

class Search {
public:
    explicit Search(const PackageCheck::File& file)
        : m_file(file), m_spec(file.check->models().spec.get()) {}

    std::vector<Finding> run() {
        const XMLElement* elem = m_file.doc->RootElement();
        while (elem != nullptr) {
            check(*elem);
            elem = next_in_document(*elem);
        }
        return std::move(m_findings);
    }

private:
    /// A warning about elements of one name; null for those of any name.
    struct Row {
        const char* element;
        const char* id;
        void (Search::*check)(const XMLElement& elem);
    };
    static const Row ROWS[];

    static const XMLElement* next_in_document(const XMLElement& elem) {
        if (const XMLElement* child = elem.FirstChildElement()) {
            if (!is_ignored(elem)) {
                return child;
            }
        }
        for (const XMLNode* node = &elem; node != nullptr; node = node->Parent()) {
            if (const XMLElement* sibling = node->NextSiblingElement()) {
                return sibling;
            }
        }
        return nullptr;
    }

    void check(const XMLElement& elem);

    // Reports with the id of the current row.

    Finding& warn(const Location& location, std::string message) {
        Finding& finding = m_findings.emplace_back();
        finding.severity = Severity::Warning;
        finding.id = m_id;
        finding.location = location;
        finding.message = std::move(message);
        return finding;
    }
    Finding& warn(const XMLElement& elem, std::string message) {
        return warn(locate(elem), std::move(message));
    }
    Finding& warn(const XMLElement& elem, const char* attribute, std::string message) {
        return warn(value_location(elem, attribute), std::move(message));
    }
    /// Texts are searched for their tags only when there is something to report.
    static Location locate(const PackageCheck::File& file, const XMLElement& elem) {
        file.text->attach(*file.doc);
        return file.text->locate(elem);
    }
    Location locate(const XMLElement& elem) const { return locate(m_file, elem); }
    Location value_location(const XMLElement& elem, const char* attribute) const {
        m_file.text->attach(*m_file.doc);
        return m_file.text->locate(elem, attribute, SourceText::Extent::NameAndValue);
    }

    // ---- Any element ----------------------------------------------------------------------------

    void find_text(const XMLElement& elem) {
        for (const XMLNode* node = elem.FirstChild(); node != nullptr; node = node->NextSibling()) {
            if (node->ToText() != nullptr) {
                const std::string_view text = node->Value();
                if (text.find_first_not_of(" \t\n\v\f\r") != std::string_view::npos) {
                    warn(elem,
                         std::string("Text in element ") + quoted(elem.Name()) + " is ignored.");
                    return;
                }
            }
        }
    }

    void find_bad_numbers(const XMLElement& elem) {
        for (const XMLAttribute* attribute = elem.FirstAttribute(); attribute != nullptr;
             attribute = attribute->Next()) {
            if (is_harmless_number(attribute->Value())) {
                continue;
            }
            if (auto warning = find_number_warning(*attribute, syntax_of(elem, *attribute))) {
                m_id = warning->id;
                warn(elem, attribute->Name(), std::move(warning->message));
            }
        }
    }

    /// How the attribute has been read. The numbers are sorted when the first is looked up: most
    /// files have none that needs to be.
    xml::Syntax syntax_of(const XMLElement& elem, const XMLAttribute& attribute) {
        const auto is_before = [](const ReadNumber& a, const ReadNumber& b) {
            return std::tie(a.elem, a.attribute) < std::tie(b.elem, b.attribute);
        };
        if (m_numbers.empty()) {
            m_numbers = m_file.check->numbers();
            std::sort(m_numbers.begin(), m_numbers.end(), is_before);
        }
        const ReadNumber wanted = {&elem, attribute.Name(), xml::Syntax::Text};
        const auto found = std::lower_bound(m_numbers.begin(), m_numbers.end(), wanted, is_before);
        return found == m_numbers.end() || is_before(wanted, *found) ? wanted.syntax
                                                                     : found->syntax;
    }

    // ---- Resources ------------------------------------------------------------------------------

    void find_wrapping_alms(const XMLElement& elem) {
        std::uint32_t num = 0;
        const char* text = elem.Attribute("num");
        if (text != nullptr && xml::convert_to_unsigned(text, &num, 10) && num > GREATEST_32 / 2) {
            warn(elem, "num",
                 "The number of ALMs is too large: " + std::to_string(2 * num)
                     + " logic elements are used.");
        }
    }

    void find_too_many_resources(const XMLElement& elem) {
        const dmodel::DeviceModel* dm =
            m_file.model == nullptr ? nullptr : m_file.model->check->models().dm.get();
        if (dm == nullptr || !dm->has_resources()) {
            return;  // a file without an element loads, too
        }
        using dmodel::DeviceResources;
        struct Kind {
            const char* elements[2];
            std::uint32_t DeviceResources::*count;
            const char* name;
        };
        constexpr Kind KINDS[] = {
            {{"alms", "les"}, &DeviceResources::LEs, "logic elements"},
            {{"ffs", nullptr}, &DeviceResources::FFs, "flip-flops"},
            {{"dsps", nullptr}, &DeviceResources::DSPs, "DSP blocks"},
            {{"rams", nullptr}, &DeviceResources::RAMs, "block RAMs"},
        };
        for (const Kind& kind : KINDS) {
            const std::uint32_t used = m_spec->get_device_config().get_used_resources().*kind.count;
            const std::uint32_t available = dm->get_resources().*kind.count;
            if (used > available) {
                Finding& finding =
                    warn(find_counted(elem, kind.elements),
                         "The board uses " + std::to_string(used) + " " + kind.name
                             + ", more than the device has: " + std::to_string(available) + ".");
                add_device_note(kind.elements, &finding);
            }
        }
    }

    /// The last child of one of these names: it counts.
    static const XMLElement& find_counted(const XMLElement& list, const char* const (&names)[2]) {
        const XMLElement* counted = &list;
        for (const XMLElement* child = list.FirstChildElement(); child != nullptr;
             child = child->NextSiblingElement()) {
            for (const char* name : names) {
                if (name != nullptr && std::strcmp(name, child->Name()) == 0) {
                    counted = child;
                }
            }
        }
        return *counted;
    }

    void add_device_note(const char* const (&names)[2], Finding* finding) const {
        const XMLElement* resources =
            m_file.model->doc->RootElement()->FirstChildElement("resources");
        finding->notes.push_back({locate(*m_file.model, find_counted(*resources, names)),
                                  "the device is described here"});
    }

    // ---- Memories -------------------------------------------------------------------------------

    void find_duplicate_memory(const XMLElement& elem) {
        const char* name = elem.Attribute("name");
        if (name == nullptr || *name == '\0') {
            return;
        }
        const auto [first, is_new] = m_memories.emplace(name, &elem);
        if (!is_new) {
            warn(elem, "name",
                 "Global memory " + quoted(name)
                     + " is defined again: a lookup by name finds the last one.")
                .notes.push_back({value_location(*first->second, "name"), "it is defined here"});
        }
    }

    void find_nested_memory(const XMLElement& elem) {
        if (parent_name(elem) == "global_mem") {
            warn(elem, "A global memory in another one takes over the interfaces that follow.");
        }
    }

    void find_unused_interleaving(const XMLElement& elem) {
        const char* text = elem.Attribute("interleaved_bytes");
        const XMLElement* first = elem.FirstChildElement("interface");
        xml::unsigned64_hex bytes;
        if (text != nullptr && first != nullptr && first->NextSiblingElement("interface") == nullptr
            && xml::convert_word(text, &bytes) && bytes.value != 0) {
            warn(elem, "interleaved_bytes",
                 "Attribute 'interleaved_bytes' has no effect on a memory with one interface.");
        }
    }

    void find_wrapping_range(const XMLElement& elem) {
        const char* address_text = elem.Attribute("address");
        const char* size_text = elem.Attribute("size");
        xml::unsigned64_hex address;
        xml::unsigned64_hex size;
        if (parent_name(elem) != "global_mem" || address_text == nullptr || size_text == nullptr
            || !xml::convert_word(address_text, &address) || !xml::convert_word(size_text, &size)) {
            return;
        }
        // Each is cut to 32 bits first.
        const std::uint64_t begin = address.value & GREATEST_32;
        const std::uint64_t last = begin + (size.value & GREATEST_32) - 1;
        if (last > GREATEST_32) {
            warn(elem, "size",
                 "The address range wraps: it extends from " + hex_text(begin) + " to "
                     + hex_text(last) + ", which is " + hex_text(last & GREATEST_32)
                     + " in 32 bits.");
        }
    }

    // ---- Flows ----------------------------------------------------------------------------------

    bool has_named_flows() const { return m_spec->version >= board::BoardSpec::Version_17_0; }

    void find_duplicate_flow(const XMLElement& elem) {
        const char* name =
            has_named_flows() ? elem.Attribute("name") : board::CompileConfig::DEFAULT_CONFIG_NAME;
        if (name == nullptr) {
            return;
        }
        const auto [last, is_new] = m_flows.emplace(name, &elem);
        if (!is_new) {
            const XMLElement& replaced = *std::exchange(last->second, &elem);
            warn(replaced,
                 "Compile flow " + quoted(name) + " is replaced by a later one of that name.")
                .notes.push_back({locate(elem), "the later one is here"});
        }
    }

    void find_unusable_flow_name(const XMLElement& elem) {
        const char* text = has_named_flows() ? elem.Attribute("name") : nullptr;
        if (text == nullptr) {
            return;
        }
        const std::string_view name = text;
        if (name.empty()) {
            warn(elem, "name", "A compile flow with an empty name cannot be selected.");
        } else if (name.find(':') != std::string_view::npos) {
            warn(elem, "name",
                 "Compile flow " + quoted(text) + " cannot be selected: its name has a colon.");
        } else if (name.find(", ") != std::string_view::npos) {
            warn(elem, "name",
                 "The name " + quoted(text) + " looks like several names in a list of flows.");
        }
    }

    void find_ignored_name(const XMLElement& elem) {
        const char* name = elem.Attribute("name");
        if (!has_named_flows() && name != nullptr
            && std::strcmp(name, board::CompileConfig::DEFAULT_CONFIG_NAME) != 0) {
            warn(elem, "name",
                 "The name " + quoted(name) + " is ignored: before format 17.0, all compile flows "
                                              "have the name 'default'.");
        }
    }

    // ---- Elements without effect ----------------------------------------------------------------

    void find_overridden(const XMLElement& elem) {
        warn_if_overridden(elem, elem.NextSiblingElement(elem.Name()));
    }

    /// Of alms and les, the later one counts.
    void find_overridden_logic(const XMLElement& elem) {
        const XMLElement* alms = elem.FirstChildElement("alms");
        const XMLElement* les = elem.FirstChildElement("les");
        if (alms != nullptr && les != nullptr) {
            const bool is_les_later = alms->NextSiblingElement("les") == les;
            warn_if_overridden(is_les_later ? *alms : *les, is_les_later ? les : alms);
        }
    }

    void warn_if_overridden(const XMLElement& elem, const XMLElement* later) {
        if (later != nullptr) {
            warn(elem, "Element " + quoted(elem.Name()) + " is replaced by a later one.")
                .notes.push_back({locate(*later), "the later one is here"});
        }
    }

    void find_overridden_port_attributes(const XMLElement& elem) {
        std::unordered_map<std::string_view, const XMLElement*> attributes;
        for (const XMLElement* child = elem.FirstChildElement("attribute"); child != nullptr;
             child = child->NextSiblingElement("attribute")) {
            if (const char* name = child->Attribute("name")) {
                const auto [last, is_new] = attributes.emplace(name, child);
                if (!is_new) {
                    warn_if_overridden(*std::exchange(last->second, child), child);
                }
            }
        }
    }

    static bool is_ignored(const XMLElement& elem) {
        const std::string_view name = elem.Name();
        if (name == "port") {
            return parent_name(elem) == "global_mem";
        }
        if (name == "interface") {
            return parent_name(elem) == "port";
        }
        return name == "attribute" && parent_name(elem) == "port"
               && elem.Parent()->ToElement()->Attribute("attribute_width") == nullptr;
    }

    void find_ignored(const XMLElement& elem) {
        if (is_ignored(elem)) {
            const bool needs_width = std::strcmp(elem.Name(), "attribute") == 0;
            warn(elem, "Element " + quoted(elem.Name()) + " has no effect"
                           + (needs_width ? " in a port without 'attribute_width'." : " here."));
        }
    }

    // ---- Models ---------------------------------------------------------------------------------

    void find_shadowed_device_model(const XMLElement& elem) {
        find_shadowed_model(elem, "device_model");
    }

    void find_shadowed_target_model(const XMLElement& elem) {
        find_shadowed_model(elem, "target_model");
    }

    void find_shadowed_model(const XMLElement& elem, const char* attribute) {
        const char* name = elem.Attribute(attribute);
        if (name == nullptr || m_file.model == nullptr || m_file.model->path != name
            || FilePath::is_absolute(name)) {
            return;
        }
        const std::string beside = FilePath::append(FilePath::parent_path(m_file.path), name);
        std::error_code failed;
        if (FilePath::exists(beside) && !std::filesystem::equivalent(name, beside, failed)
            && !failed) {
            warn(elem, attribute,
                 "Model " + quoted(name) + " in the working directory is used, not '" + beside
                     + "'.");
        }
    }

    const PackageCheck::File& m_file;
    const board::BoardSpec* m_spec;  // null unless the file is a board
    const char* m_id = nullptr;      // of the current row
    std::unordered_map<std::string_view, const XMLElement*> m_memories;  // by name, the first
    std::unordered_map<std::string_view, const XMLElement*> m_flows;     // by name, the last
    std::vector<ReadNumber> m_numbers;  // sorted by element and name, or empty
    std::vector<Finding> m_findings;
};

// In this order for each element. The id of a number depends on what is wrong with it.
const Search::Row Search::ROWS[] = {
    {nullptr, "ignored-text", &Search::find_text},
    {nullptr, nullptr, &Search::find_bad_numbers},
    {"device", "shadowed-model", &Search::find_shadowed_device_model},
    {"device_model", "shadowed-model", &Search::find_shadowed_target_model},
    {"used_resources", "too-many-resources", &Search::find_too_many_resources},
    {"used_resources", "overridden-element", &Search::find_overridden_logic},
    {"alms", "wrapping-alms", &Search::find_wrapping_alms},
    {"compile", "duplicate-flow", &Search::find_duplicate_flow},
    {"compile", "unusable-flow-name", &Search::find_unusable_flow_name},
    {"compile", "ignored-name", &Search::find_ignored_name},
    {"generate", "overridden-element", &Search::find_overridden},
    {"synthesize", "overridden-element", &Search::find_overridden},
    {"auto_migrate", "overridden-element", &Search::find_overridden},
    {"include", "overridden-element", &Search::find_overridden},
    {"exclude", "overridden-element", &Search::find_overridden},
    {"global_mem", "duplicate-memory", &Search::find_duplicate_memory},
    {"global_mem", "nested-memory", &Search::find_nested_memory},
    {"global_mem", "unused-interleaving", &Search::find_unused_interleaving},
    {"interface", "wrapping-range", &Search::find_wrapping_range},
    {"interface", "ignored-element", &Search::find_ignored},
    {"port", "ignored-element", &Search::find_ignored},
    {"port", "overridden-element", &Search::find_overridden_port_attributes},
    {"attribute", "ignored-element", &Search::find_ignored},
};

void Search::check(const XMLElement& elem) {
    for (const Row& row : ROWS) {
        if (row.element == nullptr || std::strcmp(row.element, elem.Name()) == 0) {
            m_id = row.id;
            (this->*row.check)(elem);
        }
    }
}

}  // namespace

std::vector<Finding> find_warnings(const PackageCheck::File& file) {
    return file.check->loads() ? Search(file).run() : std::vector<Finding>();
}

}  // namespace vemo::lint
