#include "BoardSpecXml/InterfaceVisitor.h"

#include <iterator>
#include <string_view>

#include "Base/WordTable.h"
#include "BoardSpec/Words.h"
#include "BoardSpecXml/PortVisitor.h"

namespace vemo::board::xml {

using vemo::xml::unsigned64_hex;

struct InterfaceVisitor::Attribute {
    /// What becomes of an attribute that the element lacks.
    enum Absence {
        Reported,
        Skipped,
        Read,  // its reader runs all the same
    };

    const char* name;
    Absence absence;
    bool (InterfaceVisitor::*read)(const XMLElement& elem, const FoundAttribute& found);
};

struct InterfaceVisitor::Attributes {
    // In the order of reading. No other attribute is allowed.
    static constexpr Attribute TABLE[] = {
        {"name", Attribute::Reported, &InterfaceVisitor::read_plain<&Interface::name>},
        {"port", Attribute::Read, &InterfaceVisitor::read_ports},
        {"type", Attribute::Reported, &InterfaceVisitor::read_type},
        {"width", Attribute::Skipped, &InterfaceVisitor::read_width},
        {"maxburst", Attribute::Skipped, &InterfaceVisitor::read_maxburst},
        {"address", Attribute::Skipped, &InterfaceVisitor::read_address},
        {"size", Attribute::Skipped, &InterfaceVisitor::read_size},
        {"chan_id", Attribute::Skipped, &InterfaceVisitor::read_plain<&Interface::chan_id>},
        {"enable", Attribute::Skipped, &InterfaceVisitor::read_plain<&Interface::enable>},
        {"clock", Attribute::Skipped, &InterfaceVisitor::read_plain<&Interface::clock>},
        {"misc", Attribute::Skipped, &InterfaceVisitor::read_plain<&Interface::misc>},
        {"latency", Attribute::Skipped, &InterfaceVisitor::read_plain<&Interface::latency>},
        {"latency_type", Attribute::Skipped, &InterfaceVisitor::read_latency_type},
        {"waitrequest", Attribute::Skipped, &InterfaceVisitor::read_plain<&Interface::waitrequest>},
        {"waitrequest_allowance", Attribute::Skipped,
         &InterfaceVisitor::read_plain<&Interface::waitrequest_allowance>},
        {"bsp_vnmm_write_ack", Attribute::Skipped, &InterfaceVisitor::read_write_ack},
        {"addpipe", Attribute::Skipped, &InterfaceVisitor::read_plain<&Interface::addpipe>},
        {"sampling_rate", Attribute::Skipped, &InterfaceVisitor::read_sampling_rate},
    };

    explicit Attributes(const XMLElement& elem) : found(elem, TABLE) {}

    vemo::xml::FoundAttributes<Attribute, std::size(TABLE)> found;
};

InterfaceVisitor::InterfaceVisitor(BaseVisitor* parent, ArrayView<const char*> required)
    : BaseVisitor(parent), m_required(required) {}

Interface* InterfaceVisitor::release_intf() { return m_intf.release(); }

bool InterfaceVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    if (depth() == 0) {
        // What the place requires comes first: without it, the element is not even entered.
        const Attributes attributes(elem);
        return report_missing_attrs(elem, attributes)
               && BaseVisitor::VisitEnter(elem, first_attribute)
               && visit_vnl_interface_elem(elem, attributes);
    }
    BaseVisitor::VisitEnter(elem, first_attribute);
    if (current_name() == "port") {
        return false;  // the PortVisitor has read it
    }
    return report_unexpected_elem(elem, "", {nullptr, {"port"}});
}

bool InterfaceVisitor::report_missing_attrs(const XMLElement& elem, const Attributes& attributes) {
    for (const char* name : m_required) {
        if (attributes.found[name].attribute == nullptr) {
            return report_missing_attr(elem, name, "");
        }
    }
    return true;
}

bool InterfaceVisitor::visit_vnl_interface_elem(const XMLElement& elem,
                                                const Attributes& attributes) {
    if (!report_unexpected_attrs(elem, attributes.found)) {
        return false;
    }
    m_intf.reset(new Interface);
    for (std::size_t row = 0; row < std::size(Attributes::TABLE); ++row) {
        const Attribute& attribute = Attributes::TABLE[row];
        const bool is_found = attributes.found.has(row);
        if (!is_found && attribute.absence == Attribute::Reported) {
            return report_missing_attr(elem, attribute.name, "");
        }
        if ((is_found || attribute.absence == Attribute::Read)
            && !(this->*attribute.read)(elem, attributes.found[row])) {
            return false;
        }
    }
    return !m_has_error;
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
                                 std::string("Unrecognized Varnel interface type '") + word + "'.",
                                 {"unknown-word", texts_of_words(INTERFACE_TYPE_WORDS)});
    }
    m_intf->set_type(static_cast<Interface::Type>(type));
    return true;
}

