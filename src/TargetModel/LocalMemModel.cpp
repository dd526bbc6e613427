#include "TargetModel/LocalMemModel.h"

#include "Base/Assert.h"
#include "Base/Ownership.h"

namespace vemo::tmodel {

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

}  // namespace vemo::tmodel
