#include "BoardDump/TextDump.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "Base/Characters.h"
#include "Base/JoinedList.h"
#include "BoardDump/AddressMap.h"
#include "BoardDump/FlowSources.h"
#include "BoardDump/TextLayout.h"
#include "BoardSpec/Dump.h"
#include "BoardSpec/MemoryOverlap.h"
#include "BoardSpec/Words.h"
#include "TargetModel/Dump.h"

namespace vemo::dump {
namespace {

constexpr const char* INDENT = "  ";

void write_board(std::ostream& os, const board::BoardSpec& spec) {
    os << spec << "\n";
    // Of the memories, the board's dump has the first.
    const auto& memories = spec.get_global_mem_configs();
    for (std::size_t i = 1; i < memories.size(); ++i) {
        os << *memories[i] << "\n";
    }
}

void write_target_model(std::ostream& os, const tmodel::TargetModel& tm) {
    os << tm;  // ends its last line
    if (tm.has_global_interconnect_model()) {
        os << tm.get_global_interconnect_model() << "\n";
    }
    if (tm.has_delay_model()) {
        os << tm.get_delay_model() << "\n";
    }
    if (tm.has_family_model()) {
        os << tm.get_family_model() << "\n";
    }
}

std::string flow_text(const AnswerSources& sources) {
    const board::CompileConfig& flow = *sources.flow;
    TextTable table("ll");
    for (const char* command : COMPILE_FLOW_COMMANDS) {
        table.add_row({command, *find_answer(command, sources)});
    }
    table.add_row({"generate_additional_args", flow.generate_additional_args ? "1" : "0"});
    table.add_row({"synthesize_additional_args", flow.synthesize_additional_args ? "1" : "0"});
    return table.text(INDENT);
}

std::string memory_table(const board::BoardSpec& spec) {
    TextTable table("llrlll",
                    {"name", "type", "max bandwidth", "interleaving", "config addr", "addresses"});
    for (const board::GlobalMemConfig* memory : spec.get_global_mem_configs()) {
        std::ostringstream max_bandwidth;
        max_bandwidth << memory->get_max_bandwidth();
        const unsigned num_intfs = memory->get_num_intfs();
        table.add_row({memory_name_text(*memory),
                       std::string(board::MEMORY_TYPE_WORDS[memory->get_type()]),
                       max_bandwidth.str(),
                       num_intfs == 1 ? ""
                                      : size_text(memory->get_num_interleaved_bytes()) + " x "
                                            + std::to_string(num_intfs),
                       memory->config_addr == 0 ? "" : address_text(memory->config_addr),
                       memory_range_text(*memory)});
    }
    return table.text(INDENT);
}

/// The encodings of a port's attributes.
std::string encodings_text(const board::Port& port) {
    std::string text;
    append_joined(text, port.attributes, [](const auto& attribute) {
        return attribute.first + " = " + std::to_string(attribute.second);
    });
    return text;
}

/// Adds a row for each port. What is about the interface is in the row of its first port.
void add_ports(TextTable& table, const std::string& owner, const board::Interface& intf) {
    const unsigned width = intf.get_data_width();
    for (unsigned i = 0; i < intf.get_num_ports(); ++i) {
        const board::Port& port = *intf.get_port(i);
        const std::string direction(board::DIRECTION_WORDS[port.direction]);
        const std::string encodings = encodings_text(port);
        if (i == 0) {
            table.add_row({owner, shortened(intf.name),
                           std::string(board::INTERFACE_TYPE_WORDS[intf.type]),
                           width == 0 ? "" : std::to_string(width), shortened(port.name), direction,
                           encodings});
        } else {
            table.add_row({"", "", "", "", shortened(port.name), direction, encodings});
        }
    }
}

std::string port_table(const board::BoardSpec& spec) {
    TextTable table("lllrlll", {"memory/channel", "interface", "type", "width", "port", "direction",
                                "attributes"});
    for (const board::GlobalMemConfig* memory : spec.get_global_mem_configs()) {
        const std::string name = memory_name_text(*memory);
        for (const board::Interface* intf : memory->get_interfaces()) {
            add_ports(table, name, *intf);
        }
    }
    for (const board::Interface* intf : spec.get_interface_config().get_interfaces()) {
        add_ports(table, "(kernel)", *intf);
    }
    if (spec.has_channel_config()) {
        for (const board::Interface* intf : spec.get_channel_config().get_interfaces()) {
            add_ports(table, shortened(intf->chan_id), *intf);
        }
    }
    return table.text(INDENT);
}

/// printable() of each line.
std::string printable_lines(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        out += printable(line) + '\n';
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    return out;
}

}  // namespace

std::string text_dump(const AnswerSources& sources) {
    const board::BoardSpec& spec = *sources.spec;
    for (const board::GlobalMemConfig* memory : spec.get_global_mem_configs()) {
        if (memory->get_num_intfs() == 0) {
            throw std::runtime_error("Global memory '" + printable(memory_name_text(*memory))
                                     + "' has no interface.");
        }
    }
    std::ostringstream os;
    os << "Board: " << printable(name_text(spec.name)) << "\n";
    const char* title = "Default compile flow: ";
    for (const AnswerSources& flow : sources_of_flows(sources)) {
        os << "\n" << title << printable(name_text(flow.flow->name)) << "\n" << flow_text(flow);
        title = "Compile flow: ";
    }
    os << "\nGlobal memories:\n" << memory_table(spec);
    os << "\nAddress map:\n" << address_map(spec);
    if (board::has_overlapping_memories(spec.get_global_mem_configs())) {
        os << INDENT << "!!  " << overlap_text(spec) << ": not a valid board\n";
    }
    os << "\nPorts:\n" << port_table(spec) << "\n";

    write_board(os, spec);
    os << "\n" << *sources.dm << "\n\n";
    write_target_model(os, *sources.tm);
    return printable_lines(os.str());
}

}  // namespace vemo::dump
