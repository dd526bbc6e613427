#include "BoardSpecXml/AttributeVisitor.h"

#include <string_view>

#include "Base/Assert.h"

namespace vemo::board::xml {

AttributeVisitor::AttributeVisitor(BaseVisitor* parent, Port* port)
    : BaseVisitor(parent), m_port(port) {
    VEMO_ASSERT(port != NULL);
}

bool AttributeVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    const std::string_view name = current_name();
    if (name == "port" && depth() == 1) {
        return true;
    }
    if (name == "attribute") {
        return visit_attribute_elem(elem);
    }
    return report_unexpected_elem(elem, "", {nullptr, {"attribute"}});
}

bool AttributeVisitor::visit_attribute_elem(const XMLElement& elem) {
    std::string name;
    unsigned encoding = 0;
    if (report_unexpected_elem_stack(elem, 1, "port")
        && report_unexpected_attrs(elem, 2, "name", "encoding")
        && query_attribute(elem, "name", &name, REPORT, REQUIRED)
        && query_attribute(elem, "encoding", &encoding, REPORT, REQUIRED)
        && !m_port->set_attribute(name, encoding)) {
        // The load fails without a message: only the sink learns why.
        hand_out("encoding-too-wide", &elem, "encoding", "", {nullptr, {"0"}});
        m_has_error = true;
    }
    return !m_has_error;
}

}  // namespace vemo::board::xml
