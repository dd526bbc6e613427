#include "BoardSpecXml/GlobalMemVisitor.h"

#include <iterator>
#include <memory>
#include <string_view>
#include <utility>

#include "Base/Assert.h"
#include "Base/WordTable.h"
#include "BoardSpec/Words.h"
#include "BoardSpecXml/InterfaceVisitor.h"

namespace vemo::board::xml {
namespace {

using vemo::xml::ElementPair;
using vemo::xml::MAX_PAIRS;
using vemo::xml::unsigned64_hex;

constexpr const char* ATTRIBUTES[] = {"name", "max_bandwidth", "interleaved_bytes", "type",
                                      "config_addr"};

// Of a memory's interface, in the order of the test.
constexpr const char* REQUIRED_INTERFACE_ATTRIBUTES[] = {"name", "type", "width", "address",
                                                         "size"};

/// The element of the board's first memory.
const tinyxml2::XMLElement* first_memory_elem(const tinyxml2::XMLElement& elem) {
    return elem.GetDocument()->RootElement()->FirstChildElement("global_mem");
}

}  // namespace

const GlobalMemVisitor::ElementHandler<GlobalMemVisitor> GlobalMemVisitor::HANDLERS[] = {
    {"global_mem", &GlobalMemVisitor::visit_global_mem_elem},
    {"interface", &GlobalMemVisitor::visit_interface_elem},
};

GlobalMemVisitor::GlobalMemVisitor(BaseVisitor* parent, BoardSpec* spec)
    : BaseVisitor(parent), m_spec(spec) {
    VEMO_ASSERT(spec != NULL);
}

bool GlobalMemVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    if (current_name() == "port") {
        return false;  // the interface's own visitor has read it
    }
    return dispatch(this, elem, HANDLERS);
}

bool GlobalMemVisitor::visit_global_mem_elem(const XMLElement& elem) {
    // Its position is not checked: inside another memory it becomes a memory of its own, and gets
    // the interfaces that follow.
    const vemo::xml::FoundAttributes attributes(elem, ATTRIBUTES);
    if (!report_unexpected_attrs(elem, attributes)) {
        return !m_has_error;
    }
    auto global_mem = std::make_unique<GlobalMemConfig>();

    // No file gets this far with "default": the list above does not allow it.
    int default_value = 0;
    if (query_attribute(elem, "default", &default_value, REPORT, OPTIONAL)
        && static_cast<unsigned>(default_value) > 1) {
        return report_attr_error(elem, "default",
                                 "Global memmory attribute 'default' must equal to  0 or 1.",
                                 {"out-of-range", {"0", "1"}});
    }
    m_global_mem = global_mem.release();
    m_interface_elems.clear();
    m_spec->add_global_mem_config(m_global_mem, (default_value & 1) != 0);

    float max_bandwidth = 0.0f;
    if (!m_has_error
        && query_attribute(elem, attributes["max_bandwidth"], &max_bandwidth, REPORT, REQUIRED)) {
        if (max_bandwidth < 0.0f) {
            return report_attr_error(elem, "max_bandwidth",
                                     "Max global memory bandwidth must be non-negative.",
                                     {"out-of-range", {"0"}});
        }
        m_global_mem->set_max_bandwidth(max_bandwidth);
    }
    const char* type_word = nullptr;
    if (!m_has_error && query_attribute(elem, attributes["type"], &type_word, REPORT, OPTIONAL)) {
        const std::size_t type = index_of_word(MEMORY_TYPE_WORDS, type_word);
        if (type == std::size(MEMORY_TYPE_WORDS)) {
            return report_attr_error(elem, "type",
                                     std::string("Unrecognized type '") + type_word + "'.",
                                     {"unknown-word", texts_of_words(MEMORY_TYPE_WORDS)});
        }
        m_global_mem->set_type(static_cast<GlobalMemConfig::Type>(type));
    }
    unsigned64_hex number;  // its low 32 bits count
    if (!m_has_error
        && query_attribute(elem, attributes["interleaved_bytes"], &number, REPORT, OPTIONAL)) {
        m_global_mem->interleaved_bytes = static_cast<unsigned>(number.value);
    }
    if (!m_has_error) {
        query_attribute(elem, attributes["name"], &m_global_mem->name, REPORT, OPTIONAL);
    }
    // Made after an error, too. It is enough to look at the first and at the last memory: those
    // between have passed when they were the last.
    if (m_spec->get_num_global_mem_definitions() > 1
        && (m_spec->get_global_mem_config().name.empty() || m_global_mem->name.empty())) {
        return report_error(
            elem,
            "All global memories must have a name when there are more than 1 "
            "global memories.",
            {"unnamed-memory",
             {},
             nullptr,
             "name",
             {{m_global_mem->name.empty() ? &elem : first_memory_elem(elem), nullptr}}});
    }
    if (!m_has_error
        && query_attribute(elem, attributes["config_addr"], &number, REPORT, OPTIONAL)) {
        m_global_mem->config_addr = static_cast<unsigned>(number.value);
    }
    return !m_has_error;
}

