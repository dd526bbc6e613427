#pragma once

#include "TargetModel/TargetModel.h"
#include "TargetModelXml/ConstantsVisitor.h"

namespace vemo::tmodel::xml {

/// Reads `family_info`: facts about the family's logic.
class FamilyModelVisitor : public ConstantsVisitor<FamilyModel> {
public:
    /// Fills `tm`, which is not owned and must not be null.
    FamilyModelVisitor(BaseVisitor* parent, TargetModel* tm);

    using ConstantsVisitor::VisitEnter;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;

private:
    bool visit_family_model_elem(const XMLElement& elem);
    bool visit_constant_elem(const XMLElement& elem);

    static const Constant CONSTANTS[];

    TargetModel* m_tm;
};

}  // namespace vemo::tmodel::xml
