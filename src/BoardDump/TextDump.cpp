#include "BoardDump/TextDump.h"

#include <sstream>
#include <stdexcept>

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
    TextTable table("llrlll");
    table.add_row({"name", "type", "max bandwidth", "interleaving", "config addr", "addresses"});
    for (const board::GlobalMemConfig* memory : spec.get_global_mem_configs()) {
        std::ostringstream max_bandwidth;
        max_bandwidth << memory->get_max_bandwidth();
        const unsigned num_intfs = memory->get_num_intfs();
        table.add_row({memory_name_text(*memory),
                       std::string(board::MEMORY_TYPE_WORDS[memory->get_type()]),
                       max_bandwidth.str(),
                       num_intfs == 1 ? "none"
                                      : size_text(memory->get_num_interleaved_bytes()) + " x "
                                            + std::to_string(num_intfs),
                       address_text(memory->config_addr),
                       range_text(memory->get_min_byte_address(), memory->get_max_byte_address())});
    }
    return table.text(INDENT);
}

}  // namespace

std::string text_dump(const AnswerSources& sources) {
    const board::BoardSpec& spec = *sources.spec;
    for (const board::GlobalMemConfig* memory : spec.get_global_mem_configs()) {
        if (memory->get_num_intfs() == 0) {
            throw std::runtime_error("Global memory '" + memory_name_text(*memory)
                                     + "' has no interface.");
        }
    }
    std::ostringstream os;
    write_board(os, spec);
    os << "\n" << *sources.dm << "\n\n";
    write_target_model(os, *sources.tm);

    const char* title = "Default compile flow: ";
    for (const AnswerSources& flow : sources_of_flows(sources)) {
        os << "\n" << title << printable(flow.flow->name) << "\n" << flow_text(flow);
        title = "Compile flow: ";
    }
    os << "\nGlobal memories:\n" << memory_table(spec);
    os << "\nAddress map:\n" << address_map(spec);
    if (board::has_overlapping_memories(spec.get_global_mem_configs())) {
        os << "  !!  global memories overlap from their first to their last address: not a valid "
              "board\n";
    }
    return printable(os.str(), "\n");
}

}  // namespace vemo::dump
