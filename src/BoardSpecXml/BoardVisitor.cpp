#include "BoardSpecXml/BoardVisitor.h"

#include <cstdlib>
#include <memory>
#include <string_view>

#include "Base/Assert.h"
#include "BoardSpec/MemoryOverlap.h"
#include "BoardSpecXml/ChannelsVisitor.h"
#include "BoardSpecXml/CompileVisitor.h"
#include "BoardSpecXml/DeviceVisitor.h"
#include "BoardSpecXml/GlobalMemVisitor.h"
#include "BoardSpecXml/HostVisitor.h"
#include "BoardSpecXml/InterfacesVisitor.h"

namespace vemo::board::xml {
namespace {

/// The flow of a 0.9 board, which cannot describe one.
CompileConfig* new_built_in_flow() {
    auto config = std::make_unique<CompileConfig>();
    config->project = "top";
    config->revision = "top";
    config->lomb_file = "system.lomb";
    config->generate_cmd =
        "kitforge --component-file=system.lomb --file-set=FENDRA_SYNTH"
        " --output-directory=system/synthesis --report-file=zrk:system/synthesis/system.zrk"
        " --jvm-max-heap-size=3G";
    config->synthesize_cmd = "fendra_sh --flow compile top";
    config->automigrate_type = "auto";
    return config.release();
}

}  // namespace

const BoardVisitor::ElementHandler<BoardVisitor> BoardVisitor::HANDLERS[] = {
    {"board", &BoardVisitor::visit_board_elem},
    {"device", &BoardVisitor::visit_device_elem},
    {"compile", &BoardVisitor::visit_compile_elem},
    {"global_mem", &BoardVisitor::visit_global_mem_elem},
    {"host", &BoardVisitor::visit_host_elem},
    {"channels", &BoardVisitor::visit_channels_elem},
    {"interfaces", &BoardVisitor::visit_interfaces_elem},
};

BoardVisitor::BoardVisitor(BoardSpec* spec, vemo::xml::VisitorCallbacks* callbacks, bool debug,
                           bool skip_overlap)
    : BaseVisitor(callbacks, debug), m_spec(spec), m_skip_overlap(skip_overlap) {
    VEMO_ASSERT(spec != NULL);
}

bool BoardVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    return dispatch(this, elem, HANDLERS);
}

bool BoardVisitor::visit_board_elem(const XMLElement& elem) {
    const char* version_text = nullptr;
    if (!(report_unexpected_elem_stack(elem, 0) && report_unexpected_elem_stack_count(elem, 1)
          && report_unexpected_attrs(elem, 2, "version", "name")
          && query_attribute(elem, "version", &version_text, REPORT, REQUIRED))) {
        return !m_has_error;
    }
    // As the C library reads it: "14.1x" is 14.1, and a NaN is "not less than" any version.
    const auto version = static_cast<float>(std::strtod(version_text, nullptr));
    hand_out_syntax(elem, "version", vemo::xml::Syntax::Version);
    if (version != BoardSpec::Version_0_9 && version < BoardSpec::Version_14_1) {
        return report_attr_error(elem, "version", "Unsupported version string.",
                                 {"unsupported-version", {"17.0", "14.1", "0.9"}});
    }
    m_spec->version = version;
    query_attribute(elem, "name", &m_spec->name, REPORT, REQUIRED);
    return !m_has_error;
}

bool BoardVisitor::check_section(const XMLElement& elem) {
    return report_unexpected_elem_stack(elem, 1, "board");
}

bool BoardVisitor::check_single_section(const XMLElement& elem) {
    return check_section(elem) && report_unexpected_elem_stack_count(elem, 1);
}

bool BoardVisitor::visit_device_elem(const XMLElement& elem) {
    return check_single_section(elem) && delegate<DeviceVisitor>(elem, m_spec);
}

bool BoardVisitor::visit_compile_elem(const XMLElement& elem) {
    return check_section(elem) && delegate<CompileVisitor>(elem, m_spec);
}

bool BoardVisitor::visit_global_mem_elem(const XMLElement& elem) {
    if (!check_section(elem)) {
        return false;
    }
    delegate<GlobalMemVisitor>(elem, m_spec);
    if (has_report_sink()) {
        m_memory_elems.resize(m_spec->get_num_global_mem_definitions(), &elem);
    }
    return false;
}

bool BoardVisitor::visit_host_elem(const XMLElement& elem) {
    return check_single_section(elem) && delegate<HostVisitor>(elem, m_spec);
}

bool BoardVisitor::visit_channels_elem(const XMLElement& elem) {
    return check_single_section(elem) && delegate<ChannelsVisitor>(elem, m_spec);
}

bool BoardVisitor::visit_interfaces_elem(const XMLElement& elem) {
    return check_single_section(elem) && delegate<InterfacesVisitor>(elem, m_spec);
}

bool BoardVisitor::VisitExit(const XMLDocument& doc) {
    if (m_has_error) {
        return false;
    }
    if (!m_spec->has_device_config()) {
        return report_error("Missing device configuration (<device>) in board specification.",
                            {"missing-element", {}, "device"});
    }
    if (!m_spec->has_global_mem_config()) {
        return report_error(
            "Missing global memory configuration (<global_mem>) in board specification.",
            {"missing-element", {}, "global_mem"});
    }
    if (!m_skip_overlap && has_overlapping_memories(m_spec->get_global_mem_configs())) {
        return report_error("Global memory regions overlap.",
                            {"memory-overlap", {}, nullptr, nullptr, find_overlaps()});
    }
    if (!m_spec->has_host_config()) {
        return report_error("Missing host configuration (<host>) in board specification.",
                            {"missing-element", {}, "host"});
    }
    if (!m_spec->has_interface_config()) {
        return report_error(
            "Missing interface configuration (<interfaces>) in board specification.",
            {"missing-element", {}, "interfaces"});
    }
    return check_compile_configs() && BaseVisitor::VisitExit(doc);
}

std::vector<vemo::xml::ElementPair> BoardVisitor::find_overlaps() const {
    std::vector<vemo::xml::ElementPair> pairs;
    if (has_report_sink()) {
        for (const auto& [first, second] :
             overlapping_memories(m_spec->get_global_mem_configs(), vemo::xml::MAX_PAIRS)) {
            pairs.push_back({m_memory_elems[first], m_memory_elems[second]});
        }
    }
    return pairs;
}

bool BoardVisitor::check_compile_configs() {
    const bool has_compile_config = m_spec->num_compile_configs() > 0;
    if (m_spec->version == BoardSpec::Version_0_9) {
        if (has_compile_config) {
            return report_error(
                "Unexpected compile configuration (<compile>) found in 0.9 board specification.",
                {"compile-before-14.1"});
        }
        m_spec->set_compile_config(new_built_in_flow(), CompileConfig::DEFAULT_CONFIG_NAME);
    } else if (!has_compile_config) {
        return report_error("Missing compile configuration (<compile>) in board specification.",
                            {"missing-element", {}, "compile"});
    }
    return true;
}

}  // namespace vemo::board::xml
