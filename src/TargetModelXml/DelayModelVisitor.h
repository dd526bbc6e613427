#pragma once

#include "TargetModel/TargetModel.h"
#include "TargetModelXml/ConstantsVisitor.h"

namespace vemo::tmodel::xml {

/// Reads `delay_model`: delays in picoseconds.
class DelayModelVisitor : public ConstantsVisitor<DelayModel> {
public:
    /// Fills `tm`, which is not owned and must not be null.
    DelayModelVisitor(BaseVisitor* parent, TargetModel* tm);

    using ConstantsVisitor::VisitEnter;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;

private:
    bool visit_delay_model_elem(const XMLElement& elem);
    bool visit_constant_elem(const XMLElement& elem);

    static const Constant CONSTANTS[];

    TargetModel* m_tm;
};

}  // namespace vemo::tmodel::xml
