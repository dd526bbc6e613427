#pragma once

#include <vector>

#include "BaseVisitor/BaseVisitor.h"
#include "BoardSpec/BoardSpec.h"

namespace vemo::board::xml {

/// Reads one `global_mem` element and its interfaces.
class GlobalMemVisitor : public vemo::xml::BaseVisitor {
public:
    /// Fills `spec`, which is not owned and must not be null.
    GlobalMemVisitor(BaseVisitor* parent, BoardSpec* spec);

    using BaseVisitor::VisitEnter;
    using BaseVisitor::VisitExit;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;
    bool VisitExit(const XMLElement& elem) override;

private:
    bool visit_global_mem_elem(const XMLElement& elem);
    bool visit_interface_elem(const XMLElement& elem);
    bool check_interfaces(const XMLElement& elem);

    /// The first interface, with each one that differs from it in `get`.
    std::vector<vemo::xml::ElementPair> find_different(unsigned (Interface::*get)() const) const;

    static const ElementHandler<GlobalMemVisitor> HANDLERS[];

    BoardSpec* m_spec;
    GlobalMemConfig* m_global_mem = nullptr;           // owned by m_spec
    std::vector<const XMLElement*> m_interface_elems;  // of m_global_mem, in its order; for a sink
};

}  // namespace vemo::board::xml
