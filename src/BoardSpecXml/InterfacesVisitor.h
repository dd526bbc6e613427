#pragma once

#include "BaseVisitor/BaseVisitor.h"
#include "BoardSpec/BoardSpec.h"

namespace vemo::board::xml {

/// Reads `interfaces`: those between the board and the kernel, and the kernel's clocks and reset.
class InterfacesVisitor : public vemo::xml::BaseVisitor {
public:
    /// Fills `spec`, which is not owned and must not be null.
    InterfacesVisitor(BaseVisitor* parent, BoardSpec* spec);

    using BaseVisitor::VisitEnter;
    using BaseVisitor::VisitExit;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;
    bool VisitExit(const XMLElement& elem) override;

private:
    bool visit_interfaces_elem(const XMLElement& elem);
    bool visit_interface_elem(const XMLElement& elem);
    bool visit_kernel_clk_reset_elem(const XMLElement& elem);

    static const ElementHandler<InterfacesVisitor> HANDLERS[];

    BoardSpec* m_spec;
};

}  // namespace vemo::board::xml
