#pragma once

#include "BaseVisitor/BaseVisitor.h"
#include "BoardSpec/BoardSpec.h"

namespace vemo::board::xml {

/// Reads `device`: the device model's name and the resources in use.
class DeviceVisitor : public vemo::xml::BaseVisitor {
public:
    /// Fills `spec`, which is not owned and must not be null.
    DeviceVisitor(BaseVisitor* parent, BoardSpec* spec);

    using BaseVisitor::VisitEnter;
    using BaseVisitor::VisitExit;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;
    bool VisitExit(const XMLElement& elem) override;

private:
    bool visit_device_elem(const XMLElement& elem);
    bool visit_used_resources_elem(const XMLElement& elem);
    bool visit_used_resources_single_elem(const XMLElement& elem);
    bool check_used_resources(const XMLElement& elem);

    BoardSpec* m_spec;
};

}  // namespace vemo::board::xml
