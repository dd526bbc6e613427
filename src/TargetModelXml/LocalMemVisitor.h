#pragma once

#include "TargetModel/TargetModel.h"
#include "TargetModelXml/ConstantsVisitor.h"

namespace vemo::tmodel::xml {

/// Reads `local_mem`: the geometry of the memory blocks, and `fmax_degradation` through a visitor
/// of its own.
class LocalMemVisitor : public ConstantsVisitor<LocalMemModel> {
public:
    /// Fills `tm`, which is not owned and must not be null.
    LocalMemVisitor(BaseVisitor* parent, TargetModel* tm);

    using ConstantsVisitor::VisitEnter;
    using ConstantsVisitor::VisitExit;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;
    bool VisitExit(const XMLElement& elem) override;

private:
    bool visit_local_mem_elem(const XMLElement& elem);
    bool visit_fmax_degradation_elem(const XMLElement& elem);
    bool visit_constant_elem(const XMLElement& elem);

    static const Constant CONSTANTS[];

    TargetModel* m_tm;
};

}  // namespace vemo::tmodel::xml
