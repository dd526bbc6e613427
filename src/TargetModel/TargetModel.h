#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace vemo::tmodel {

/// Supported device families; TypeCount means that none was set.
enum class TargetFamily : std::int32_t {
    PeltraA,
    PeltraB,
    PeltraC,
    OsminC,
    OsminB,
    DuvelB,
    DuvelCLX,
    TypeCount
};

/// The family that target model files write as `key`, or TypeCount when there is none.
TargetFamily find_target_family(std::string_view key);

/// That key, or null for a value that is no family.
const char* find_target_family_key(TargetFamily family);

/// How the fmax of local memory degrades with its structure. All figures are at least 0.
class LocalMemFmaxDegradationModel {
public:
    float get_group_per_all_rams() const { return m_group_per_all_rams; }
    float get_total_per_all_rams() const { return m_total_per_all_rams; }
    float get_per_coalescing_width() const { return m_per_coalescing_width; }
    float get_per_log2_num_banks() const { return m_per_log2_num_banks; }
    float get_per_port_fanin() const { return m_per_port_fanin; }
    void set_group_per_all_rams(float group_per_all_rams);
    void set_total_per_all_rams(float total_per_all_rams);
    void set_per_coalescing_width(float per_coalescing_width);
    void set_per_log2_num_banks(float per_log2_num_banks);
    void set_per_port_fanin(float per_port_fanin);

private:
    float m_group_per_all_rams = 0.0f;
    float m_total_per_all_rams = 0.0f;
    float m_per_coalescing_width = 0.0f;
    float m_per_log2_num_banks = 0.0f;
    float m_per_port_fanin = 0.0f;
};

/// Geometry of the embedded memory blocks (width in bits, depth in words). Every count is above 0
/// once set, every flag 0 or 1.
class LocalMemModel {
public:
    LocalMemModel() = default;
    ~LocalMemModel();
    LocalMemModel(const LocalMemModel&) = delete;
    LocalMemModel& operator=(const LocalMemModel&) = delete;

    unsigned get_single_port_mem_block_width() const { return m_single_port_mem_block_width; }
    unsigned get_single_port_mem_block_depth() const { return m_single_port_mem_block_depth; }
    unsigned get_dual_port_mem_block_width() const { return m_dual_port_mem_block_width; }
    unsigned get_dual_port_mem_block_depth() const { return m_dual_port_mem_block_depth; }
    unsigned get_bursting_lsu_cache_size_n() const { return m_bursting_lsu_cache_size_n; }
    unsigned get_single_port_mem_block_supports_rdw_mode_old_data() const {
        return m_single_port_mem_block_supports_rdw_mode_old_data;
    }
    unsigned get_dual_port_mem_block_supports_rdw_mode_old_data() const {
        return m_dual_port_mem_block_supports_rdw_mode_old_data;
    }
    void set_single_port_mem_block_width(unsigned mem_block_width);
    void set_single_port_mem_block_depth(unsigned mem_block_depth);
    void set_dual_port_mem_block_width(unsigned mem_block_width);
    void set_dual_port_mem_block_depth(unsigned mem_block_depth);
    void set_bursting_lsu_cache_size_n(unsigned cache_size_n);
    void set_single_port_mem_block_supports_rdw_mode_old_data(unsigned supports_old_data);
    void set_dual_port_mem_block_supports_rdw_mode_old_data(unsigned supports_old_data);

    bool has_fmax_degradation_model() const { return m_fmax_degradation_model != nullptr; }
    LocalMemFmaxDegradationModel& get_fmax_degradation_model();
    const LocalMemFmaxDegradationModel& get_fmax_degradation_model() const;

    /// Takes ownership of the model, which must not be null; an earlier one is destroyed.
    void set_fmax_degradation_model(LocalMemFmaxDegradationModel* fmax_degradation_model);

private:
    unsigned m_single_port_mem_block_width = 0;
    unsigned m_single_port_mem_block_depth = 0;
    unsigned m_dual_port_mem_block_width = 0;
    unsigned m_dual_port_mem_block_depth = 0;
    unsigned m_bursting_lsu_cache_size_n = 0;
    unsigned m_single_port_mem_block_supports_rdw_mode_old_data = 0;
    unsigned m_dual_port_mem_block_supports_rdw_mode_old_data = 0;
    LocalMemFmaxDegradationModel* m_fmax_degradation_model = nullptr;  // owned
};

