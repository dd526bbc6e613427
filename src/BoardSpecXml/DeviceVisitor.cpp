#include "BoardSpecXml/DeviceVisitor.h"

#include <string_view>

#include "Base/Assert.h"

namespace vemo::board::xml {

const DeviceVisitor::Resource DeviceVisitor::USED_RESOURCES[] = {ALMS, LES, FFS, DSPS, RAMS};

const DeviceVisitor::ElementHandler<DeviceVisitor> DeviceVisitor::HANDLERS[] = {
    {"device", &DeviceVisitor::visit_device_elem},
    {"used_resources", &DeviceVisitor::visit_used_resources_elem},
};

DeviceVisitor::DeviceVisitor(BaseVisitor* parent, BoardSpec* spec)
    : DeviceResourcesVisitor(parent), m_spec(spec) {
    VEMO_ASSERT(spec != NULL);
}

bool DeviceVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    if (find_handler(HANDLERS) == nullptr && check_element_stack(2, "device", "used_resources")) {
        return visit_used_resources_single_elem(elem);
    }
    return dispatch(this, elem, HANDLERS);
}

bool DeviceVisitor::visit_device_elem(const XMLElement& elem) {
    if (!(report_unexpected_elem_stack(elem, 0) && report_unexpected_elem_stack_count(elem, 1)
          && report_unexpected_attrs(elem, 1, "device_model"))) {
        return !m_has_error;
    }
    VEMO_ASSERT(!m_spec->has_device_config());
    auto* dev_config = new DeviceConfig;
    m_spec->set_device_config(dev_config);
    query_attribute(elem, "device_model", &dev_config->device_model, REPORT, REQUIRED);
    return !m_has_error;
}

bool DeviceVisitor::visit_used_resources_elem(const XMLElement& elem) {
    if (report_unexpected_elem_stack(elem, 1, "device")
        && report_unexpected_elem_stack_count(elem, 1) && report_unexpected_attrs(elem, 0)) {
        DeviceConfig& dev_config = m_spec->get_device_config();
        VEMO_ASSERT(!dev_config.has_used_resources());
        dev_config.set_used_resources(new dmodel::DeviceResources);
    }
    return !m_has_error;
}

bool DeviceVisitor::visit_used_resources_single_elem(const XMLElement& elem) {
    unsigned num = 0;
    return query_resource(elem, "device", "used_resources", &num)
           && store_resource(elem, num, USED_RESOURCES,
                             &m_spec->get_device_config().get_used_resources());
}

bool DeviceVisitor::VisitExit(const XMLElement& elem) {
    const std::string_view name = current_name();
    if (!m_has_error && name == "used_resources" && !check_used_resources(elem)) {
        return false;
    }
    if (!m_has_error && name == "device" && !m_spec->get_device_config().has_used_resources()) {
        return report_error(elem, "Used device resources (<used_resources>) must be defined.",
                            {"missing-element", {}, "used_resources"});
    }
    return BaseVisitor::VisitExit(elem);
}

bool DeviceVisitor::check_used_resources(const XMLElement& elem) {
    for (const Resource& resource : {FFS, DSPS, RAMS}) {
        if (!report_unexpected_elem_count(elem, 1, 3, "device", "used_resources", resource.name)) {
            return false;
        }
    }
    // Logic is given as LEs or as ALMs. Both are accepted: the later one in the file wins.
    const unsigned num_les = get_element_count(3, "device", "used_resources", LES.name);
    const unsigned num_alms = get_element_count(3, "device", "used_resources", ALMS.name);
    return num_les + num_alms == 1
           || report_unexpected_elem_count(elem, 1, 3, "device", "used_resources", ALMS.name);
}

}  // namespace vemo::board::xml
