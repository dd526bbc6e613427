#pragma once

#include <cstdint>
#include <memory>

#include "BaseVisitor/BaseVisitor.h"
#include "BoardSpec/Interface.h"

namespace vemo::board::xml {

/// Reads one `interface` element, wherever it stands: its attributes, and its ports through a
/// PortVisitor. Of the rules of its place, the caller has all but the required attributes.
class InterfaceVisitor : public vemo::xml::BaseVisitor {
public:
    /// Where an interface stands: the element around it. A set of bits.
    enum Place : std::uint32_t { InGlobalMem = 1, InInterfaces = 2, InChannels = 4 };

    InterfaceVisitor(BaseVisitor* parent, Place place);

    using BaseVisitor::VisitEnter;
    using BaseVisitor::VisitExit;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;
    bool VisitExit(const XMLElement& elem) override;

    /// The interface read, owned by the caller from here on; null before the walk and after the
    /// first call.
    Interface* release_intf();

private:
    using FoundAttribute = vemo::xml::FoundAttribute;
    enum Presence { IfPresent, Always };

    /// An attribute, the places that require it, and the member that reads it into the interface:
    /// only where the element has it, or always.
    struct Attribute {
        const char* name;
        std::uint32_t required_in;
        Presence presence;
        bool (InterfaceVisitor::*read)(const XMLElement& elem, const FoundAttribute& found);
    };
    static constexpr std::size_t NUM_ATTRIBUTES = 18;
    static const Attribute ATTRIBUTES[NUM_ATTRIBUTES];
    using FoundAttributes = vemo::xml::FoundAttributes<Attribute, NUM_ATTRIBUTES>;

    /// Reports the first attribute that the place requires and the element lacks.
    bool report_missing_attrs(const XMLElement& elem, const FoundAttributes& attributes);

    bool visit_vnl_interface_elem(const XMLElement& elem, const FoundAttributes& attributes);

    // The readers of ATTRIBUTES. Each returns whether no error has been reported.

    bool read_name(const XMLElement& elem, const FoundAttribute& found);
    bool read_ports(const XMLElement& elem, const FoundAttribute& found);
    bool read_type(const XMLElement& elem, const FoundAttribute& found);
    bool read_width(const XMLElement& elem, const FoundAttribute& found);
    bool read_maxburst(const XMLElement& elem, const FoundAttribute& found);
    bool read_address(const XMLElement& elem, const FoundAttribute& found);
    bool read_size(const XMLElement& elem, const FoundAttribute& found);
    bool read_latency_type(const XMLElement& elem, const FoundAttribute& found);
    bool read_write_ack(const XMLElement& elem, const FoundAttribute& found);
    bool read_sampling_rate(const XMLElement& elem, const FoundAttribute& found);

    /// Read an attribute that has no rule of its own into `Field`, of the interface or its intf->
    template <auto Field>
    bool read_plain(const XMLElement& elem, const FoundAttribute& found) {
        return query_attribute(elem, found, &(m_intf.get()->*Field), REPORT, REQUIRED);
    }
    template <auto Field>
    bool read_detail(const XMLElement& elem, const FoundAttribute& found) {
        return query_attribute(elem, found, &(m_intf->*Field), REPORT, REQUIRED);
    }

    Place m_place;
    std::unique_ptr<Interface> m_intf;  // until released
};

}  // namespace vemo::board::xml
