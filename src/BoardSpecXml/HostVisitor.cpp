#include "BoardSpecXml/HostVisitor.h"

#include <string_view>

#include "Base/Assert.h"

namespace vemo::board::xml {

using vemo::xml::unsigned_hex;

const HostVisitor::ElementHandler<HostVisitor> HostVisitor::HANDLERS[] = {
    {"host", &HostVisitor::visit_host_elem},
    {"kernel_config", &HostVisitor::visit_kernel_config_elem},
};

HostVisitor::HostVisitor(BaseVisitor* parent, BoardSpec* spec) : BaseVisitor(parent), m_spec(spec) {
    VEMO_ASSERT(spec != NULL);
}

bool HostVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    return dispatch(this, elem, HANDLERS);
}

bool HostVisitor::visit_host_elem(const XMLElement& elem) {
    if (report_unexpected_elem_stack(elem, 0) && report_unexpected_elem_stack_count(elem, 1)
        && report_unexpected_attrs(elem, 0)) {
        VEMO_ASSERT(!m_spec->has_host_config());
        m_spec->set_host_config(new HostConfig);
    }
    return !m_has_error;
}

bool HostVisitor::visit_kernel_config_elem(const XMLElement& elem) {
    unsigned_hex start;
    unsigned_hex size;
    if (!(report_unexpected_elem_stack(elem, 1, "host")
          && report_unexpected_elem_stack_count(elem, 1)
          && report_unexpected_attrs(elem, 2, "start", "size")
          && query_attribute(elem, "start", &start, REPORT, REQUIRED)
          && query_attribute(elem, "size", &size, REPORT, REQUIRED))) {
        return !m_has_error;
    }
    if (size.value == 0) {
        return report_attr_error(elem, "size", "Kernel configuration size expected to be > 0.",
                                 {"out-of-range", {"1"}});
    }
    HostConfig& host_config = m_spec->get_host_config();
    host_config.kernel_config_start = start.value;
    host_config.set_kernel_config_size(size.value);
    return !m_has_error;
}

bool HostVisitor::VisitExit(const XMLElement& elem) {
    if (!m_has_error && current_name() == "host"
        && m_spec->get_host_config().get_kernel_config_size() == 0) {
        return report_error(
            "Missing kernel configuration (<kernel_config>) in host specification (<host>).",
            {"missing-element", {}, "kernel_config", nullptr, {}, &elem});
    }
    return BaseVisitor::VisitExit(elem);
}

}  // namespace vemo::board::xml
