#pragma once

#include "TargetModel/TargetModel.h"
#include "TargetModelXml/ConstantsVisitor.h"

namespace vemo::tmodel::xml {

/// Reads `fmax_degradation`, a child of `local_mem`: floats of at least 0.
class LocalMemFmaxDegradationVisitor : public ConstantsVisitor {
public:
    /// Fills `local_mem_model`, which is not owned and must not be null.
    LocalMemFmaxDegradationVisitor(BaseVisitor* parent, LocalMemModel* local_mem_model);

    using ConstantsVisitor::VisitEnter;
    using ConstantsVisitor::VisitExit;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;
    bool VisitExit(const XMLElement& elem) override;

private:
    bool visit_fmax_degradation_elem(const XMLElement& elem);
    bool visit_constant_elem(const XMLElement& elem);

    static const Constant<LocalMemFmaxDegradationModel> CONSTANTS[5];

    LocalMemModel* m_local_mem_model;
};

}  // namespace vemo::tmodel::xml
