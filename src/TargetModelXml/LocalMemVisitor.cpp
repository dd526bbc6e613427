#include "TargetModelXml/LocalMemVisitor.h"

#include <string_view>

#include "Base/Assert.h"
#include "TargetModelXml/LocalMemFmaxDegradationVisitor.h"

namespace vemo::tmodel::xml {
namespace {

constexpr const char* FMAX_DEGRADATION = "fmax_degradation";

}  // namespace

// In the order of the final check.
const LocalMemVisitor::Constant LocalMemVisitor::CONSTANTS[] = {
    {"single_port_mem_block_width", positive<&LocalMemModel::set_single_port_mem_block_width>},
    {"single_port_mem_block_depth", positive<&LocalMemModel::set_single_port_mem_block_depth>},
    {"dual_port_mem_block_width", positive<&LocalMemModel::set_dual_port_mem_block_width>},
    {"dual_port_mem_block_depth", positive<&LocalMemModel::set_dual_port_mem_block_depth>},
    {"bursting_lsu_cache_size_n", positive<&LocalMemModel::set_bursting_lsu_cache_size_n>},
    {"single_port_mem_block_supports_rdw_mode_old_data",
     boolean<&LocalMemModel::set_single_port_mem_block_supports_rdw_mode_old_data>},
    {"dual_port_mem_block_supports_rdw_mode_old_data",
     boolean<&LocalMemModel::set_dual_port_mem_block_supports_rdw_mode_old_data>},
};

LocalMemVisitor::LocalMemVisitor(BaseVisitor* parent, TargetModel* tm)
    : ConstantsVisitor(parent, "local_mem", CONSTANTS), m_tm(tm) {
    VEMO_ASSERT(tm != NULL);
}

bool LocalMemVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    if (is_sub_model_elem()) {
        return visit_local_mem_elem(elem);
    }
    if (current_name() == FMAX_DEGRADATION) {
        return visit_fmax_degradation_elem(elem);
    }
    return visit_constant_elem(elem);
}

bool LocalMemVisitor::visit_local_mem_elem(const XMLElement& elem) {
    if (check_sub_model_elem(elem)) {
        VEMO_ASSERT(!m_tm->has_local_mem_model());
        m_tm->set_local_mem_model(new LocalMemModel);
    }
    return !m_has_error;
}

bool LocalMemVisitor::visit_fmax_degradation_elem(const XMLElement& elem) {
    return report_unexpected_elem_stack(elem, 1, "local_mem")
           && report_unexpected_elem_stack_count(elem, 1)
           && delegate<LocalMemFmaxDegradationVisitor>(elem, &m_tm->get_local_mem_model());
}

bool LocalMemVisitor::visit_constant_elem(const XMLElement& elem) {
    return check_constant_elem(elem)
           && read_constant(elem, &m_tm->get_local_mem_model(), FMAX_DEGRADATION);
}

bool LocalMemVisitor::VisitExit(const XMLElement& elem) {
    if (!m_has_error && is_sub_model_elem()) {
        if (!check_constants(elem)) {
            return false;
        }
        if (!m_tm->get_local_mem_model().has_fmax_degradation_model()) {
            return report_error(
                elem, "Missing fmax degradation <fmax_degradation> model for local memory.",
                {"missing-element", {}, "fmax_degradation"});
        }
    }
    // Not the parent's, which would check the constants again.
    return BaseVisitor::VisitExit(elem);  // NOLINT(bugprone-parent-virtual-call)
}

}  // namespace vemo::tmodel::xml
