#include "BoardDump/JsonDump.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include <nlohmann/json.hpp>

#include "BoardDump/FlowSources.h"
#include "BoardDump/InterfaceAttributes.h"
#include "BoardSpec/Words.h"

namespace vemo::dump {
namespace {

/// Members stay in the order given, and the models' single-precision figures keep their few digits.
using Json = nlohmann::basic_json<nlohmann::ordered_map, std::vector, std::string, bool,
                                  std::int64_t, std::uint64_t, float>;

constexpr int INDENTATION = 2;

/// For figures that are above 0 once given.
template <typename Number>
Json if_given(Number number) {
    return number > 0 ? Json(number) : Json(nullptr);
}

/// The word for an enumerator; null for a value that is none.
template <std::size_t N, typename Enumerator>
Json word(const std::string_view (&words)[N], Enumerator enumerator) {
    const auto index = static_cast<std::size_t>(enumerator);
    return index < N ? Json(words[index]) : Json(nullptr);
}

/// An array of what `describe_item` gives for each item.
template <typename Items, typename DescribeItem>
Json list(const Items& items, DescribeItem describe_item) {
    Json array = Json::array();
    for (const auto& item : items) {
        array.push_back(describe_item(item));
    }
    return array;
}

Json describe(const dmodel::DeviceResources& resources) {
    return {{"les", resources.LEs},
            {"ffs", resources.FFs},
            {"rams", resources.RAMs},
            {"dsps", resources.DSPs},
            {"mlabs", resources.MLABs}};
}

Json describe_port(const board::Port& port) {
    return {{"name", port.name},
            {"direction", word(board::DIRECTION_WORDS, port.direction)},
            {"hazard_free_attributes", port.hazard_free_attributes},
            {"attribute_width", port.attribute_width},
            {"attribute", list(port.attributes, [](const auto& attribute) -> Json {
                 return {{"name", attribute.first}, {"encoding", attribute.second}};
             })}};
}

Json describe(const AttributeValue& value) {
    return std::visit(
        [](const auto& alternative) {
            using Alternative = std::decay_t<decltype(alternative)>;
            if constexpr (std::is_same_v<Alternative, std::monostate>) {
                return Json(nullptr);
            } else {
                return Json(alternative);
            }
        },
        value);
}

Json describe_interface(const board::Interface* intf) {
    Json interface = Json::object();
    for (const InterfaceAttribute& attribute : INTERFACE_ATTRIBUTES) {
        interface[attribute.name] = describe(attribute.value(*intf));
    }
    Json& ports = interface["port"] = Json::array();
    for (unsigned i = 0; i < intf->get_num_ports(); ++i) {
        ports.push_back(describe_port(*intf->get_port(i)));
    }
    return interface;
}

Json describe_interfaces(const board::InterfaceList& list_of_interfaces) {
    return list(list_of_interfaces.get_interfaces(), describe_interface);
}

Json describe_flow(const board::CompileConfig& flow) {
    return {{"name", flow.name},
            {"project", flow.project},
            {"revision", flow.revision},
            {"lomb_file", flow.lomb_file},
            {"generic_kernel", flow.generic_kernel},
            {"generate",
             {{"cmd", flow.generate_cmd}, {"additional_args", flow.generate_additional_args}}},
            {"synthesize",
             {{"cmd", flow.synthesize_cmd}, {"additional_args", flow.synthesize_additional_args}}},
            {"auto_migrate",
             {{"platform_type", flow.automigrate_type},
              {"include", flow.automigrate_include},
              {"exclude", flow.automigrate_exclude}}}};
}

Json describe_memory(const board::GlobalMemConfig* memory) {
    return {{"name", memory->name},
            {"type", word(board::MEMORY_TYPE_WORDS, memory->get_type())},
            {"max_bandwidth", memory->get_max_bandwidth()},
            {"interleaved_bytes", if_given(memory->interleaved_bytes)},
            {"config_addr", memory->config_addr},
            {"min_address", memory->get_min_byte_address()},
            {"max_address", memory->get_max_byte_address()},
            {"interface", describe_interfaces(*memory)}};
}

Json describe(const board::DeviceConfig& device) {
    return {{"device_model", device.device_model},
            {"used_resources",
             device.has_used_resources() ? describe(device.get_used_resources()) : Json(nullptr)}};
}

Json describe(const board::ChannelConfig& config) {
    return Json::object({{"interface", describe_interfaces(config)}});
}

Json describe(const board::InterfaceConfig& config) {
    Json clk_reset;
    if (config.has_kernel_clk_reset()) {
        const board::KernelClkReset& signals = config.get_kernel_clk_reset();
        clk_reset = {{"clk", signals.clk}, {"clk2x", signals.clk2x}, {"reset", signals.reset}};
    }
    return {{"interface", describe_interfaces(config)}, {"kernel_clk_reset", std::move(clk_reset)}};
}

Json describe(const board::BoardSpec& spec, const std::vector<AnswerSources>& flows) {
    const board::HostConfig& host = spec.get_host_config();
    return {
        {"version", static_cast<float>(spec.version)},
        {"name", spec.name},
        {"device", describe(spec.get_device_config())},
        {"compile_names", spec.get_compile_config_names()},
        {"compile", list(flows, [](const auto& sources) { return describe_flow(*sources.flow); })},
        {"global_mem", list(spec.get_global_mem_configs(), describe_memory)},
        {"host",
         {{"kernel_config",
           {{"start", host.kernel_config_start}, {"size", host.get_kernel_config_size()}}}}},
        {"interfaces", describe(spec.get_interface_config())},
        {"channels",
         spec.has_channel_config() ? describe(spec.get_channel_config()) : Json(nullptr)}};
}

/// Both models know one version of their format, and write it as a number.
template <typename Model>
Json describe_version(const Model& model) {
    return model.version == Model::Version_0_9 ? Json(0.9f) : Json(nullptr);
}

Json describe(const dmodel::DeviceModel& dm) {
    return {{"version", describe_version(dm)},
            {"target_model", dm.target_model},
            {"fmax",
             {{"expected", dm.get_expected_fmax()},
              {"min", dm.get_min_fmax()},
              {"high", dm.get_high_fmax()}}},
            {"resources", dm.has_resources() ? describe(dm.get_resources()) : Json(nullptr)}};
}

Json describe(const tmodel::LocalMemFmaxDegradationModel& model) {
    return {{"group_per_all_rams", model.get_group_per_all_rams()},
            {"total_per_all_rams", model.get_total_per_all_rams()},
            {"per_coalescing_width", model.get_per_coalescing_width()},
            {"per_log2_num_banks", model.get_per_log2_num_banks()},
            {"per_port_fanin", model.get_per_port_fanin()}};
}

Json describe(const tmodel::LocalMemModel& model) {
    return {{"single_port_mem_block_width", model.get_single_port_mem_block_width()},
            {"single_port_mem_block_depth", model.get_single_port_mem_block_depth()},
            {"dual_port_mem_block_width", model.get_dual_port_mem_block_width()},
            {"dual_port_mem_block_depth", model.get_dual_port_mem_block_depth()},
            {"bursting_lsu_cache_size_n", model.get_bursting_lsu_cache_size_n()},
            {"single_port_mem_block_supports_rdw_mode_old_data",
             model.get_single_port_mem_block_supports_rdw_mode_old_data()},
            {"dual_port_mem_block_supports_rdw_mode_old_data",
             model.get_dual_port_mem_block_supports_rdw_mode_old_data()},
            {"fmax_degradation", model.has_fmax_degradation_model()
                                     ? describe(model.get_fmax_degradation_model())
                                     : Json(nullptr)}};
}

Json describe(const tmodel::GlobalInterconnectModel& model) {
    return {{"arb2_data_pipe_spacing", model.get_arb2_data_pipe_spacing()},
            {"arb2_data_pipe_min_depth", model.get_arb2_data_pipe_min_depth()},
            {"arb2_stall_pipe_spacing", model.get_arb2_stall_pipe_spacing()},
            {"arb2_stall_pipe_min_depth", model.get_arb2_stall_pipe_min_depth()},
            {"arb2_pipe_at_output", model.get_arb2_pipe_at_output()},
            {"arb2_test_add_latency", model.get_arb2_test_add_latency()}};
}

Json describe(const tmodel::DelayModel& model) {
    return {{"alm_delay_ps", model.alm_delay_ps}, {"routing_delay_ps", model.routing_delay_ps}};
}

Json describe(const tmodel::FamilyModel& model) {
    return {{"bits_per_alm", model.bits_per_alm},
            {"lut_inputs", model.lut_inputs},
            {"mux_inputs", model.mux_inputs},
            {"preferred_dsp_dot_size", model.preferred_dsp_dot_size},
            {"block_ram_name", model.block_ram_name},
            {"alm_rom_name", model.alm_rom_name}};
}

Json describe(const tmodel::TargetModel& tm) {
    return {
        {"version", describe_version(tm)},
        {"family", tmodel::find_target_family_key(tm.family)},
        {"family_name", tm.get_family_str()},
        {"style_model", tm.style_models},
        {"local_mem",
         tm.has_local_mem_model() ? describe(tm.get_local_mem_model()) : Json(nullptr)},
        {"global_interconnect", tm.has_global_interconnect_model()
                                    ? describe(tm.get_global_interconnect_model())
                                    : Json(nullptr)},
        {"delay_model", tm.has_delay_model() ? describe(tm.get_delay_model()) : Json(nullptr)},
        {"family_info", tm.has_family_model() ? describe(tm.get_family_model()) : Json(nullptr)}};
}

Json describe_files(const AnswerSources& sources) {
    return {{"board", sources.files->board},
            {"device_model", sources.dm_resolved_path},
            {"target_model", sources.tm_resolved_path},
            {"candidates", sources.files->candidates}};
}

Json describe_answers(const AnswerSources& sources) {
    Json answers = Json::object();
    for (const Answer& answer : ANSWERS) {
        answers[answer.command] = answer.text(sources);
    }
    return answers;
}

Json describe_flow_answers(const AnswerSources& sources) {
    Json answers = Json::object({{"name", sources.flow->name}});
    for (const char* command : COMPILE_FLOW_COMMANDS) {
        answers[command] = *find_answer(command, sources);
    }
    return answers;
}

}  // namespace

std::string json_dump(const AnswerSources& sources) {
    const std::vector<AnswerSources> flows = sources_of_flows(sources);
    const Json dump = {{"files", describe_files(sources)},
                       {"answers", describe_answers(sources)},
                       {"flows", list(flows, describe_flow_answers)},
                       {"board", describe(*sources.spec, flows)},
                       {"device_model", describe(*sources.dm)},
                       {"target_model", describe(*sources.tm)}};
    return dump.dump(INDENTATION, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace vemo::dump
