#include "BoardDump/JsonDump.h"

#include <cstddef>
#include <vector>

#include "BoardDump/FlowSources.h"
#include "BoardDump/InterfaceAttributes.h"
#include "BoardDump/JsonWriter.h"
#include "BoardDump/MemoryAttributes.h"
#include "BoardSpec/Words.h"
#include "vemo-boardspec-version.h"

namespace vemo::dump {
namespace {

/// The member `name`: an object that `write_members` fills, or null for a part that is not there.
template <typename WriteMembers>
void write_part(JsonWriter& json, const char* name, bool is_present, WriteMembers write_members) {
    if (!is_present) {
        json.value({}, name);
        return;
    }
    json.begin_object(name);
    write_members();
    json.end();
}

template <typename Object, typename Attribute>
void write_attributes(JsonWriter& json, const Object& object,
                      const ArrayView<Attribute>& attributes) {
    for (const Attribute& attribute : attributes) {
        json.value(attribute.value(object), attribute.name);
    }
}

void write_resources(JsonWriter& json, const dmodel::DeviceResources& resources) {
    json.members({{"les", resources.LEs},
                  {"ffs", resources.FFs},
                  {"rams", resources.RAMs},
                  {"dsps", resources.DSPs},
                  {"mlabs", resources.MLABs}});
}

void write_port(JsonWriter& json, const board::Port& port) {
    json.begin_object();
    json.members({{"name", port.name},
                  {"direction",
                   word_value(board::DIRECTION_WORDS, static_cast<std::size_t>(port.direction))},
                  {"hazard_free_attributes", port.hazard_free_attributes},
                  {"attribute_width", port.attribute_width}});
    json.begin_array("attribute");
    for (const auto& [name, encoding] : port.attributes) {
        json.begin_object();
        json.members({{"name", name}, {"encoding", encoding}});
        json.end();
    }
    json.end();
    json.end();
}

void write_interfaces(JsonWriter& json, const board::InterfaceList& interfaces) {
    json.begin_array("interface");
    for (const board::Interface* intf : interfaces.get_interfaces()) {
        json.begin_object();
        write_attributes(json, *intf, INTERFACE_ATTRIBUTES);
        json.begin_array("port");
        for (unsigned i = 0; i < intf->get_num_ports(); ++i) {
            write_port(json, *intf->get_port(i));
        }
        json.end();
        json.end();
    }
    json.end();
}

void write_flow(JsonWriter& json, const board::CompileConfig& flow) {
    json.begin_object();
    json.members({{"name", flow.name},
                  {"project", flow.project},
                  {"revision", flow.revision},
                  {"lomb_file", flow.lomb_file},
                  {"generic_kernel", flow.generic_kernel}});
    json.begin_object("generate");
    json.members({{"cmd", flow.generate_cmd}, {"additional_args", flow.generate_additional_args}});
    json.end();
    json.begin_object("synthesize");
    json.members(
        {{"cmd", flow.synthesize_cmd}, {"additional_args", flow.synthesize_additional_args}});
    json.end();
    json.begin_object("auto_migrate");
    json.members({{"platform_type", flow.automigrate_type},
                  {"include", flow.automigrate_include},
                  {"exclude", flow.automigrate_exclude}});
    json.end();
    json.end();
}

void write_compile(JsonWriter& json, const board::BoardSpec& spec,
                   const std::vector<AnswerSources>& flows) {
    json.begin_array("compile_names");
    for (const std::string& name : spec.get_compile_config_names()) {
        json.value(name);
    }
    json.end();
    json.begin_array("compile");
    for (const AnswerSources& flow : flows) {
        write_flow(json, *flow.flow);
    }
    json.end();
}

void write_memories(JsonWriter& json, const std::vector<board::GlobalMemConfig*>& memories) {
    json.begin_array("global_mem");
    for (const board::GlobalMemConfig* memory : memories) {
        json.begin_object();
        write_attributes(json, *memory, MEMORY_ATTRIBUTES);
        write_interfaces(json, *memory);
        json.end();
    }
    json.end();
}

void write_board(JsonWriter& json, const board::BoardSpec& spec,
                 const std::vector<AnswerSources>& flows) {
    json.begin_object("board");
    json.members({{"version", static_cast<float>(spec.version)}, {"name", spec.name}});
    const board::DeviceConfig& device = spec.get_device_config();
    json.begin_object("device");
    json.value(device.device_model, "device_model");
    json.begin_object("used_resources");
    write_resources(json, device.get_used_resources());
    json.end();
    json.end();
    write_compile(json, spec, flows);
    write_memories(json, spec.get_global_mem_configs());
    const board::HostConfig& host = spec.get_host_config();
    json.begin_object("host");
    json.begin_object("kernel_config");
    json.members({{"start", host.kernel_config_start}, {"size", host.get_kernel_config_size()}});
    json.end();
    json.end();
    const board::KernelClkReset& signals = spec.get_interface_config().get_kernel_clk_reset();
    json.begin_object("interfaces");
    write_interfaces(json, spec.get_interface_config());
    json.begin_object("kernel_clk_reset");
    json.members({{"clk", signals.clk}, {"clk2x", signals.clk2x}, {"reset", signals.reset}});
    json.end();
    json.end();
    write_part(json, "channels", spec.has_channel_config(),
               [&] { write_interfaces(json, spec.get_channel_config()); });
    json.end();
}

/// Both models know one version of their format, and write it as a number.
template <typename Model>
AttributeValue version_of(const Model& model) {
    return model.version == Model::Version_0_9 ? AttributeValue(0.9f) : AttributeValue();
}

void write_device_model(JsonWriter& json, const dmodel::DeviceModel& dm) {
    json.begin_object("device_model");
    json.members({{"version", version_of(dm)}, {"target_model", dm.target_model}});
    json.begin_object("fmax");
    json.members({{"expected", dm.get_expected_fmax()},
                  {"min", dm.get_min_fmax()},
                  {"high", dm.get_high_fmax()}});
    json.end();
    json.begin_object("resources");
    write_resources(json, dm.get_resources());
    json.end();
    json.end();
}

void write_local_mem(JsonWriter& json, const tmodel::LocalMemModel& model) {
    json.members({{"single_port_mem_block_width", model.get_single_port_mem_block_width()},
                  {"single_port_mem_block_depth", model.get_single_port_mem_block_depth()},
                  {"dual_port_mem_block_width", model.get_dual_port_mem_block_width()},
                  {"dual_port_mem_block_depth", model.get_dual_port_mem_block_depth()},
                  {"bursting_lsu_cache_size_n", model.get_bursting_lsu_cache_size_n()},
                  {"single_port_mem_block_supports_rdw_mode_old_data",
                   model.get_single_port_mem_block_supports_rdw_mode_old_data()},
                  {"dual_port_mem_block_supports_rdw_mode_old_data",
                   model.get_dual_port_mem_block_supports_rdw_mode_old_data()}});
    const tmodel::LocalMemFmaxDegradationModel& degradation = model.get_fmax_degradation_model();
    json.begin_object("fmax_degradation");
    json.members({{"group_per_all_rams", degradation.get_group_per_all_rams()},
                  {"total_per_all_rams", degradation.get_total_per_all_rams()},
                  {"per_coalescing_width", degradation.get_per_coalescing_width()},
                  {"per_log2_num_banks", degradation.get_per_log2_num_banks()},
                  {"per_port_fanin", degradation.get_per_port_fanin()}});
    json.end();
}

void write_global_interconnect(JsonWriter& json, const tmodel::GlobalInterconnectModel& model) {
    json.members({{"arb2_data_pipe_spacing", model.get_arb2_data_pipe_spacing()},
                  {"arb2_data_pipe_min_depth", model.get_arb2_data_pipe_min_depth()},
                  {"arb2_stall_pipe_spacing", model.get_arb2_stall_pipe_spacing()},
                  {"arb2_stall_pipe_min_depth", model.get_arb2_stall_pipe_min_depth()},
                  {"arb2_pipe_at_output", model.get_arb2_pipe_at_output()},
                  {"arb2_test_add_latency", model.get_arb2_test_add_latency()}});
}

void write_delay_model(JsonWriter& json, const tmodel::DelayModel& model) {
    json.members(
        {{"alm_delay_ps", model.alm_delay_ps}, {"routing_delay_ps", model.routing_delay_ps}});
}

void write_family_info(JsonWriter& json, const tmodel::FamilyModel& model) {
    json.members({{"bits_per_alm", model.bits_per_alm},
                  {"lut_inputs", model.lut_inputs},
                  {"mux_inputs", model.mux_inputs},
                  {"preferred_dsp_dot_size", model.preferred_dsp_dot_size},
                  {"block_ram_name", model.block_ram_name},
                  {"alm_rom_name", model.alm_rom_name}});
}

void write_target_model(JsonWriter& json, const tmodel::TargetModel& tm) {
    json.begin_object("target_model");
    json.members({{"version", version_of(tm)},
                  {"family", tmodel::find_target_family_key(tm.family)},
                  {"family_name", tm.get_family_str()}});
    json.begin_array("style_model");
    for (const std::string& file : tm.style_models) {
        json.value(file);
    }
    json.end();
    json.begin_object("local_mem");
    write_local_mem(json, tm.get_local_mem_model());
    json.end();
    write_part(json, "global_interconnect", tm.has_global_interconnect_model(),
               [&] { write_global_interconnect(json, tm.get_global_interconnect_model()); });
    json.begin_object("delay_model");
    write_delay_model(json, tm.get_delay_model());
    json.end();
    json.begin_object("family_info");
    write_family_info(json, tm.get_family_model());
    json.end();
    json.end();
}

void write_files(JsonWriter& json, const AnswerSources& sources) {
    json.begin_object("files");
    json.members({{"board", sources.files->board},
                  {"device_model", sources.dm_resolved_path},
                  {"target_model", sources.tm_resolved_path}});
    json.begin_array("candidates");
    for (const std::string& path : sources.files->candidates) {
        json.value(path);
    }
    json.end();
    json.end();
}

void write_answers(JsonWriter& json, const AnswerSources& sources,
                   const std::vector<AnswerSources>& flows) {
    json.begin_object("answers");
    for (const Answer& answer : ANSWERS) {
        json.value(answer.text(sources), answer.command);
    }
    json.end();
    json.begin_array("flows");
    for (const AnswerSources& flow : flows) {
        json.begin_object();
        json.value(flow.flow->name, "name");
        for (const char* command : COMPILE_FLOW_COMMANDS) {
            json.value(*find_answer(command, flow), command);
        }
        json.end();
    }
    json.end();
}

}  // namespace

std::string json_dump(const AnswerSources& sources) {
    constexpr unsigned FORMAT_VERSION = 1;  // also in schema/board.schema.json

    const std::vector<AnswerSources> flows = sources_of_flows(sources);
    JsonWriter json;
    json.begin_object();
    json.members({{"format_version", FORMAT_VERSION}, {"tool_version", VEMO_BOARDSPEC_VERSION}});
    write_files(json, sources);
    write_answers(json, sources, flows);
    write_board(json, *sources.spec, flows);
    write_device_model(json, *sources.dm);
    write_target_model(json, *sources.tm);
    json.end();
    return json.text() + "\n";
}

}  // namespace vemo::dump
