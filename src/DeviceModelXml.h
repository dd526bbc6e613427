#pragma once

#include "DeviceModel.h"
#include "DeviceResourcesXml.h"

namespace vemo::dmodel::xml {

/// Reads a device model document into a DeviceModel.
class DeviceModelVisitor : public DeviceResourcesVisitor {
public:
    /// Fills `dm`, which is not owned and must not be null.
    DeviceModelVisitor(DeviceModel* dm, vemo::xml::VisitorCallbacks* callbacks, bool debug);

    using DeviceResourcesVisitor::VisitEnter;
    using DeviceResourcesVisitor::VisitExit;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;
    bool VisitExit(const XMLElement& elem) override;

private:
    bool visit_device_model_elem(const XMLElement& elem);
    bool visit_fmax_elem(const XMLElement& elem);
    bool visit_resources_elem(const XMLElement& elem);
    bool visit_resources_single_elem(const XMLElement& elem);

    static const Resource RESOURCES[];

    static const ElementHandler<DeviceModelVisitor> HANDLERS[];

    DeviceModel* m_dm;
};

}  // namespace vemo::dmodel::xml
