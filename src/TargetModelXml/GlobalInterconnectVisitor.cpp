#include "TargetModelXml/GlobalInterconnectVisitor.h"

#include "Base/Assert.h"

namespace vemo::tmodel::xml {

// In the order of the final check.
const GlobalInterconnectVisitor::Constant GlobalInterconnectVisitor::CONSTANTS[] = {
    {"arb2_data_pipe_spacing", non_negative<&GlobalInterconnectModel::set_arb2_data_pipe_spacing>},
    {"arb2_data_pipe_min_depth",
     non_negative<&GlobalInterconnectModel::set_arb2_data_pipe_min_depth>},
    {"arb2_stall_pipe_spacing",
     non_negative<&GlobalInterconnectModel::set_arb2_stall_pipe_spacing>},
    {"arb2_stall_pipe_min_depth",
     non_negative<&GlobalInterconnectModel::set_arb2_stall_pipe_min_depth>},
    {"arb2_pipe_at_output", non_negative<&GlobalInterconnectModel::set_arb2_pipe_at_output>},
    {"arb2_test_add_latency", non_negative<&GlobalInterconnectModel::set_arb2_test_add_latency>},
};

GlobalInterconnectVisitor::GlobalInterconnectVisitor(BaseVisitor* parent, TargetModel* tm)
    : ConstantsVisitor(parent, "global_interconnect", CONSTANTS), m_tm(tm) {
    VEMO_ASSERT(tm != NULL);
}

bool GlobalInterconnectVisitor::VisitEnter(const XMLElement& elem,
                                           const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    return is_sub_model_elem() ? visit_global_interconnect_elem(elem) : visit_constant_elem(elem);
}

bool GlobalInterconnectVisitor::visit_global_interconnect_elem(const XMLElement& elem) {
    if (check_sub_model_elem(elem)) {
        VEMO_ASSERT(!m_tm->has_global_interconnect_model());
        m_tm->set_global_interconnect_model(new GlobalInterconnectModel);
    }
    return !m_has_error;
}

bool GlobalInterconnectVisitor::visit_constant_elem(const XMLElement& elem) {
    return check_constant_elem(elem) && read_constant(elem, &m_tm->get_global_interconnect_model());
}

}  // namespace vemo::tmodel::xml
