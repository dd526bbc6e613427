#include "TargetModel/LocalMemFmaxDegradationModel.h"

#include "Base/Assert.h"

namespace vemo::tmodel {

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

}  // namespace vemo::tmodel
