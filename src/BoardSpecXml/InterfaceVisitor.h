#pragma once

#include "Base/ArrayView.h"
#include "BaseVisitor/BaseVisitor.h"
#include "BoardSpec/DestroyWithPorts.h"
#include "BoardSpec/Interface.h"

namespace vemo::board::xml {

/// Reads one `interface` element at any position: its attributes, and its ports through a
/// PortVisitor. The rules of the place are the caller's.
class InterfaceVisitor : public vemo::xml::BaseVisitor {
public:
    /// Reports the first of the attributes `required` that the element lacks, before it reads any.
    explicit InterfaceVisitor(BaseVisitor* parent, ArrayView<const char*> required = {});

    using BaseVisitor::VisitEnter;
    using BaseVisitor::VisitExit;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;
    bool VisitExit(const XMLElement& elem) override;

    /// The interface read, owned by the caller from here on as are its ports; null before the walk
    /// and after the first call.
    Interface* release_intf();

private:
    using FoundAttribute = vemo::xml::FoundAttribute;
    struct Attribute;
    struct Attributes;

    bool report_missing_attrs(const XMLElement& elem, const Attributes& attributes);
    bool visit_vnl_interface_elem(const XMLElement& elem, const Attributes& attributes);

    // The readers of Attributes::TABLE. Each reads an attribute into the interface and returns
    // whether no error has been reported.

    /// An attribute without a rule of its own.
    template <auto Field>
    bool read_plain(const XMLElement& elem, const FoundAttribute& found) {
        return query_attribute(elem, found, &(m_intf.get()->*Field), REPORT, REQUIRED);
    }
    bool read_ports(const XMLElement& elem, const FoundAttribute& found);
    bool read_type(const XMLElement& elem, const FoundAttribute& found);
    bool read_width(const XMLElement& elem, const FoundAttribute& found);
    bool read_maxburst(const XMLElement& elem, const FoundAttribute& found);
    bool read_address(const XMLElement& elem, const FoundAttribute& found);
    bool read_size(const XMLElement& elem, const FoundAttribute& found);
    bool read_latency_type(const XMLElement& elem, const FoundAttribute& found);
    bool read_write_ack(const XMLElement& elem, const FoundAttribute& found);
    bool read_sampling_rate(const XMLElement& elem, const FoundAttribute& found);

    ArrayView<const char*> m_required;
    InterfacePtr m_intf;  // until released
};

}  // namespace vemo::board::xml
