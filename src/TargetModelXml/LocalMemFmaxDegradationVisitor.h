#pragma once

#include "TargetModel/TargetModel.h"
#include "TargetModelXml/ConstantsVisitor.h"

namespace vemo::tmodel::xml {

/// Reads `fmax_degradation`, a child of `local_mem`: floats of at least 0.
class LocalMemFmaxDegradationVisitor : public ConstantsVisitor<LocalMemFmaxDegradationModel> {
public:
    /// Fills `local_mem_model`, which is not owned and must not be null.
    LocalMemFmaxDegradationVisitor(BaseVisitor* parent, LocalMemModel* local_mem_model);

    using ConstantsVisitor::VisitEnter;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;

private:
    bool visit_fmax_degradation_elem(const XMLElement& elem);
    bool visit_constant_elem(const XMLElement& elem);

    static const Constant CONSTANTS[];

    LocalMemModel* m_local_mem_model;
};

}  // namespace vemo::tmodel::xml
