#pragma once

#include "BaseVisitor/BaseVisitor.h"
#include "TargetModel/TargetModel.h"

namespace vemo::tmodel::xml {

/// Reads a target model document into a TargetModel: the root and the style models itself, each
/// sub-model through a visitor of its own.
class TargetModelVisitor : public vemo::xml::BaseVisitor {
public:
    /// Fills `tm`, which is not owned and must not be null.
    TargetModelVisitor(TargetModel* tm, vemo::xml::VisitorCallbacks* callbacks, bool debug);

    using BaseVisitor::VisitEnter;
    using BaseVisitor::VisitExit;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;
    bool VisitExit(const XMLDocument& doc) override;

private:
    bool visit_target_model_elem(const XMLElement& elem);
    bool visit_style_model_elem(const XMLElement& elem);
    bool visit_local_mem_elem(const XMLElement& elem);
    bool visit_global_interconnect_elem(const XMLElement& elem);
    bool visit_delay_model_elem(const XMLElement& elem);
    bool visit_family_model_elem(const XMLElement& elem);

    /// Lets a Child read the sub-model element, which may occur once below the root.
    template <typename Child>
    bool visit_sub_model_elem(const XMLElement& elem);

    static const ElementHandler<TargetModelVisitor> HANDLERS[];

    TargetModel* m_tm;
};

}  // namespace vemo::tmodel::xml