bool InterfaceVisitor::read_width(const XMLElement& elem, const FoundAttribute& found) {
    unsigned width = 0;
    if (!query_attribute(elem, found, &width, REPORT, REQUIRED)) {
        return false;
    }
    if (width == 0) {
        return report_attr_error(elem, found.name, "Data width must be > 0.",
                                 {"out-of-range", {"1"}});
    }
    m_intf->set_data_width(width);
    return true;
}

bool InterfaceVisitor::read_maxburst(const XMLElement& elem, const FoundAttribute& found) {
    unsigned maxburst = 0;
    if (!query_attribute(elem, found, &maxburst, REPORT, REQUIRED)) {
        return false;
    }
    if (maxburst == 0) {
        return report_attr_error(elem, found.name, "Max burst count must be > 0.",
                                 {"out-of-range", {"1"}});
    }
    m_intf->set_max_burst_count(maxburst);
    return true;
}

bool InterfaceVisitor::read_address(const XMLElement& elem, const FoundAttribute& found) {
    unsigned64_hex address;
    if (!query_attribute(elem, found, &address, REPORT, REQUIRED)) {
        return false;
    }
    m_intf->address = static_cast<unsigned>(address.value);
    return true;
}

bool InterfaceVisitor::read_size(const XMLElement& elem, const FoundAttribute& found) {
    unsigned64_hex size;
    if (!query_attribute(elem, found, &size, REPORT, REQUIRED)) {
        return false;
    }
    if (size.value == 0) {
        return report_attr_error(elem, found.name, "Interface size must be > 0.",
                                 {"out-of-range", {"1"}});
    }
    // A multiple of 2^32 is not caught here: it meets the setter's assertion.
    m_intf->set_size(static_cast<unsigned>(size.value));
    return true;
}

bool InterfaceVisitor::read_latency_type(const XMLElement& elem, const FoundAttribute& found) {
    const char* word = nullptr;
    if (!query_attribute(elem, found, &word, REPORT, REQUIRED)) {
        return false;
    }
    const std::size_t latency_type = index_of_word(LATENCY_TYPE_WORDS, word);
    if (latency_type == std::size(LATENCY_TYPE_WORDS)) {
        return report_attr_error(
            elem, found.name,
            std::string("Unrecognized latency type in Varnel interface '") + word + "'.",
            {"unknown-word", texts_of_words(LATENCY_TYPE_WORDS)});
    }
    m_intf->latency_type = static_cast<unsigned>(latency_type);
    return true;
}

bool InterfaceVisitor::read_write_ack(const XMLElement& elem, const FoundAttribute& found) {
    unsigned write_ack = 0;
    if (!query_attribute(elem, found, &write_ack, REPORT, REQUIRED)) {
        return false;
    }
    m_intf->bsp_vnmm_write_ack = write_ack != 0;
    return true;
}

bool InterfaceVisitor::read_sampling_rate(const XMLElement& elem, const FoundAttribute& found) {
    float sampling_rate = 0.0f;
    if (!query_attribute(elem, found, &sampling_rate, REPORT, REQUIRED)) {
        return false;
    }
    // A NaN is not caught here: it meets the setter's assertion.
    if (sampling_rate <= 0.0f) {
        return report_attr_error(elem, found.name, "Interface sampling rate must be > 0.",
                                 {"out-of-range", {"1"}});
    }
    m_intf->set_sampling_rate(sampling_rate);
    return true;
}

bool InterfaceVisitor::VisitExit(const XMLElement& elem) {
    // Made on leaving the interface and each of its children, after an error as well: an interface
    // whose reading ended before its ports adds this message to the one that ended it.
    if (m_intf != nullptr && m_intf->get_num_ports() == 0) {
        return report_attr_error(elem, "port", "At least one port is required in interface ",
                                 {"missing-port", {}, "port"});
    }
    return BaseVisitor::VisitExit(elem);
}

}  // namespace vemo::board::xml
