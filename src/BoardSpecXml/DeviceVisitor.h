#pragma once

#include "BoardSpec/BoardSpec.h"
#include "DeviceResourcesXml.h"

namespace vemo::board::xml {

/// Reads `device`: the device model's name and the resources in use.
class DeviceVisitor : public dmodel::xml::DeviceResourcesVisitor {
public:
    /// Fills `spec`, which is not owned and must not be null.
    DeviceVisitor(BaseVisitor* parent, BoardSpec* spec);

    using DeviceResourcesVisitor::VisitEnter;
    using DeviceResourcesVisitor::VisitExit;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;
    bool VisitExit(const XMLElement& elem) override;

private:
    bool visit_device_elem(const XMLElement& elem);
    bool visit_used_resources_elem(const XMLElement& elem);
    bool visit_used_resources_single_elem(const XMLElement& elem);
    bool check_used_resources(const XMLElement& elem);

    static const Resource USED_RESOURCES[];

    static const ElementHandler<DeviceVisitor> HANDLERS[];

    BoardSpec* m_spec;
};

}  // namespace vemo::board::xml
