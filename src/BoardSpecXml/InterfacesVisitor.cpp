#include "BoardSpecXml/InterfacesVisitor.h"

#include <string_view>

#include "Base/Assert.h"
#include "BoardSpecXml/InterfaceVisitor.h"

namespace vemo::board::xml {

const InterfacesVisitor::ElementHandler<InterfacesVisitor> InterfacesVisitor::HANDLERS[] = {
    {"interfaces", &InterfacesVisitor::visit_interfaces_elem},
    {"interface", &InterfacesVisitor::visit_interface_elem},
    {"kernel_clk_reset", &InterfacesVisitor::visit_kernel_clk_reset_elem},
};

InterfacesVisitor::InterfacesVisitor(BaseVisitor* parent, BoardSpec* spec)
    : BaseVisitor(parent), m_spec(spec) {
    VEMO_ASSERT(spec != NULL);
}

bool InterfacesVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    return dispatch(this, elem, HANDLERS);
}

bool InterfacesVisitor::visit_interfaces_elem(const XMLElement& elem) {
    if (report_unexpected_elem_stack(elem, 0) && report_unexpected_attrs(elem, 0)) {
        VEMO_ASSERT(!m_spec->has_interface_config());
        m_spec->set_interface_config(new InterfaceConfig);
    }
    return !m_has_error;
}

bool InterfacesVisitor::visit_interface_elem(const XMLElement& elem) {
    InterfaceVisitor reader(this);
    if (!report_unexpected_elem_stack(elem, 1, "interfaces") || !walk_with(elem, &reader)) {
        return false;
    }
    m_spec->get_interface_config().add_interface(InterfacePtr(reader.release_intf()));
    // True: this visitor walks the children as well, and a `port` among them is one it does not
    // expect. Such an interface names its port by attribute.
    return !m_has_error;
}

bool InterfacesVisitor::visit_kernel_clk_reset_elem(const XMLElement& elem) {
    if (!(report_unexpected_elem_stack(elem, 1, "interfaces")
          && report_unexpected_elem_stack_count(elem, 1)
          && report_unexpected_attrs(elem, 3, "clk", "clk2x", "reset"))) {
        return !m_has_error;
    }
    InterfaceConfig& intf_config = m_spec->get_interface_config();
    VEMO_ASSERT(!intf_config.has_kernel_clk_reset());
    auto* kernel_clk_reset = new KernelClkReset;
    intf_config.set_kernel_clk_reset(kernel_clk_reset);
    if (query_attribute(elem, "clk", &kernel_clk_reset->clk, REPORT, REQUIRED)) {
        query_attribute(elem, "clk2x", &kernel_clk_reset->clk2x, REPORT, OPTIONAL);
        query_attribute(elem, "reset", &kernel_clk_reset->reset, REPORT, REQUIRED);
    }
    return !m_has_error;
}

bool InterfacesVisitor::VisitExit(const XMLElement& elem) {
    if (!m_has_error && current_name() == "interfaces"
        && !m_spec->get_interface_config().has_kernel_clk_reset()) {
        return report_error("Missing kernel clock-reset interface (<kernel_clk_reset>).",
                            {"missing-element", {}, "kernel_clk_reset", nullptr, {}, &elem});
    }
    return BaseVisitor::VisitExit(elem);
}

}  // namespace vemo::board::xml
