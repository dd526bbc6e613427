#pragma once

#include "TargetModel/LocalMemFmaxDegradationModel.h"

namespace vemo::tmodel {

/// The embedded memory blocks that local memories are built of, and what such memories cost in
/// clock frequency.
///
/// Every figure is 0 in a new model. A setter aborts on a value outside the range given beside it,
/// so widths, depths and the cache size cannot be set back to 0.
class LocalMemModel {
public:
    LocalMemModel() = default;
    ~LocalMemModel();  // destroys the fmax degradation model
    LocalMemModel(const LocalMemModel&) = delete;
    LocalMemModel& operator=(const LocalMemModel&) = delete;

    /// Width in bits of a memory block that is used through one port.
    unsigned get_single_port_mem_block_width() const { return m_single_port_mem_block_width; }
    void set_single_port_mem_block_width(unsigned mem_block_width);  // above 0

    /// Depth of a memory block that is used through one port, in words of its width.
    unsigned get_single_port_mem_block_depth() const { return m_single_port_mem_block_depth; }
    void set_single_port_mem_block_depth(unsigned mem_block_depth);  // above 0

    /// Width in bits of a memory block that is used through two ports.
    unsigned get_dual_port_mem_block_width() const { return m_dual_port_mem_block_width; }
    void set_dual_port_mem_block_width(unsigned mem_block_width);  // above 0

    /// Depth of a memory block that is used through two ports, in words of its width.
    unsigned get_dual_port_mem_block_depth() const { return m_dual_port_mem_block_depth; }
    void set_dual_port_mem_block_depth(unsigned mem_block_depth);  // above 0

    /// Size N of the cache in a bursting load-store unit (LSU), as the file gives it; the file
    /// format states no unit.
    unsigned get_bursting_lsu_cache_size_n() const { return m_bursting_lsu_cache_size_n; }
    void set_bursting_lsu_cache_size_n(unsigned cache_size_n);  // above 0

    /// 1 when a block that is used through one port can return the old data of a word that is
    /// being written (read-during-write mode OLD_DATA), else 0.
    unsigned get_single_port_mem_block_supports_rdw_mode_old_data() const {
        return m_single_port_mem_block_supports_rdw_mode_old_data;
    }
    void set_single_port_mem_block_supports_rdw_mode_old_data(unsigned supports_old_data);  // 0, 1

    /// 1 when a block that is used through two ports can do so, else 0. The dump does not show it.
    unsigned get_dual_port_mem_block_supports_rdw_mode_old_data() const {
        return m_dual_port_mem_block_supports_rdw_mode_old_data;
    }
    void set_dual_port_mem_block_supports_rdw_mode_old_data(unsigned supports_old_data);  // 0, 1

    /// Whether a model has been set; true in every model that a loader returns.
    bool has_fmax_degradation_model() const { return m_fmax_degradation_model != nullptr; }

    /// The fmax degradation model, which this model owns; aborts when none has been set.
    LocalMemFmaxDegradationModel& get_fmax_degradation_model();
    const LocalMemFmaxDegradationModel& get_fmax_degradation_model() const;

    /// Takes ownership of the model, which must not be null, and destroys the one it replaces.
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

}  // namespace vemo::tmodel
