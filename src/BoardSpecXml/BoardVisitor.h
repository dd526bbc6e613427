#pragma once

#include <vector>

#include "BaseVisitor/BaseVisitor.h"
#include "BoardSpec/BoardSpec.h"

namespace vemo::board::xml {

/// Reads a board_spec.xml document into a BoardSpec: `board` itself, each section below it through
/// a visitor of its own, and the rules that span sections at the end of the document.
class BoardVisitor : public vemo::xml::BaseVisitor {
public:
    /// Fills `spec`, which is not owned and must not be null. With `skip_overlap`, global memories
    /// may overlap.
    BoardVisitor(BoardSpec* spec, vemo::xml::VisitorCallbacks* callbacks, bool debug,
                 bool skip_overlap);

    using BaseVisitor::VisitEnter;
    using BaseVisitor::VisitExit;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;
    bool VisitExit(const XMLDocument& doc) override;

private:
    bool visit_board_elem(const XMLElement& elem);
    bool visit_device_elem(const XMLElement& elem);
    bool visit_compile_elem(const XMLElement& elem);
    bool visit_global_mem_elem(const XMLElement& elem);
    bool visit_host_elem(const XMLElement& elem);
    bool visit_channels_elem(const XMLElement& elem);
    bool visit_interfaces_elem(const XMLElement& elem);

    /// Whether the section is a child of `board`; in the second form, the first of its name.
    bool check_section(const XMLElement& elem);
    bool check_single_section(const XMLElement& elem);

    bool check_compile_configs();

    /// The memories that overlap.
    std::vector<vemo::xml::ElementPair> find_overlaps() const;

    static const ElementHandler<BoardVisitor> HANDLERS[];

    BoardSpec* m_spec;
    bool m_skip_overlap;
    std::vector<const XMLElement*> m_memory_elems;  // in the order of the model; for a sink
};

}  // namespace vemo::board::xml
