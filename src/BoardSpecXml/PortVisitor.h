#pragma once

#include "BaseVisitor/BaseVisitor.h"
#include "BoardSpec/Interface.h"

namespace vemo::board::xml {

/// Reads the `port` children of an `interface` element.
class PortVisitor : public vemo::xml::BaseVisitor {
public:
    /// Adds the ports to `intf`, which is not owned and must not be null.
    PortVisitor(BaseVisitor* parent, Interface* intf);

    using BaseVisitor::VisitEnter;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;

private:
    bool visit_port_elem(const XMLElement& elem);

    Interface* m_intf;
};

}  // namespace vemo::board::xml
