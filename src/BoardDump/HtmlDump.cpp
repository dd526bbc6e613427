#include "BoardDump/HtmlDump.h"

#include <cstddef>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "Base/JoinedList.h"
#include "BoardDump/AddressMap.h"
#include "BoardDump/Figures.h"
#include "BoardDump/FlowSources.h"
#include "BoardDump/HtmlPage.h"
#include "BoardDump/InterfaceAttributes.h"
#include "BoardDump/SvgDump.h"
#include "BoardDump/TextLayout.h"
#include "BoardSpec/MemoryOverlap.h"
#include "BoardSpec/Words.h"

namespace vemo::dump {
namespace {

using board::GlobalMemConfig;
using board::Interface;

/// A value of the models as the text of a cell; empty if there is none.
std::string value_text(const char* value) { return value; }
std::string value_text(const std::string& value) { return value; }
std::string value_text(std::string_view value) { return std::string(value); }
std::string value_text(bool value) { return value ? "yes" : "no"; }
std::string value_text(unsigned value) { return std::to_string(value); }
std::string value_text(float value) { return figure_text(value); }
std::string value_text(std::monostate) { return ""; }

/// Interfaces, each with the name of its memory if it has one.
using Entries = std::vector<std::pair<std::string, const Interface*>>;

constexpr HtmlPage::Link SECTIONS[] = {
    {"#picture", "Picture"}, {"#map", "Address map"},     {"#memories", "Global memories"},
    {"#kernel", "Kernel"},   {"#channels", "Channels"},   {"#flows", "Compile flows"},
    {"#device", "Device"},   {"#target", "Target model"}, {"#files", "Files"},
};

class BoardPage {
public:
    explicit BoardPage(const AnswerSources& sources)
        : m_sources(sources),
          m_spec(*sources.spec),
          m_out("Board " + shortened(board_name_text(m_spec)), board_name_text(m_spec),
                board_summary(m_spec) + ".", SECTIONS) {}

    std::string write();

private:
    void write_picture();
    void write_map();
    void write_memories();
    void write_interfaces(const char* id, const char* caption, const Entries& list);
    void write_kernel();
    void write_channels();
    void write_flows();
    void write_device();
    void write_target();
    void write_files();

    template <typename Value>
    void fact(const char* name, const Value& value) {
        m_out.fact(name, value_text(value));
    }