bool GlobalMemVisitor::visit_interface_elem(const XMLElement& elem) {
    InterfaceVisitor reader(this, REQUIRED_INTERFACE_ATTRIBUTES);
    if (!walk_with(elem, &reader)) {
        return false;
    }
    VEMO_ASSERT(m_global_mem != NULL);
    InterfacePtr intf(reader.release_intf());
    if (intf->get_type() != Interface::Slave) {
        return report_error(elem, "Global memory interface must be a slave.",
                            {"wrong-interface-type", {"slave"}, nullptr, "type"});
    }
    m_global_mem->add_interface(std::move(intf));
    if (has_report_sink()) {
        m_interface_elems.push_back(&elem);
    }
    // All children are ports, or the interface's own visitor had reported them: that this visitor
    // walks them as well could only be traced.
    return is_tracing();
}

bool GlobalMemVisitor::VisitExit(const XMLElement& elem) {
    if (!m_has_error && current_name() == "global_mem" && !check_interfaces(elem)) {
        return false;
    }
    return BaseVisitor::VisitExit(elem);
}

bool GlobalMemVisitor::check_interfaces(const XMLElement& elem) {
    if (m_global_mem->get_num_intfs() == 0) {
        return report_error(elem, "At least one global memory interface must be defined.",
                            {"missing-element", {}, "interface"});
    }
    const Interface& first = m_global_mem->get_intf(0);
    for (const Interface* intf : m_global_mem->get_interfaces()) {
        if (intf->get_data_width() != first.get_data_width()) {
            return report_error(elem, "All global memory interfaces must have the same data width.",
                                {"interface-widths-differ",
                                 {},
                                 nullptr,
                                 "width",
                                 find_different(&Interface::get_data_width)});
        }
        if (intf->get_max_burst_count() != first.get_max_burst_count()) {
            return report_error(elem,
                                "All global memory interfaces must have the same max burst count.",
                                {"interface-bursts-differ",
                                 {},
                                 nullptr,
                                 "maxburst",
                                 find_different(&Interface::get_max_burst_count)});
        }
    }
    return true;
}

std::vector<ElementPair> GlobalMemVisitor::find_different(unsigned (Interface::*get)()
                                                              const) const {
    std::vector<ElementPair> pairs;
    const auto& interfaces = m_global_mem->get_interfaces();
    for (std::size_t i = 1; i < m_interface_elems.size() && pairs.size() < MAX_PAIRS; ++i) {
        if ((interfaces[i]->*get)() != (interfaces[0]->*get)()) {
            pairs.push_back({m_interface_elems[0], m_interface_elems[i]});
        }
    }
    return pairs;
}

}  // namespace vemo::board::xml
