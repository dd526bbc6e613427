#pragma once

#include "BaseVisitor/BaseVisitor.h"
#include "BoardSpec/BoardSpec.h"

namespace vemo::board::xml {

/// Reads `host`: where the host sees the kernel's configuration registers.
class HostVisitor : public vemo::xml::BaseVisitor {
public:
    /// Fills `spec`, which is not owned and must not be null.
    HostVisitor(BaseVisitor* parent, BoardSpec* spec);

    using BaseVisitor::VisitEnter;
    using BaseVisitor::VisitExit;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;
    bool VisitExit(const XMLElement& elem) override;

private:
    bool visit_host_elem(const XMLElement& elem);
    bool visit_kernel_config_elem(const XMLElement& elem);

    static const ElementHandler<HostVisitor> HANDLERS[];

    BoardSpec* m_spec;
};

}  // namespace vemo::board::xml