/// Pipelining rules of the global memory interconnect. All figures, depths and switches included,
/// are floats of at least 0.
class GlobalInterconnectModel {
public:
    float get_arb2_data_pipe_spacing() const { return m_arb2_data_pipe_spacing; }
    float get_arb2_data_pipe_min_depth() const { return m_arb2_data_pipe_min_depth; }
    float get_arb2_stall_pipe_spacing() const { return m_arb2_stall_pipe_spacing; }
    float get_arb2_stall_pipe_min_depth() const { return m_arb2_stall_pipe_min_depth; }
    float get_arb2_pipe_at_output() const { return m_arb2_pipe_at_output; }
    float get_arb2_test_add_latency() const { return m_arb2_test_add_latency; }
    void set_arb2_data_pipe_spacing(float a);
    void set_arb2_data_pipe_min_depth(float a);
    void set_arb2_stall_pipe_spacing(float a);
    void set_arb2_stall_pipe_min_depth(float a);
    void set_arb2_pipe_at_output(float a);
    void set_arb2_test_add_latency(float a);

private:
    float m_arb2_data_pipe_spacing = 0.0f;
    float m_arb2_data_pipe_min_depth = 0.0f;
    float m_arb2_stall_pipe_spacing = 0.0f;
    float m_arb2_stall_pipe_min_depth = 0.0f;
    float m_arb2_pipe_at_output = 0.0f;
    float m_arb2_test_add_latency = 0.0f;
};

/// Basic delays in picoseconds.
struct DelayModel {
    unsigned alm_delay_ps = 0;
    unsigned routing_delay_ps = 0;
};

/// Facts about the family's logic.
struct FamilyModel {
    unsigned bits_per_alm = 0;
    unsigned lut_inputs = 0;
    unsigned mux_inputs = 0;
    unsigned preferred_dsp_dot_size = 0;
    std::string block_ram_name;
    std::string alm_rom_name;
};

/// One FPGA device family: its style model files and the models of its memories, interconnect,
/// delays and logic.
class TargetModel {
public:
    /// Version of the file format.
    enum Version : std::int32_t { Version_0_9, TypeCount };

    TargetModel() = default;
    ~TargetModel();
    TargetModel(const TargetModel&) = delete;
    TargetModel& operator=(const TargetModel&) = delete;

    /// Display name of the family, which must have been set.
    const char* get_family_str() const;

    // For each sub-model: its getter needs it to be set; its setter takes ownership of a non-null
    // model and destroys the one before.

    bool has_local_mem_model() const { return m_local_mem_model != nullptr; }
    LocalMemModel& get_local_mem_model();
    const LocalMemModel& get_local_mem_model() const;
    void set_local_mem_model(LocalMemModel* local_mem_model);

    /// Optional in the file: ask has_ first.
    bool has_global_interconnect_model() const { return m_global_interconnect_model != nullptr; }
    GlobalInterconnectModel& get_global_interconnect_model();
    const GlobalInterconnectModel& get_global_interconnect_model() const;
    void set_global_interconnect_model(GlobalInterconnectModel* global_interconnect_model);

    bool has_delay_model() const { return m_delay_model != nullptr; }
    DelayModel& get_delay_model();
    const DelayModel& get_delay_model() const;
    void set_delay_model(DelayModel* delay_model);

    bool has_family_model() const { return m_family_model != nullptr; }
    FamilyModel& get_family_model();
    const FamilyModel& get_family_model() const;
    void set_family_model(FamilyModel* family_model);

    Version version = TypeCount;
    TargetFamily family = TargetFamily::TypeCount;
    std::vector<std::string> style_models;  // file names as written, in file order

private:
    LocalMemModel* m_local_mem_model = nullptr;                      // owned
    GlobalInterconnectModel* m_global_interconnect_model = nullptr;  // owned
    DelayModel* m_delay_model = nullptr;                             // owned
    FamilyModel* m_family_model = nullptr;                           // owned
};

// Dumps. Only that of TargetModel ends in a newline; of its sub-models it holds the local memory.
std::ostream& operator<<(std::ostream& os, TargetFamily family);
std::ostream& operator<<(std::ostream& os, TargetModel::Version version);
std::ostream& operator<<(std::ostream& os, const TargetModel& tm);
std::ostream& operator<<(std::ostream& os, const LocalMemModel& model);
std::ostream& operator<<(std::ostream& os, const LocalMemFmaxDegradationModel& model);
std::ostream& operator<<(std::ostream& os, const GlobalInterconnectModel& model);
std::ostream& operator<<(std::ostream& os, const DelayModel& model);
std::ostream& operator<<(std::ostream& os, const FamilyModel& model);

}  // namespace vemo::tmodel
