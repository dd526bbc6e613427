#include "BoardSpecXml/CompileVisitor.h"

#include <iterator>
#include <memory>
#include <string_view>

#include "Base/Assert.h"
#include "Base/WordTable.h"

namespace vemo::board::xml {
namespace {

constexpr const char* COMPILE_ATTRIBUTES[] = {"name", "project", "revision", "lomb_file",
                                              "generic_kernel"};
constexpr const char* COMMAND_ATTRIBUTES[] = {"cmd", "additional_args"};

// Two general settings, then the reference board platforms.
constexpr std::string_view PLATFORM_TYPES[] = {"none",     "auto",     "pb_net", "dbsoc",
                                               "obsoc",    "rcfx_7.x", "oc_ref", "tsk_jtag",
                                               "tsk_pcie", "ocsoc",    "pc_ref"};

constexpr std::string_view FALSE_WORDS[] = {"false", "0"};
constexpr std::string_view TRUE_WORDS[] = {"", "true", "1"};

}  // namespace

const CompileVisitor::ElementHandler<CompileVisitor> CompileVisitor::HANDLERS[] = {
    {"compile", &CompileVisitor::visit_compile_elem},
    {"auto_migrate", &CompileVisitor::visit_auto_migration_elem},
    {"generate", &CompileVisitor::visit_generate_elem},
    {"synthesize", &CompileVisitor::visit_synthesize_elem},
};

CompileVisitor::CompileVisitor(BaseVisitor* parent, BoardSpec* spec)
    : BaseVisitor(parent), m_spec(spec) {
    VEMO_ASSERT(spec != NULL);
}

bool CompileVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    if (find_handler(HANDLERS) == nullptr && check_element_stack(2, "compile", "auto_migrate")) {
        return visit_auto_migration_single_elem(elem);
    }
    return dispatch(this, elem, HANDLERS);
}

bool CompileVisitor::visit_compile_elem(const XMLElement& elem) {
    const vemo::xml::FoundAttributes attributes(elem, COMPILE_ATTRIBUTES);
    if (!(report_unexpected_elem_stack(elem, 0) && report_unexpected_attrs(elem, attributes))) {
        return !m_has_error;
    }
    std::string name = CompileConfig::DEFAULT_CONFIG_NAME;
    if (!has_unnamed_flows()) {
        name.clear();
        query_attribute(elem, attributes["name"], &name, REPORT, REQUIRED);
    }
    auto config = std::make_unique<CompileConfig>();
    config->name = name;
    m_config = config.release();
    m_spec->set_compile_config(m_config, name);

    if (!m_has_error
        && query_attribute(elem, attributes["project"], &m_config->project, REPORT, REQUIRED)
        && query_attribute(elem, attributes["revision"], &m_config->revision, REPORT, REQUIRED)
        && query_attribute(elem, attributes["lomb_file"], &m_config->lomb_file, REPORT, REQUIRED)) {
        query_attribute(elem, attributes["generic_kernel"], &m_config->generic_kernel, REPORT,
                        REQUIRED);
    }
    return !m_has_error;
}

// A second one of these in a flow of 17.0 or later is a broken invariant at any position: the
// assertions come before the checks of position.

bool CompileVisitor::visit_generate_elem(const XMLElement& elem) {
    VEMO_ASSERT(!m_config->has_generate());
    return read_command(elem, &m_config->generate_cmd, &m_config->generate_additional_args);
}

bool CompileVisitor::visit_synthesize_elem(const XMLElement& elem) {
    VEMO_ASSERT(!m_config->has_synthesis());
    return read_command(elem, &m_config->synthesize_cmd, &m_config->synthesize_additional_args);
}

bool CompileVisitor::read_command(const XMLElement& elem, std::string* cmd, bool* additional_args) {
    const vemo::xml::FoundAttributes attributes(elem, COMMAND_ATTRIBUTES);
    const char* text = nullptr;
    if (report_unexpected_elem_stack(elem, 1, "compile")
        && report_unexpected_attrs(elem, attributes)
        && query_attribute(elem, attributes["cmd"], cmd, REPORT, REQUIRED)
        && query_attribute(elem, attributes["additional_args"], &text, REPORT, OPTIONAL)) {
        *additional_args = has_additional_args(elem, text);
    }
    return !m_has_error;
}

