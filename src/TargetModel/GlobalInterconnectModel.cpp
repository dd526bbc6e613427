#include "TargetModel/GlobalInterconnectModel.h"

#include "Base/Assert.h"

namespace vemo::tmodel {

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

}  // namespace vemo::tmodel
