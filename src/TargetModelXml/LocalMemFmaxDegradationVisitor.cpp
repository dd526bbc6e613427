#include "TargetModelXml/LocalMemFmaxDegradationVisitor.h"

#include "Base/Assert.h"

namespace vemo::tmodel::xml {

// In the order of the final check.
const LocalMemFmaxDegradationVisitor::Constant LocalMemFmaxDegradationVisitor::CONSTANTS[] = {
    {"group_per_all_rams", non_negative<&LocalMemFmaxDegradationModel::set_group_per_all_rams>},
    {"total_per_all_rams", non_negative<&LocalMemFmaxDegradationModel::set_total_per_all_rams>},
    {"per_coalescing_width", non_negative<&LocalMemFmaxDegradationModel::set_per_coalescing_width>},
    {"per_log2_num_banks", non_negative<&LocalMemFmaxDegradationModel::set_per_log2_num_banks>},
    {"per_port_fanin", non_negative<&LocalMemFmaxDegradationModel::set_per_port_fanin>},
};

LocalMemFmaxDegradationVisitor::LocalMemFmaxDegradationVisitor(BaseVisitor* parent,
                                                               LocalMemModel* local_mem_model)
    : ConstantsVisitor(parent, "fmax_degradation", CONSTANTS), m_local_mem_model(local_mem_model) {
    VEMO_ASSERT(local_mem_model != NULL);
}

bool LocalMemFmaxDegradationVisitor::VisitEnter(const XMLElement& elem,
                                                const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    return is_sub_model_elem() ? visit_fmax_degradation_elem(elem) : visit_constant_elem(elem);
}

bool LocalMemFmaxDegradationVisitor::visit_fmax_degradation_elem(const XMLElement& elem) {
    if (check_sub_model_elem(elem)) {
        VEMO_ASSERT(!m_local_mem_model->has_fmax_degradation_model());
        m_local_mem_model->set_fmax_degradation_model(new LocalMemFmaxDegradationModel);
    }
    return !m_has_error;
}

bool LocalMemFmaxDegradationVisitor::visit_constant_elem(const XMLElement& elem) {
    return check_constant_elem(elem)
           && read_constant(elem, &m_local_mem_model->get_fmax_degradation_model());
}

}  // namespace vemo::tmodel::xml
