#include "TargetModelXml/TargetModelVisitor.h"

#include <cstdint>
#include <string>
#include <vector>

#include "Base/Assert.h"
#include "TargetModelXml/DelayModelVisitor.h"
#include "TargetModelXml/FamilyModelVisitor.h"
#include "TargetModelXml/GlobalInterconnectVisitor.h"
#include "TargetModelXml/LocalMemVisitor.h"

namespace vemo::tmodel::xml {
namespace {

std::vector<std::string> family_keys() {
    std::vector<std::string> keys;
    for (auto family = TargetFamily(); family != TargetFamily::TypeCount;
         family = static_cast<TargetFamily>(static_cast<std::int32_t>(family) + 1)) {
        keys.emplace_back(find_target_family_key(family));
    }
    return keys;
}

}  // namespace

const TargetModelVisitor::ElementHandler<TargetModelVisitor> TargetModelVisitor::HANDLERS[] = {
    {"target_model", &TargetModelVisitor::visit_target_model_elem},
    {"style_model", &TargetModelVisitor::visit_style_model_elem},
    {"local_mem", &TargetModelVisitor::visit_local_mem_elem},
    {"global_interconnect", &TargetModelVisitor::visit_global_interconnect_elem},
    {"delay_model", &TargetModelVisitor::visit_delay_model_elem},
    {"family_info", &TargetModelVisitor::visit_family_model_elem},
};

TargetModelVisitor::TargetModelVisitor(TargetModel* tm, vemo::xml::VisitorCallbacks* callbacks,
                                       bool debug)
    : BaseVisitor(callbacks, debug), m_tm(tm) {
    VEMO_ASSERT(tm != NULL);
}

bool TargetModelVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    return dispatch(this, elem, HANDLERS);
}

bool TargetModelVisitor::visit_target_model_elem(const XMLElement& elem) {
    std::string version;
    std::string family;
    if (!(report_unexpected_elem_stack(elem, 0) && report_unexpected_elem_stack_count(elem, 1)
          && report_unexpected_attrs(elem, 2, "version", "family")
          && query_attribute(elem, "version", &version, REPORT, REQUIRED))) {
        return false;
    }
    if (version != "0.9") {
        return report_attr_error(elem, "version", "Unsupported version string.",
                                 {"unsupported-version", {"0.9"}});
    }
    m_tm->version = TargetModel::Version_0_9;

    if (!query_attribute(elem, "family", &family, REPORT, REQUIRED)) {
        return false;
    }
    m_tm->family = find_target_family(family);
    if (m_tm->family == TargetFamily::TypeCount) {
        return report_attr_error(elem, "family", "Unrecognized family option (" + family + ").",
                                 {"unknown-word", family_keys()});
    }
    return !m_has_error;
}

bool TargetModelVisitor::visit_style_model_elem(const XMLElement& elem) {
    const char* file = nullptr;
    if (!(report_unexpected_elem_stack(elem, 1, "target_model")
          && report_unexpected_attrs(elem, 1, "file")
          && query_attribute(elem, "file", &file, REPORT, REQUIRED))) {
        return false;
    }
    if (*file == '\0') {
        return report_attr_error(elem, "file", "Target Style Model file is empty.",
                                 {"empty-value"});
    }
    m_tm->style_models.emplace_back(file);
    return !m_has_error;
}

template <typename Child>
bool TargetModelVisitor::visit_sub_model_elem(const XMLElement& elem) {
    return report_unexpected_elem_stack(elem, 1, "target_model")
           && report_unexpected_elem_stack_count(elem, 1) && delegate<Child>(elem, m_tm);
}

bool TargetModelVisitor::visit_local_mem_elem(const XMLElement& elem) {
    return visit_sub_model_elem<LocalMemVisitor>(elem);
}

bool TargetModelVisitor::visit_global_interconnect_elem(const XMLElement& elem) {
    return visit_sub_model_elem<GlobalInterconnectVisitor>(elem);
}

bool TargetModelVisitor::visit_delay_model_elem(const XMLElement& elem) {
    return visit_sub_model_elem<DelayModelVisitor>(elem);
}

bool TargetModelVisitor::visit_family_model_elem(const XMLElement& elem) {
    return visit_sub_model_elem<FamilyModelVisitor>(elem);
}

bool TargetModelVisitor::VisitExit(const XMLDocument& doc) {
    if (m_has_error) {
        return false;
    }
    if (m_tm->style_models.empty()) {
        return report_error("At least one Target Style Model file (<style_model>) must be given.",
                            {"missing-element", {}, "style_model"});
    }
    if (!m_tm->has_local_mem_model()) {
        return report_error("Missing local memory model (<local_mem>) in target model.",
                            {"missing-element", {}, "local_mem"});
    }
    if (!m_tm->has_delay_model()) {
        return report_error("Missing delay model (<delay_model>) in target model.",
                            {"missing-element", {}, "delay_model"});
    }
    if (!m_tm->has_family_model()) {
        return report_error("Missing family model (<family_info>) in target model.",
                            {"missing-element", {}, "family_info"});
    }
    return BaseVisitor::VisitExit(doc);
}

}  // namespace vemo::tmodel::xml
