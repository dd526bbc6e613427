#include "BoardSpecXml/InterfaceVisitor.h"

#include <iterator>
#include <string_view>

#include "Base/WordTable.h"
#include "BoardSpec/Words.h"
#include "BoardSpecXml/PortVisitor.h"

namespace vemo::board::xml {
namespace {

using vemo::xml::unsigned64_hex;

}  // namespace

// In the order of reading, and of the search for those required. The same rows are the attributes
// that are allowed.
const InterfaceVisitor::Attribute InterfaceVisitor::ATTRIBUTES[] = {
    {"name", InGlobalMem | InChannels, Always, &InterfaceVisitor::read_name},
    {"port", InChannels, Always, &InterfaceVisitor::read_ports},
    {"type", InGlobalMem | InChannels, Always, &InterfaceVisitor::read_type},
    {"width", InGlobalMem | InChannels, IfPresent, &InterfaceVisitor::read_width},
    {"maxburst", 0, IfPresent, &InterfaceVisitor::read_maxburst},
    {"address", InGlobalMem, IfPresent, &InterfaceVisitor::read_address},
    {"size", InGlobalMem, IfPresent, &InterfaceVisitor::read_size},
    {"chan_id", InChannels, IfPresent, &InterfaceVisitor::read_plain<&Interface::chan_id>},
    {"enable", 0, IfPresent, &InterfaceVisitor::read_plain<&Interface::enable>},
    {"clock", 0, IfPresent, &InterfaceVisitor::read_plain<&Interface::clock>},
    {"misc", 0, IfPresent, &InterfaceVisitor::read_plain<&Interface::misc>},
    {"latency", 0, IfPresent, &InterfaceVisitor::read_plain<&Interface::latency>},
    {"latency_type", 0, IfPresent, &InterfaceVisitor::read_latency_type},
    {"waitrequest", 0, IfPresent, &InterfaceVisitor::read_plain<&Interface::waitrequest>},
    {"waitrequest_allowance", 0, IfPresent,
     &InterfaceVisitor::read_plain<&Interface::waitrequest_allowance>},
    {"bsp_vnmm_write_ack", 0, IfPresent, &InterfaceVisitor::read_write_ack},
    {"addpipe", 0, IfPresent, &InterfaceVisitor::read_plain<&Interface::addpipe>},
    {"sampling_rate", 0, IfPresent, &InterfaceVisitor::read_sampling_rate},
};

InterfaceVisitor::InterfaceVisitor(BaseVisitor* parent, Place place)
    : BaseVisitor(parent), m_place(place) {}

Interface* InterfaceVisitor::release_intf() { return m_intf.release(); }

bool InterfaceVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    if (depth() == 0) {
        const FoundAttributes attributes(elem, ATTRIBUTES);
        // What the place requires comes first: without it, the element is not even entered.
        return report_missing_attrs(elem, attributes)
               && BaseVisitor::VisitEnter(elem, first_attribute)
               && visit_vnl_interface_elem(elem, attributes);
    }
    BaseVisitor::VisitEnter(elem, first_attribute);
    if (current_name() == "port") {
        return false;  // the PortVisitor has read it
    }
    return report_unexpected_elem(elem, "");
}

bool InterfaceVisitor::report_missing_attrs(const XMLElement& elem,
                                            const FoundAttributes& attributes) {
    for (std::size_t i = 0; i < NUM_ATTRIBUTES; ++i) {
        if ((ATTRIBUTES[i].required_in & m_place) != 0 && !attributes.has(i)) {
            return report_missing_attr(elem, ATTRIBUTES[i].name, "");
        }
    }
    return true;
}

bool InterfaceVisitor::visit_vnl_interface_elem(const XMLElement& elem,
                                                const FoundAttributes& attributes) {
    if (!report_unexpected_attrs(elem, attributes)) {
        return false;
    }
    m_intf = std::make_unique<Interface>();
    for (std::size_t i = 0; i < NUM_ATTRIBUTES; ++i) {
        const Attribute& attribute = ATTRIBUTES[i];
        if ((attribute.presence == Always || attributes.has(i))
            && !(this->*attribute.read)(elem, attributes[i])) {
            break;
        }
    }
    return !m_has_error;
}

bool InterfaceVisitor::read_name(const XMLElement& elem, const FoundAttribute& found) {
    return query_attribute(elem, found, &m_intf->name, REPORT, REQUIRED);
}

