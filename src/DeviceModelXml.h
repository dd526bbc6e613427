#pragma once

#include "BaseVisitor/BaseVisitor.h"
#include "DeviceModel.h"

namespace vemo::dmodel::xml {

/// Reads a device model document into a DeviceModel.
class DeviceModelVisitor : public vemo::xml::BaseVisitor {
public:
    /// Fills `dm`, which is not owned and must not be null.
    DeviceModelVisitor(DeviceModel* dm, vemo::xml::VisitorCallbacks* callbacks, bool debug);

    using BaseVisitor::VisitEnter;
    using BaseVisitor::VisitExit;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;
    bool VisitExit(const XMLElement& elem) override;

private:
    bool visit_device_model_elem(const XMLElement& elem);
    bool visit_fmax_elem(const XMLElement& elem);
    bool visit_resources_elem(const XMLElement& elem);
    bool visit_resources_single_elem(const XMLElement& elem);

    DeviceModel* m_dm;
};

}  // namespace vemo::dmodel::xml
