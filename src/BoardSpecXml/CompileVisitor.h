#pragma once

#include <string_view>

#include "BaseVisitor/BaseVisitor.h"
#include "BoardSpec/BoardSpec.h"

namespace vemo::board::xml {

/// Reads one `compile` element, a compile flow. What it must hold depends on the file's version.
class CompileVisitor : public vemo::xml::BaseVisitor {
public:
    /// Fills `spec`, which is not owned and must not be null.
    CompileVisitor(BaseVisitor* parent, BoardSpec* spec);

    using BaseVisitor::VisitEnter;
    using BaseVisitor::VisitExit;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;
    bool VisitExit(const XMLElement& elem) override;

private:
    bool visit_compile_elem(const XMLElement& elem);
    bool visit_generate_elem(const XMLElement& elem);
    bool visit_synthesize_elem(const XMLElement& elem);
    bool visit_auto_migration_elem(const XMLElement& elem);
    bool visit_auto_migration_single_elem(const XMLElement& elem);

    /// Reads a command element: `cmd`, required, and `additional_args`.
    bool read_command(const XMLElement& elem, std::string* cmd, bool* additional_args);

    /// The meaning of an `additional_args` text; an empty one switches them on. Reports a text that
    /// is no boolean.
    bool has_additional_args(const XMLElement& elem, std::string_view text);

    /// Whether the file is below 17.0: its flows have no name of their own, and their children
    /// are optional.
    bool has_unnamed_flows() const;
    bool leave_unnamed_flow_elem(const XMLElement& elem);
    void leave_named_flow_elem();

    static const ElementHandler<CompileVisitor> HANDLERS[];

    BoardSpec* m_spec;
    CompileConfig* m_config = nullptr;  // owned by m_spec
};

}  // namespace vemo::board::xml
