#include "TargetModel/TargetModel.h"

#include <cstddef>
#include <iterator>

#include "Base/Assert.h"
#include "Base/Ownership.h"

namespace vemo::tmodel {
namespace {

struct FamilyNames {
    const char* display_name;
    const char* key;  // in target model files
};

// Indexed by TargetFamily.
constexpr FamilyNames FAMILY_NAMES[] = {
    {"Peltra A", "peltraa"},    {"Peltra B", "peltrab"}, {"Peltra C", "peltrac"},
    {"Osmin C", "osminc"},      {"Osmin B", "osminb"},   {"Duvel B", "duvelb"},
    {"Duvel C LX", "duvelclx"},
};
static_assert(std::size(FAMILY_NAMES) == static_cast<std::size_t>(TargetFamily::TypeCount));

/// Names of a family, or null for a value that is none.
const FamilyNames* find_family_names(TargetFamily family) {
    const auto index = static_cast<std::uint32_t>(family);
    return index < std::size(FAMILY_NAMES) ? &FAMILY_NAMES[index] : nullptr;
}

}  // namespace

TargetFamily find_target_family(std::string_view key) {
    std::int32_t index = 0;
    for (const FamilyNames& names : FAMILY_NAMES) {
        if (key == names.key) {
            break;
        }
        ++index;
    }
    return static_cast<TargetFamily>(index);
}

const char* find_target_family_key(TargetFamily family) {
    const FamilyNames* names = find_family_names(family);
    return names == nullptr ? nullptr : names->key;
}

void LocalMemFmaxDegradationModel::set_group_per_all_rams(float group_per_all_rams) {
    VEMO_ASSERT(group_per_all_rams >= 0.0f);
    m_group_per_all_rams = group_per_all_rams;
}

void LocalMemFmaxDegradationModel::set_total_per_all_rams(float total_per_all_rams) {
    VEMO_ASSERT(total_per_all_rams >= 0.0f);
    m_total_per_all_rams = total_per_all_rams;
}

void LocalMemFmaxDegradationModel::set_per_coalescing_width(float per_coalescing_width) {
    VEMO_ASSERT(per_coalescing_width >= 0.0f);
    m_per_coalescing_width = per_coalescing_width;
}

void LocalMemFmaxDegradationModel::set_per_log2_num_banks(float per_log2_num_banks) {
    VEMO_ASSERT(per_log2_num_banks >= 0.0f);
    m_per_log2_num_banks = per_log2_num_banks;
}

void LocalMemFmaxDegradationModel::set_per_port_fanin(float per_port_fanin) {
    VEMO_ASSERT(per_port_fanin >= 0.0f);
    m_per_port_fanin = per_port_fanin;
}

LocalMemModel::~LocalMemModel() { delete m_fmax_degradation_model; }

void LocalMemModel::set_single_port_mem_block_width(unsigned mem_block_width) {
    VEMO_ASSERT(mem_block_width > 0);
    m_single_port_mem_block_width = mem_block_width;
}

void LocalMemModel::set_single_port_mem_block_depth(unsigned mem_block_depth) {
    VEMO_ASSERT(mem_block_depth > 0);
    m_single_port_mem_block_depth = mem_block_depth;
}

void LocalMemModel::set_dual_port_mem_block_width(unsigned mem_block_width) {
    VEMO_ASSERT(mem_block_width > 0);
    m_dual_port_mem_block_width = mem_block_width;
}

void LocalMemModel::set_dual_port_mem_block_depth(unsigned mem_block_depth) {
    VEMO_ASSERT(mem_block_depth > 0);
    m_dual_port_mem_block_depth = mem_block_depth;
}

void LocalMemModel::set_bursting_lsu_cache_size_n(unsigned cache_size_n) {
    VEMO_ASSERT(cache_size_n > 0);
    m_bursting_lsu_cache_size_n = cache_size_n;
}

void LocalMemModel::set_single_port_mem_block_supports_rdw_mode_old_data(
    unsigned supports_old_data) {
    VEMO_ASSERT(supports_old_data == 0 || supports_old_data == 1);
    m_single_port_mem_block_supports_rdw_mode_old_data = supports_old_data;
}

void LocalMemModel::set_dual_port_mem_block_supports_rdw_mode_old_data(unsigned supports_old_data) {
    VEMO_ASSERT(supports_old_data == 0 || supports_old_data == 1);
    m_dual_port_mem_block_supports_rdw_mode_old_data = supports_old_data;
}

LocalMemFmaxDegradationModel& LocalMemModel::get_fmax_degradation_model() {
    VEMO_ASSERT(m_fmax_degradation_model != NULL);
    return *m_fmax_degradation_model;
}

const LocalMemFmaxDegradationModel& LocalMemModel::get_fmax_degradation_model() const {
    VEMO_ASSERT(m_fmax_degradation_model != NULL);
    return *m_fmax_degradation_model;
}

void LocalMemModel::set_fmax_degradation_model(
    LocalMemFmaxDegradationModel* fmax_degradation_model) {
    VEMO_ASSERT(fmax_degradation_model != NULL);
    replace_owned(m_fmax_degradation_model, fmax_degradation_model);
}

void GlobalInterconnectModel::set_arb2_data_pipe_spacing(float a) {
    VEMO_ASSERT(a >= 0.0f);
    m_arb2_data_pipe_spacing = a;
}

void GlobalInterconnectModel::set_arb2_data_pipe_min_depth(float a) {
    VEMO_ASSERT(a >= 0.0f);
    m_arb2_data_pipe_min_depth = a;
}

void GlobalInterconnectModel::set_arb2_stall_pipe_spacing(float a) {
    VEMO_ASSERT(a >= 0.0f);
    m_arb2_stall_pipe_spacing = a;
}

void GlobalInterconnectModel::set_arb2_stall_pipe_min_depth(float a) {
    VEMO_ASSERT(a >= 0.0f);
    m_arb2_stall_pipe_min_depth = a;
}

void GlobalInterconnectModel::set_arb2_pipe_at_output(float a) {
    VEMO_ASSERT(a >= 0.0f);
    m_arb2_pipe_at_output = a;
}

void GlobalInterconnectModel::set_arb2_test_add_latency(float a) {
    VEMO_ASSERT(a >= 0.0f);
    m_arb2_test_add_latency = a;
}

TargetModel::~TargetModel() {
    delete m_local_mem_model;
    delete m_global_interconnect_model;
    delete m_delay_model;
    delete m_family_model;
}

const char* TargetModel::get_family_str() const {
    const FamilyNames* names = find_family_names(family);
    if (names == nullptr) {
        VEMO_ASSERT(false && "Could not find string for family enum");
    }
    return names->display_name;
}

LocalMemModel& TargetModel::get_local_mem_model() {
    VEMO_ASSERT(m_local_mem_model != NULL);
    return *m_local_mem_model;
}

const LocalMemModel& TargetModel::get_local_mem_model() const {
    VEMO_ASSERT(m_local_mem_model != NULL);
    return *m_local_mem_model;
}

void TargetModel::set_local_mem_model(LocalMemModel* local_mem_model) {
    VEMO_ASSERT(local_mem_model != NULL);
    replace_owned(m_local_mem_model, local_mem_model);
}

GlobalInterconnectModel& TargetModel::get_global_interconnect_model() {
    VEMO_ASSERT(m_global_interconnect_model != NULL);
    return *m_global_interconnect_model;
}

const GlobalInterconnectModel& TargetModel::get_global_interconnect_model() const {
    VEMO_ASSERT(m_global_interconnect_model != NULL);
    return *m_global_interconnect_model;
}

void TargetModel::set_global_interconnect_model(
    GlobalInterconnectModel* global_interconnect_model) {
    VEMO_ASSERT(global_interconnect_model != NULL);
    replace_owned(m_global_interconnect_model, global_interconnect_model);
}

DelayModel& TargetModel::get_delay_model() {
    VEMO_ASSERT(m_delay_model != NULL);
    return *m_delay_model;
}

const DelayModel& TargetModel::get_delay_model() const {
    VEMO_ASSERT(m_delay_model != NULL);
    return *m_delay_model;
}

void TargetModel::set_delay_model(DelayModel* delay_model) {
    VEMO_ASSERT(delay_model != NULL);
    replace_owned(m_delay_model, delay_model);
}

FamilyModel& TargetModel::get_family_model() {
    VEMO_ASSERT(m_family_model != NULL);
    return *m_family_model;
}

const FamilyModel& TargetModel::get_family_model() const {
    VEMO_ASSERT(m_family_model != NULL);
    return *m_family_model;
}

void TargetModel::set_family_model(FamilyModel* family_model) {
    VEMO_ASSERT(family_model != NULL);
    replace_owned(m_family_model, family_model);
}

std::ostream& operator<<(std::ostream& os, TargetFamily family) {
    const FamilyNames* names = find_family_names(family);
    // Peltra C has a key in the file, but never had a name in the dump.
    if (names == nullptr || family == TargetFamily::PeltraC) {
        return os << "<unknown>(" << static_cast<std::int32_t>(family) << ")";
    }
    return os << names->key;
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
