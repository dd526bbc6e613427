#include "TargetModelXml/DelayModelVisitor.h"

#include "Base/Assert.h"

namespace vemo::tmodel::xml {

// In the order of the final check.
const DelayModelVisitor::Constant DelayModelVisitor::CONSTANTS[] = {
    {"alm_delay_ps", any_unsigned<&DelayModel::alm_delay_ps>},
    {"routing_delay_ps", any_unsigned<&DelayModel::routing_delay_ps>},
};

DelayModelVisitor::DelayModelVisitor(BaseVisitor* parent, TargetModel* tm)
    : ConstantsVisitor(parent, "delay_model", CONSTANTS), m_tm(tm) {
    VEMO_ASSERT(tm != NULL);
}

bool DelayModelVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    return is_sub_model_elem() ? visit_delay_model_elem(elem) : visit_constant_elem(elem);
}

bool DelayModelVisitor::visit_delay_model_elem(const XMLElement& elem) {
    if (check_sub_model_elem(elem)) {
        VEMO_ASSERT(!m_tm->has_delay_model());
        m_tm->set_delay_model(new DelayModel);
    }
    return !m_has_error;
}

bool DelayModelVisitor::visit_constant_elem(const XMLElement& elem) {
    return check_constant_elem(elem) && read_constant(elem, &m_tm->get_delay_model());
}

}  // namespace vemo::tmodel::xml