bool InterfaceVisitor::read_ports(const XMLElement& elem, const FoundAttribute& found) {
    auto port = std::make_unique<Port>();
    if (query_attribute(elem, found, &port->name, REPORT, OPTIONAL)) {
        m_intf->add_port(port.release());
    }
    if (elem.NoChildren() && !is_tracing()) {
        return !m_has_error;  // a walk could only be traced
    }
    PortVisitor reader(this, m_intf.get());
    return walk_with(elem, &reader);
}

bool InterfaceVisitor::read_type(const XMLElement& elem, const FoundAttribute& found) {
    const char* word = nullptr;
    if (!query_attribute(elem, found, &word, REPORT, REQUIRED)) {
        return false;
    }
    const std::size_t type = index_of_word(INTERFACE_TYPE_WORDS, word);
    if (type == std::size(INTERFACE_TYPE_WORDS)) {
        return report_attr_error(elem, found.name,
                                 std::string("Unrecognized Varnel interface type '") + word + "'.");
    }
    m_intf->set_type(static_cast<Interface::Type>(type));
    return true;
}

bool InterfaceVisitor::read_width(const XMLElement& elem, const FoundAttribute& found) {
    unsigned width = 0;
    if (query_attribute(elem, found, &width, REPORT, OPTIONAL)) {
        if (width == 0) {
            return report_attr_error(elem, found.name, "Data width must be > 0.");
        }
        m_intf->set_data_width(width);
    }
    return !m_has_error;
}

bool InterfaceVisitor::read_maxburst(const XMLElement& elem, const FoundAttribute& found) {
    unsigned maxburst = 0;
    if (query_attribute(elem, found, &maxburst, REPORT, OPTIONAL)) {
        if (maxburst == 0) {
            return report_attr_error(elem, found.name, "Max burst count must be > 0.");
        }
        m_intf->set_max_burst_count(maxburst);
    }
    return !m_has_error;
}

bool InterfaceVisitor::read_address(const XMLElement& elem, const FoundAttribute& found) {
    unsigned64_hex address;
    if (query_attribute(elem, found, &address, REPORT, OPTIONAL)) {
        m_intf->address = static_cast<unsigned>(address.value);
    }
    return !m_has_error;
}

bool InterfaceVisitor::read_size(const XMLElement& elem, const FoundAttribute& found) {
    unsigned64_hex size;
    if (query_attribute(elem, found, &size, REPORT, OPTIONAL)) {
        if (size.value == 0) {
            return report_attr_error(elem, found.name, "Interface size must be > 0.");
        }
        // A multiple of 2^32 is not caught here: it meets the setter's assertion.
        m_intf->set_size(static_cast<unsigned>(size.value));
    }
    return !m_has_error;
}

bool InterfaceVisitor::read_latency_type(const XMLElement& elem, const FoundAttribute& found) {
    const char* word = nullptr;
    if (query_attribute(elem, found, &word, REPORT, OPTIONAL)) {
        const std::size_t latency_type = index_of_word(LATENCY_TYPE_WORDS, word);
        if (latency_type == std::size(LATENCY_TYPE_WORDS)) {
            return report_attr_error(
                elem, found.name,
                std::string("Unrecognized latency type in Varnel interface '") + word + "'.");
        }
        m_intf->latency_type = static_cast<unsigned>(latency_type);
    }
    return !m_has_error;
}

bool InterfaceVisitor::read_write_ack(const XMLElement& elem, const FoundAttribute& found) {
    unsigned write_ack = 0;
    if (query_attribute(elem, found, &write_ack, REPORT, OPTIONAL)) {
        m_intf->bsp_vnmm_write_ack = write_ack != 0;
    }
    return !m_has_error;
}

bool InterfaceVisitor::read_sampling_rate(const XMLElement& elem, const FoundAttribute& found) {
    float sampling_rate = 0.0f;
    if (query_attribute(elem, found, &sampling_rate, REPORT, OPTIONAL)) {
        if (sampling_rate <= 0.0f) {
            return report_attr_error(elem, found.name, "Interface sampling rate must be > 0.");
        }
        m_intf->set_sampling_rate(sampling_rate);
    }
    return !m_has_error;
}

bool InterfaceVisitor::VisitExit(const XMLElement& elem) {
    // Made on leaving the interface and each of its children, after an error as well: an interface
    // whose reading ended before its ports adds this message to the one that ended it.
    if (m_intf != nullptr && m_intf->get_num_ports() == 0) {
        return report_attr_error(elem, "port", "At least one port is required in interface ");
    }
    return BaseVisitor::VisitExit(elem);
}

}  // namespace vemo::board::xml