    const AnswerSources& m_sources;
    const board::BoardSpec& m_spec;
    HtmlPage m_out;
};

void BoardPage::write_picture() {
    m_out.open_section("picture", "Picture");
    m_out.paragraph(
        "The tables below are complete, even if the picture is summarized. In tables of "
        "interfaces, an empty cell means none, 0 or no, and empty columns are left out.");
    m_out.scrolling("picture", picture(m_sources));
    m_out.close_section();
}

void BoardPage::write_map() {
    m_out.open_section("map", "Address map");
    if (board::has_overlapping_memories(m_spec.get_global_mem_configs())) {
        m_out.alarm(
            "Not a valid board: global memories overlap from their first to their last address.");
    }
    constexpr std::pair<const char*, const char*> KINDS[] = {// and their styles
                                                             {"range", ""},
                                                             {"gap", "gap"},
                                                             {"overlap", "overlap"}};
    HtmlTable table = {"map-table",
                       "Addresses of the global memories, in ascending order",
                       "lrlll",
                       {"Addresses", "Size", "Kind", "Memory", "Interface"},
                       {}};
    for (const AddressMapRow& range : address_map_rows(address_ranges(m_spec))) {
        const auto& [kind, style] = KINDS[range.kind];
        table.add({range_text(range.first, range.last), size_text(range.last - range.first + 1),
                   kind, range.memory, range.description},
                  style);
    }
    m_out.table(table);
    m_out.close_section();
}

void BoardPage::write_memories() {
    m_out.open_section("memories", "Global memories");
    HtmlTable table = {"memories-table",
                       "The first memory is the default",
                       "llrrlll",
                       {"Name", "Type", "Bandwidth", "Interleaving", "Configuration",
                        "First address", "Last address"},
                       {}};
    Entries interfaces;
    for (const GlobalMemConfig* memory : m_spec.get_global_mem_configs()) {
        const unsigned num_intfs = memory->get_num_intfs();
        table.add({name_text(memory->name),
                   std::string(board::MEMORY_TYPE_WORDS[memory->get_type()]),
                   bandwidth_text(*memory),
                   num_intfs < 2 ? "none"
                                 : size_text(memory->get_num_interleaved_bytes()) + " x "
                                       + std::to_string(num_intfs),
                   address_text(memory->config_addr), address_text(memory->get_min_byte_address()),
                   address_text(memory->get_max_byte_address())});
        const std::string name = memory_name_text(*memory);
        for (const Interface* intf : memory->get_interfaces()) {
            interfaces.emplace_back(name, intf);
        }
    }
    m_out.table(table);
    write_interfaces("memory-interfaces", "Interfaces of the global memories", interfaces);
    m_out.close_section();
}

std::string port_text(const board::Port& port) {
    std::string text = port.name + " (";
    text += board::DIRECTION_WORDS[port.direction];
    if (port.attribute_width > 0) {
        text += ", " + std::to_string(port.attribute_width) + " attribute bits";
        const char* separator = ": ";
        for (const auto& [name, encoding] : port.attributes) {
            text += separator + name + " = " + std::to_string(encoding);
            separator = ", ";
        }
    }
    if (!port.hazard_free_attributes) {
        text += ", attributes not free of hazards";
    }
    return text + ")";
}

std::string ports_text(const Interface& intf) {
    std::string text;
    for (unsigned i = 0; i < intf.get_num_ports(); ++i) {
        text += (i == 0 ? "" : "; ") + port_text(*intf.get_port(i));
    }
    return text;
}

/// The value of an attribute for people; empty for 0 and false.
std::string attribute_text(const InterfaceAttribute& attribute, const Interface& intf) {
    const std::string_view name = attribute.name;
    if (name == "address") {
        return intf.address == 0 && intf.get_size() == 0 ? "" : address_text(intf.address);
    }
    if (name == "size") {
        return intf.get_size() == 0 ? "" : size_text(intf.get_size());
    }
    const std::string text =
        std::visit([](const auto& value) { return value_text(value); }, attribute.value(intf));
    return text == "0" || text == "no" ? "" : text;
}

void BoardPage::write_interfaces(const char* id, const char* caption, const Entries& list) {
    if (list.empty()) {
        m_out.paragraph(std::string(caption) + ": none.");
        return;
    }
    HtmlTable table = {id, caption, "", {}, {}};
    table.rows.resize(list.size(), {{}, ""});
    // Columns whose cells are all empty are left out.
    const auto add_column = [&table, &list](const char* name, char alignment, auto text_of) {
        std::vector<std::string> texts;
        bool is_blank = true;
        for (const auto& [memory, intf] : list) {
            texts.push_back(text_of(memory, *intf));
            is_blank = is_blank && texts.back().empty();
        }
        if (!is_blank) {
            table.columns.emplace_back(name);
            table.alignment += alignment;
            for (std::size_t i = 0; i < texts.size(); ++i) {
                table.rows[i].cells.push_back(std::move(texts[i]));
            }
        }
    };
    add_column("memory", 'l', [](const auto& memory, const auto&) { return memory; });
    add_column("ports", 'l', [](const auto&, const Interface& intf) { return ports_text(intf); });
    for (const InterfaceAttribute& attribute : INTERFACE_ATTRIBUTES) {
        add_column(attribute.name, 'l', [&attribute](const auto&, const Interface& intf) {
            return attribute_text(attribute, intf);
        });
    }
    m_out.table(table);
}

Entries entries_of(const board::InterfaceList& list) {
    Entries entries;
    for (const Interface* intf : list.get_interfaces()) {
        entries.emplace_back("", intf);
    }
    return entries;
}

void BoardPage::write_kernel() {
    const board::HostConfig& host = m_spec.get_host_config();
    const board::InterfaceConfig& config = m_spec.get_interface_config();
    const board::KernelClkReset& signals = config.get_kernel_clk_reset();
    m_out.open_section("kernel", "Kernel");
    m_out.open_facts("Host window, clocks and reset");
    fact("Host's kernel window",
         window_text(host) + ", " + size_text(host.get_kernel_config_size()));
    fact("Kernel clock", signals.clk);
    fact("Clock of twice the rate", signals.clk2x);
    fact("Kernel reset", signals.reset);
    m_out.close_facts();
    write_interfaces("kernel-interfaces", "Interfaces between board and kernel",
                     entries_of(config));
    m_out.close_section();
}

void BoardPage::write_channels() {
    m_out.open_section("channels", "Channels");
    write_interfaces(
        "channels-table", "Streaming channels, of which a streamsource leads to the kernel",
        m_spec.has_channel_config() ? entries_of(m_spec.get_channel_config()) : Entries());
    m_out.close_section();
}

void BoardPage::write_flows() {
    m_out.open_section("flows", "Compile flows");
    const char* caption = "Default flow, used where a command names none";
    for (const AnswerSources& sources : sources_of_flows(m_sources)) {
        const board::CompileConfig& flow = *sources.flow;
        m_out.subheading(flow.name);
        m_out.open_facts(caption);
        caption = "Further flow";
        fact("Project", flow.project);
        fact("Revision", flow.revision);
        fact("System integration file", flow.lomb_file);
        fact("Generic kernel", flow.generic_kernel);
        fact("Generate command", flow.generate_cmd);
        fact("Generate takes more arguments", flow.generate_additional_args);
        fact("Synthesize command", flow.synthesize_cmd);
        fact("Synthesize takes more arguments", flow.synthesize_additional_args);
        fact("Auto-migration platform", flow.automigrate_type);
        fact("Fixes to include", flow.automigrate_include);
        fact("Fixes to exclude", flow.automigrate_exclude);
        m_out.close_facts();
    }
    m_out.close_section();
}

void BoardPage::write_device() {
    const dmodel::DeviceModel& dm = *m_sources.dm;
    const board::DeviceConfig& device = m_spec.get_device_config();
    m_out.open_section("device", "Device");
    HtmlTable table = {"resources-table",
                       "Resources of the device, and those that the board's logic uses",
                       "lrrr",
                       {"Resource", "Used", "Available", "Share"},
                       {}};
    for (const Resource& resource : RESOURCES) {
        const std::uint32_t used = device.get_used_resources().*resource.count;
        const std::uint32_t available = dm.get_resources().*resource.count;
        table.add(
            {resource.name, count_text(used), count_text(available), share_text(used, available)},
            used > available ? "alarm" : "");
    }
    m_out.table(table);
    m_out.open_facts("Clock frequencies");
    fact("Expected fmax (MHz)", dm.get_expected_fmax());
    fact("Minimum fmax (MHz)", dm.get_min_fmax());
    fact("High fmax (MHz)", dm.get_high_fmax());
    m_out.close_facts();
    m_out.close_section();
}

void BoardPage::write_target() {
    const tmodel::TargetModel& tm = *m_sources.tm;
    m_out.open_section("target", "Target model");
    m_out.open_facts("Family");
    const tmodel::FamilyModel& family = tm.get_family_model();
    std::string style_models;
    append_joined(style_models, tm.style_models,
                  [](const std::string& name) -> const std::string& { return name; });
    fact("Family", tm.get_family_str());
    fact("Style models", style_models);
    fact("Bits per ALM", family.bits_per_alm);
    fact("LUT inputs", family.lut_inputs);
    fact("Multiplexer inputs", family.mux_inputs);
    fact("Preferred DSP dot product size", family.preferred_dsp_dot_size);
    fact("Block RAM", family.block_ram_name);
    fact("ROM made of ALMs", family.alm_rom_name);
    fact("ALM delay (ps)", tm.get_delay_model().alm_delay_ps);
    fact("Routing delay (ps)", tm.get_delay_model().routing_delay_ps);
    m_out.close_facts();

    const tmodel::LocalMemModel& local = tm.get_local_mem_model();
    const tmodel::LocalMemFmaxDegradationModel& loss = local.get_fmax_degradation_model();
    m_out.open_facts("Local memory");
    fact("Single-port block width (bits)", local.get_single_port_mem_block_width());
    fact("Single-port block depth", local.get_single_port_mem_block_depth());
    fact("Dual-port block width (bits)", local.get_dual_port_mem_block_width());
    fact("Dual-port block depth", local.get_dual_port_mem_block_depth());
    fact("Bursting LSU cache size N", local.get_bursting_lsu_cache_size_n());
    fact("Single-port reads of old data",
         local.get_single_port_mem_block_supports_rdw_mode_old_data() != 0);
    fact("Dual-port reads of old data",
         local.get_dual_port_mem_block_supports_rdw_mode_old_data() != 0);
    fact("Fmax loss: group per all RAMs", loss.get_group_per_all_rams());
    fact("Fmax loss: total per all RAMs", loss.get_total_per_all_rams());
    fact("Fmax loss per coalescing width", loss.get_per_coalescing_width());
    fact("Fmax loss per log2 of banks", loss.get_per_log2_num_banks());
    fact("Fmax loss per port fan-in", loss.get_per_port_fanin());
    m_out.close_facts();

    if (tm.has_global_interconnect_model()) {
        const tmodel::GlobalInterconnectModel& interconnect = tm.get_global_interconnect_model();
        m_out.open_facts("Global interconnect");
        fact("Data pipeline spacing", interconnect.get_arb2_data_pipe_spacing());
        fact("Data pipeline minimum depth", interconnect.get_arb2_data_pipe_min_depth());
        fact("Stall pipeline spacing", interconnect.get_arb2_stall_pipe_spacing());
        fact("Stall pipeline minimum depth", interconnect.get_arb2_stall_pipe_min_depth());
        fact("Pipeline stage at the output", interconnect.get_arb2_pipe_at_output());
        fact("Latency to add for tests", interconnect.get_arb2_test_add_latency());
        m_out.close_facts();
    }
    m_out.close_section();
}

void BoardPage::write_files() {
    m_out.open_section("files", "Files");
    HtmlTable table = {
        "files-table", "The files of the board package", "lll", {"File", "Name", "Found at"}, {}};
    table.add({"Board", "", m_sources.files->board});
    table.add(
        {"Device model", m_spec.get_device_config().device_model, m_sources.dm_resolved_path});
    table.add({"Target model", m_sources.dm->target_model, m_sources.tm_resolved_path});
    m_out.table(table);
    m_out.close_section();
}

std::string BoardPage::write() {
    write_picture();
    write_map();
    write_memories();
    write_kernel();
    write_channels();
    write_flows();
    write_device();
    write_target();
    write_files();
    return m_out.finish();
}

}  // namespace

std::string html_dump(const AnswerSources& sources) { return BoardPage(sources).write(); }

}  // namespace vemo::dump
