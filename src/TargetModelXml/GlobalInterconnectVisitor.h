#pragma once

#include "TargetModel/TargetModel.h"
#include "TargetModelXml/ConstantsVisitor.h"

namespace vemo::tmodel::xml {

/// Reads `global_interconnect`: pipelining figures, all floats of at least 0.
class GlobalInterconnectVisitor : public ConstantsVisitor<GlobalInterconnectModel> {
public:
    /// Fills `tm`, which is not owned and must not be null.
    GlobalInterconnectVisitor(BaseVisitor* parent, TargetModel* tm);

    using ConstantsVisitor::VisitEnter;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;

private:
    bool visit_global_interconnect_elem(const XMLElement& elem);
    bool visit_constant_elem(const XMLElement& elem);

    static const Constant CONSTANTS[];

    TargetModel* m_tm;
};

}  // namespace vemo::tmodel::xml
