#include "TargetModelXml/FamilyModelVisitor.h"

#include <string_view>

#include "Base/Assert.h"

namespace vemo::tmodel::xml {
namespace {

constexpr const char* ELEMENT = "family_info";

}  // namespace

// In the order of the final check.
const FamilyModelVisitor::Constant<FamilyModel> FamilyModelVisitor::CONSTANTS[] = {
    {"bits_per_alm", any_unsigned<&FamilyModel::bits_per_alm>},
    {"lut_inputs", any_unsigned<&FamilyModel::lut_inputs>},
    {"mux_inputs", any_unsigned<&FamilyModel::mux_inputs>},
    {"preferred_dsp_dot_size", any_unsigned<&FamilyModel::preferred_dsp_dot_size>},
    {"block_ram_name", text<&FamilyModel::block_ram_name>},
    {"alm_rom_name", text<&FamilyModel::alm_rom_name>},
};

FamilyModelVisitor::FamilyModelVisitor(BaseVisitor* parent, TargetModel* tm)
    : ConstantsVisitor(parent), m_tm(tm) {
    VEMO_ASSERT(tm != NULL);
}

bool FamilyModelVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    return current_name() == ELEMENT ? visit_family_info_elem(elem) : visit_constant_elem(elem);
}

bool FamilyModelVisitor::visit_family_info_elem(const XMLElement& elem) {
    if (check_sub_model_elem(elem)) {
        VEMO_ASSERT(!m_tm->has_family_model());
        m_tm->set_family_model(new FamilyModel);
    }
    return !m_has_error;
}

bool FamilyModelVisitor::visit_constant_elem(const XMLElement& elem) {
    return visit_constant(elem, ELEMENT, CONSTANTS, &m_tm->get_family_model());
}

bool FamilyModelVisitor::VisitExit(const XMLElement& elem) {
    if (!m_has_error && current_name() == ELEMENT && !check_constants(elem, CONSTANTS)) {
        return false;
    }
    return BaseVisitor::VisitExit(elem);
}

}  // namespace vemo::tmodel::xml
