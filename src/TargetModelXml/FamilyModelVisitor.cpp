#include "TargetModelXml/FamilyModelVisitor.h"

#include "Base/Assert.h"

namespace vemo::tmodel::xml {

// In the order of the final check.
const FamilyModelVisitor::Constant FamilyModelVisitor::CONSTANTS[] = {
    {"bits_per_alm", any_unsigned<&FamilyModel::bits_per_alm>},
    {"lut_inputs", any_unsigned<&FamilyModel::lut_inputs>},
    {"mux_inputs", any_unsigned<&FamilyModel::mux_inputs>},
    {"preferred_dsp_dot_size", any_unsigned<&FamilyModel::preferred_dsp_dot_size>},
    {"block_ram_name", text<&FamilyModel::block_ram_name>},
    {"alm_rom_name", text<&FamilyModel::alm_rom_name>},
};

FamilyModelVisitor::FamilyModelVisitor(BaseVisitor* parent, TargetModel* tm)
    : ConstantsVisitor(parent, "family_info", CONSTANTS), m_tm(tm) {
    VEMO_ASSERT(tm != NULL);
}

bool FamilyModelVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    return is_sub_model_elem() ? visit_family_model_elem(elem) : visit_constant_elem(elem);
}

bool FamilyModelVisitor::visit_family_model_elem(const XMLElement& elem) {
    if (check_sub_model_elem(elem)) {
        VEMO_ASSERT(!m_tm->has_family_model());
        m_tm->set_family_model(new FamilyModel);
    }
    return !m_has_error;
}

bool FamilyModelVisitor::visit_constant_elem(const XMLElement& elem) {
    return check_constant_elem(elem) && read_constant(elem, &m_tm->get_family_model());
}

}  // namespace vemo::tmodel::xml
