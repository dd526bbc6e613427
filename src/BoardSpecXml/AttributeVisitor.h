#pragma once

#include "BaseVisitor/BaseVisitor.h"
#include "BoardSpec/Port.h"

namespace vemo::board::xml {

/// Reads the `attribute` children of a `port` element.
class AttributeVisitor : public vemo::xml::BaseVisitor {
public:
    /// Adds the attributes to `port`, which is not owned and must not be null.
    AttributeVisitor(BaseVisitor* parent, Port* port);

    using BaseVisitor::VisitEnter;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;

private:
    bool visit_attribute_elem(const XMLElement& elem);

    Port* m_port;
};

}  // namespace vemo::board::xml
