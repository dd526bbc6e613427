#include "DeviceModelXml.h"

#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>

#include "Base/Assert.h"

namespace vemo::dmodel::xml {
namespace {

constexpr bool REQUIRED = vemo::xml::BaseVisitor::REQUIRED;
constexpr bool OPTIONAL = vemo::xml::BaseVisitor::OPTIONAL;

/// A figure of the `fmax` element.
struct FmaxAttribute {
    const char* name;
    bool is_required;
    void (DeviceModel::*set)(float);
    const char* range_error;
};

// In the order of reading; the same rows are the attributes that are allowed.
constexpr FmaxAttribute FMAX_ATTRIBUTES[] = {
    {"expected", REQUIRED, &DeviceModel::set_expected_fmax, "Expected fmax must be positive."},
    {"min", REQUIRED, &DeviceModel::set_min_fmax, "Minimum fmax must be positive."},
    {"high", OPTIONAL, &DeviceModel::set_high_fmax, "High fmax threshold must be positive."},
};

}  // namespace

// In the order of the final check.
const DeviceModelVisitor::Resource DeviceModelVisitor::RESOURCES[] = {ALMS, FFS, DSPS, RAMS};

const DeviceModelVisitor::ElementHandler<DeviceModelVisitor> DeviceModelVisitor::HANDLERS[] = {
    {"device_model", &DeviceModelVisitor::visit_device_model_elem},
    {"resources", &DeviceModelVisitor::visit_resources_elem},
    {"fmax", &DeviceModelVisitor::visit_fmax_elem},
};

DeviceModelVisitor::DeviceModelVisitor(DeviceModel* dm, vemo::xml::VisitorCallbacks* callbacks,
                                       bool debug)
    : DeviceResourcesVisitor(callbacks, debug), m_dm(dm) {
    VEMO_ASSERT(dm != NULL);
}

bool DeviceModelVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    if (find_handler(HANDLERS) == nullptr && check_element_stack(2, "device_model", "resources")) {
        return visit_resources_single_elem(elem);
    }
    return dispatch(this, elem, HANDLERS);
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
        return report_attr_error(elem, "version", "Unsupported version string.",
                                 {"unsupported-version", {"0.9"}});
    }
    m_dm->version = DeviceModel::Version_0_9;

    if (!query_attribute(elem, "target_model", &target_model, REPORT, REQUIRED)) {
        return false;
    }
    if (target_model.empty()) {
        return report_attr_error(elem, "target_model", "A target model file must be specified.",
                                 {"empty-value"});
    }
    m_dm->target_model = target_model;
    return !m_has_error;
}

bool DeviceModelVisitor::visit_fmax_elem(const XMLElement& elem) {
    const vemo::xml::FoundAttributes found(elem, FMAX_ATTRIBUTES);
    // All three checks are made, even after one has failed.
    report_unexpected_elem_stack(elem, 1, "device_model");
    report_unexpected_elem_stack_count(elem, 1);
    report_unexpected_attrs(elem, found);

    for (std::size_t row = 0; row < std::size(FMAX_ATTRIBUTES) && !m_has_error; ++row) {
        const FmaxAttribute& attribute = FMAX_ATTRIBUTES[row];
        float fmax = 0.0f;
        if (query_attribute(elem, found[row], &fmax, REPORT, attribute.is_required)) {
            if (!(fmax > 0.0f)) {  // NaN included
                return report_attr_error(elem, attribute.name, attribute.range_error,
                                         {"out-of-range", {"1"}});
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
    return query_resource(elem, "device_model", "resources", &num)
           && store_resource(elem, num, RESOURCES, &m_dm->get_resources());
}

bool DeviceModelVisitor::VisitExit(const XMLElement& elem) {
    if (m_has_error || current_name() != "device_model") {
        return BaseVisitor::VisitExit(elem);
    }
    if (!report_unexpected_elem_count(elem, 1, 2, "device_model", "fmax")) {
        return false;
    }
    if (!m_dm->has_resources()) {
        return report_error("Missing resources (<resources>) in device model.",
                            {"missing-element", {}, "resources", nullptr, {}, &elem});
    }
    for (const Resource& resource : RESOURCES) {
        if (!report_unexpected_elem_count(elem, 1, 3, "device_model", "resources", resource.name)) {
            return false;
        }
    }
    return BaseVisitor::VisitExit(elem);
}

}  // namespace vemo::dmodel::xml
