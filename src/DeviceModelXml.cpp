#include "DeviceModelXml.h"

#include <string_view>

#include "Base/Assert.h"

namespace vemo::dmodel::xml {
namespace {

/// One figure of the `fmax` element.
struct FmaxAttribute {
    const char* name;
    void (DeviceModel::*set)(float);
    const char* range_error;
};

// In the order of reading.
constexpr FmaxAttribute FMAX_ATTRIBUTES[] = {
    {"expected", &DeviceModel::set_expected_fmax, "Expected fmax must be positive."},
    {"min", &DeviceModel::set_min_fmax, "Minimum fmax must be positive."},
    {"high", &DeviceModel::set_high_fmax, "High fmax threshold must be positive."},
};

// In the order of the final check.
constexpr const char* RESOURCE_NAMES[] = {"alms", "ffs", "dsps", "rams"};

}  // namespace

DeviceModelVisitor::DeviceModelVisitor(DeviceModel* dm, vemo::xml::VisitorCallbacks* callbacks,
                                       bool debug)
    : BaseVisitor(callbacks, debug), m_dm(dm) {
    VEMO_ASSERT(dm != NULL);
}

bool DeviceModelVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    const std::string_view name = current_name();
    if (name == "device_model") {
        return visit_device_model_elem(elem);
    }
    if (name == "resources") {
        return visit_resources_elem(elem);
    }
    if (name == "fmax") {
        return visit_fmax_elem(elem);
    }
    if (check_element_stack(2, "device_model", "resources")) {
        return visit_resources_single_elem(elem);
    }
    return report_unexpected_elem(elem, "");
}

bool DeviceModelVisitor::visit_device_model_elem(const XMLElement& elem) {
    std::string version;
    std::string target_model;
    if (!(report_unexpected_elem_stack(elem, 0) && report_unexpected_elem_stack_count(elem, 1)
          && report_unexpected_attrs(elem, 2, "version", "target_model")
          && query_attribute(elem, "version", &version, REPORT, REQUIRED))) {
        return false;
    }
    if (version != "0.9") {
        return report_attr_error(elem, "version", "Unsupported version string.");
    }
    m_dm->version = DeviceModel::Version_0_9;

    if (!query_attribute(elem, "target_model", &target_model, REPORT, REQUIRED)) {
        return false;
    }
    if (target_model.empty()) {
        return report_attr_error(elem, "target_model", "A target model file must be specified.");
    }
    m_dm->target_model = target_model;
    return !m_has_error;
}

bool DeviceModelVisitor::visit_fmax_elem(const XMLElement& elem) {
    // All three checks are made, whatever the first ones say.
    report_unexpected_elem_stack(elem, 1, "device_model");
    report_unexpected_elem_stack_count(elem, 1);
    report_unexpected_attrs(elem, 3, "expected", "min", "high");

    for (const FmaxAttribute& attribute : FMAX_ATTRIBUTES) {
        const bool is_required = attribute.set != &DeviceModel::set_high_fmax;
        float fmax = 0.0f;
        if (!m_has_error && query_attribute(elem, attribute.name, &fmax, REPORT, is_required)) {
            if (!(fmax > 0.0f)) {  // NaN included
                return report_attr_error(elem, attribute.name, attribute.range_error);
            }
            (m_dm->*attribute.set)(fmax);
        }
    }
    return !m_has_error;
}

bool DeviceModelVisitor::visit_resources_elem(const XMLElement& elem) {
    if (report_unexpected_elem_stack(elem, 1, "device_model")
        && report_unexpected_elem_stack_count(elem, 1) && report_unexpected_attrs(elem, 0)) {
        VEMO_ASSERT(!m_dm->has_resources());
        m_dm->set_resources(new DeviceResources);
    }
    return !m_has_error;
}

bool DeviceModelVisitor::visit_resources_single_elem(const XMLElement& elem) {
    unsigned num = 0;
    if (!(report_unexpected_elem_stack(elem, 2, "device_model", "resources")
          && report_unexpected_elem_stack_count(elem, 1) && report_unexpected_attrs(elem, 1, "num")
          && query_attribute(elem, "num", &num, REPORT, REQUIRED))) {
        return !m_has_error;
    }
    const std::string_view name = current_name();
    DeviceResources& resources = m_dm->get_resources();
    if (name == "alms") {
        resources.LEs = 2 * num;  // an ALM counts as two logic elements
    } else if (name == "ffs") {
        resources.FFs = num;
    } else if (name == "dsps") {
        resources.DSPs = num;
    } else if (name == "rams") {
        resources.RAMs = num;
    } else {
        return report_unexpected_elem(elem, "");
    }
    return !m_has_error;
}

bool DeviceModelVisitor::VisitExit(const XMLElement& elem) {
    if (m_has_error || current_name() != "device_model") {
        return BaseVisitor::VisitExit(elem);
    }
    if (!report_unexpected_elem_count(elem, 1, 2, "device_model", "fmax")) {
        return false;
    }
    if (!m_dm->has_resources()) {
        return report_error("Missing resources (<resources>) in device model.");
    }
    for (const char* name : RESOURCE_NAMES) {
        if (!report_unexpected_elem_count(elem, 1, 3, "device_model", "resources", name)) {
            return false;
        }
    }
    return BaseVisitor::VisitExit(elem);
}

}  // namespace vemo::dmodel::xml
