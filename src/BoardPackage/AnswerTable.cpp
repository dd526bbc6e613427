#include "BoardPackage/AnswerTable.h"

#include <algorithm>

#include "Base/JoinedList.h"

namespace vemo {
namespace {

using board::CompileConfig;
using board::Interface;

/// The answer that is a field of the chosen compile flow.
template <std::string CompileConfig::*Field>
std::string flow_text(const AnswerSources& sources) {
    return sources.flow->*Field;
}

std::string flag_text(bool flag) { return flag ? "1" : "0"; }

std::string generic_kernel(const AnswerSources& sources) {
    return flag_text(sources.flow->generic_kernel);
}

std::string channel_names(const AnswerSources& sources) {
    std::string names;
    if (sources.spec->has_channel_config()) {
        append_joined(names, sources.spec->get_channel_config().get_interfaces(),
                      [](const Interface* intf) -> const std::string& { return intf->chan_id; });
    }
    return names;
}

std::string compile_flow_names(const AnswerSources& sources) {
    return sources.spec->get_string_of_board_compile_config_names();
}

std::string default_flow_name(const AnswerSources& sources) {
    return sources.spec->get_compile_config_names().front();
}

std::string device_model(const AnswerSources& sources) {
    return sources.spec->get_device_config().device_model;
}

std::string global_mem_names(const AnswerSources& sources) {
    std::string names;
    sources.spec->get_string_of_board_global_interface_names(names);
    return names;
}

std::string has_snoop(const AnswerSources& sources) {
    const auto& interfaces = sources.spec->get_interface_config().get_interfaces();
    return flag_text(std::any_of(interfaces.begin(), interfaces.end(), [](const Interface* intf) {
        return intf->get_type() == Interface::StreamSource;
    }));
}

std::string board_name(const AnswerSources& sources) { return sources.spec->name; }

std::string num_compile_flows(const AnswerSources& sources) {
    return std::to_string(sources.spec->num_compile_configs());
}

std::string num_global_mems(const AnswerSources& sources) {
    return std::to_string(sources.spec->get_num_global_mem_definitions());
}

std::string resolved_device_model(const AnswerSources& sources) { return sources.dm_resolved_path; }

std::string resolved_target_model(const AnswerSources& sources) { return sources.tm_resolved_path; }

std::string target_model(const AnswerSources& sources) { return sources.dm->target_model; }

std::string board_version(const AnswerSources& sources) { return to_string(sources.spec->version); }

constexpr Answer ANSWER_ROWS[] = {
    {"automigrate_exclude", flow_text<&CompileConfig::automigrate_exclude>},
    {"automigrate_include", flow_text<&CompileConfig::automigrate_include>},
    {"automigrate_type", flow_text<&CompileConfig::automigrate_type>},
    {"channelnames", channel_names},
    {"compileflownames", compile_flow_names},
    {"defaultname", default_flow_name},
    {"devicemodel", device_model},
    {"generate_cmd", flow_text<&CompileConfig::generate_cmd>},
    {"generic_kernel", generic_kernel},
    {"globalmemnames", global_mem_names},
    {"has_snoop", has_snoop},
    {"lomb_file", flow_text<&CompileConfig::lomb_file>},
    {"name", board_name},
    {"numcompileflows", num_compile_flows},
    {"numglobalmems", num_global_mems},
    {"project", flow_text<&CompileConfig::project>},
    {"resolved_devicemodel", resolved_device_model},
    {"resolved_targetmodel", resolved_target_model},
    {"revision", flow_text<&CompileConfig::revision>},
    {"synthesize_cmd", flow_text<&CompileConfig::synthesize_cmd>},
    {"targetmodel", target_model},
    {"version", board_version},
};

constexpr const char* COMPILE_FLOW_COMMAND_ROWS[] = {
    "project",
    "revision",
    "lomb_file",
    "generic_kernel",
    "generate_cmd",
    "synthesize_cmd",
    "automigrate_type",
    "automigrate_include",
    "automigrate_exclude",
};

}  // namespace

const ArrayView<Answer> ANSWERS = ANSWER_ROWS;
const ArrayView<const char*> COMPILE_FLOW_COMMANDS = COMPILE_FLOW_COMMAND_ROWS;

std::optional<std::string> find_answer(std::string_view command, const AnswerSources& sources) {
    for (const Answer& answer : ANSWERS) {
        if (command == answer.command) {
            return answer.text(sources);
        }
    }
    return std::nullopt;
}

}  // namespace vemo
