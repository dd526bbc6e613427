#include "TargetModel/Dump.h"

#include <cstdint>
#include <string>

namespace vemo::tmodel {

std::ostream& operator<<(std::ostream& os, TargetFamily family) {
    const char* key = find_target_family_key(family);
    // Peltra C has a key in the file, but never had a name in the dump.
    if (key == nullptr || family == TargetFamily::PeltraC) {
        return os << "<unknown>(" << static_cast<std::int32_t>(family) << ")";
    }
    return os << key;
}

std::ostream& operator<<(std::ostream& os, TargetModel::Version version) {
    if (version == TargetModel::Version_0_9) {
        return os << "0.9";
    }
    return os << "<unknown>(" << static_cast<std::int32_t>(version) << ")";
}

std::ostream& operator<<(std::ostream& os, const TargetModel& tm) {
    os << "Target model (v" << tm.version << "):\n";
    os << "  Family: " << tm.family << "\n";
    os << "  Target Style Models:\n";
    for (const std::string& style_model : tm.style_models) {
        os << "    " << style_model << "\n";
    }
    if (tm.has_local_mem_model()) {
        os << tm.get_local_mem_model();
    } else {
        os << "Local memory model: <null>";
    }
    return os << "\n";
}

std::ostream& operator<<(std::ostream& os, const LocalMemModel& model) {
    os << "Local memory model:\n";
    os << "  Single port memory block width: " << model.get_single_port_mem_block_width() << "\n";
    os << "  Single port memory block depth: " << model.get_single_port_mem_block_depth() << "\n";
    os << "  Dual port memory block width: " << model.get_dual_port_mem_block_width() << "\n";
    os << "  Dual port memory block depth: " << model.get_dual_port_mem_block_depth() << "\n";
    os << "  Bursting LSU cache size N: " << model.get_bursting_lsu_cache_size_n() << "\n";
    os << "  Single port memory block supports RDW_MODE OLD_DATA: "
       << model.get_single_port_mem_block_supports_rdw_mode_old_data() << "\n";
    // The single-port flag again: readers of this dump know the line with that value.
    os << "  Dual port memory block supports RDW_MODE OLD_DATA: "
       << model.get_single_port_mem_block_supports_rdw_mode_old_data() << "\n";
    if (model.has_fmax_degradation_model()) {
        return os << model.get_fmax_degradation_model();
    }
    return os << "Local memory fmax degradation model: <null>";
}

std::ostream& operator<<(std::ostream& os, const LocalMemFmaxDegradationModel& model) {
    os << "Local memory fmax degradation model:\n";
    os << "  group per all rams: " << model.get_group_per_all_rams() << "\n";
    os << "  total per all rams: " << model.get_total_per_all_rams() << "\n";
    os << "  per coalescing width: " << model.get_per_coalescing_width() << "\n";
    os << "  per log2 num banks: " << model.get_per_log2_num_banks() << "\n";
    return os << "  per port fanin: " << model.get_per_port_fanin();
}

std::ostream& operator<<(std::ostream& os, const GlobalInterconnectModel& model) {
    os << "Global Interconnect model:\n";
    os << "  arb2_data_pipe_spacing: " << model.get_arb2_data_pipe_spacing() << "\n";
    os << "  arb2_data_pipe_min_depth: " << model.get_arb2_data_pipe_min_depth() << "\n";
    os << "  arb2_stall_pipe_spacing: " << model.get_arb2_stall_pipe_spacing() << "\n";
    os << "  arb2_stall_pipe_min_depth: " << model.get_arb2_stall_pipe_min_depth() << "\n";
    // One line for both, on purpose.
    os << "  arb2_pipe_at_output: " << model.get_arb2_pipe_at_output();
    return os << "  arb2_test_add_latency: " << model.get_arb2_test_add_latency();
}

std::ostream& operator<<(std::ostream& os, const DelayModel& model) {
    os << "Target delay model:\n";
    os << "  ALM delay (ps): " << model.alm_delay_ps << "\n";
    return os << "  routing delay (ps): " << model.routing_delay_ps;
}

std::ostream& operator<<(std::ostream& os, const FamilyModel& model) {
    os << "Target family model:\n";
    os << "  bits per ALM: " << model.bits_per_alm << "\n";
    os << "  number of LUT inputs: " << model.lut_inputs << "\n";
    os << "  number of MUX inputs: " << model.mux_inputs << "\n";
    os << "  preferred DSP dot size: " << model.preferred_dsp_dot_size << "\n";
    os << "  block RAM name: " << model.block_ram_name << "\n";
    return os << "  ALM ROM name: " << model.alm_rom_name;
}

}  // namespace vemo::tmodel