bool CompileVisitor::has_additional_args(const XMLElement& elem, std::string_view text) {
    if (index_of_word(TRUE_WORDS, text) < std::size(TRUE_WORDS)) {
        return true;
    }
    if (index_of_word(FALSE_WORDS, text) == std::size(FALSE_WORDS)) {
        report_attr_error(elem, "additional_args",
                          "additional_args must be a boolean (true or false) or unspecified.",
                          {"unknown-word", {"true", "false"}});
    }
    return false;
}

bool CompileVisitor::visit_auto_migration_elem(const XMLElement& elem) {
    VEMO_ASSERT(!m_config->has_automigrate());
    const char* platform_type = "";
    if (report_unexpected_elem_stack(elem, 1, "compile")
        && report_unexpected_attrs(elem, 1, "platform_type")
        && query_attribute(elem, "platform_type", &platform_type, REPORT, REQUIRED)) {
        m_config->automigrate_type = platform_type;
    }
    // Made after a failure, too: then the type is empty, and a second message follows the first.
    if (index_of_word(PLATFORM_TYPES, platform_type) == std::size(PLATFORM_TYPES)) {
        return report_error(
            elem, "Board auto migration platform_type is invalid",
            {"unknown-word", texts_of_words(PLATFORM_TYPES), nullptr, "platform_type"});
    }
    return !m_has_error;
}

bool CompileVisitor::visit_auto_migration_single_elem(const XMLElement& elem) {
    const char* fixes = nullptr;
    if (!(report_unexpected_elem_stack(elem, 2, "compile", "auto_migrate")
          && report_unexpected_attrs(elem, 1, "fixes")
          && query_attribute(elem, "fixes", &fixes, REPORT, REQUIRED))) {
        return !m_has_error;
    }
    const std::string_view name = current_name();
    if (name == "include") {
        m_config->automigrate_include = fixes;
    } else if (name == "exclude") {
        m_config->automigrate_exclude = fixes;
    } else {
        return report_unexpected_elem(elem, "", {nullptr, {"include", "exclude"}});
    }
    return !m_has_error;
}

bool CompileVisitor::VisitExit(const XMLElement& elem) {
    if (!m_has_error) {
        if (has_unnamed_flows()) {
            if (!leave_unnamed_flow_elem(elem)) {
                return false;
            }
        } else {
            leave_named_flow_elem();
        }
    }
    return BaseVisitor::VisitExit(elem);
}

bool CompileVisitor::has_unnamed_flows() const { return m_spec->version < BoardSpec::Version_17_0; }

bool CompileVisitor::leave_unnamed_flow_elem(const XMLElement& elem) {
    const std::string_view name = current_name();
    if (name == "compile" && m_spec->version < BoardSpec::Version_14_1) {
        return report_error(elem, "Compile not supported in this version.",
                            {"compile-before-14.1"});
    }
    if (name == "auto_migrate") {
        return report_unexpected_elem_count(elem, 1, 3, "compile", "auto_migrate", "include")
               && report_unexpected_elem_count(elem, 1, 3, "compile", "auto_migrate", "exclude");
    }
    return true;
}

void CompileVisitor::leave_named_flow_elem() {
    const std::string_view name = current_name();
    CompileConfig* compile_config = m_config;
    if (name == "auto_migrate") {
        compile_config->automigrate_present = true;
    } else if (name == "generate") {
        compile_config->generate_present = true;
    } else if (name == "synthesize") {
        compile_config->synthesis_present = true;
    } else if (name == "compile") {
        VEMO_ASSERT(compile_config->has_automigrate() && compile_config->has_generate()
                    && compile_config->has_synthesis());
    }
}

}  // namespace vemo::board::xml
