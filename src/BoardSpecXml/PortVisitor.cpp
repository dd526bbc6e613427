#include "BoardSpecXml/PortVisitor.h"

#include <iterator>
#include <memory>
#include <string_view>

#include "Base/Assert.h"
#include "Base/WordTable.h"
#include "BoardSpec/Words.h"
#include "BoardSpecXml/AttributeVisitor.h"

namespace vemo::board::xml {
namespace {

constexpr const char* PORT_ATTRIBUTES[] = {"name", "direction", "attribute_width",
                                           "hazard_free_attributes"};

}  // namespace

PortVisitor::PortVisitor(BaseVisitor* parent, Interface* intf) : BaseVisitor(parent), m_intf(intf) {
    VEMO_ASSERT(intf != NULL);
}

bool PortVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    const std::string_view name = current_name();
    if (name == "interface") {
        return true;
    }
    if (name == "port") {
        return visit_port_elem(elem);
    }
    if (name == "attribute") {
        return false;  // the AttributeVisitor has read it, if it is to be read
    }
    return report_unexpected_elem(elem, "", {nullptr, {depth() == 2 ? "port" : "attribute"}});
}

bool PortVisitor::visit_port_elem(const XMLElement& elem) {
    const vemo::xml::FoundAttributes attributes(elem, PORT_ATTRIBUTES);
    auto port = std::make_unique<Port>();
    const char* direction_word = nullptr;
    if (!(report_unexpected_elem_stack(elem, 1, "interface")
          && report_unexpected_attrs(elem, attributes)
          && query_attribute(elem, attributes["name"], &port->name, REPORT, REQUIRED)
          && query_attribute(elem, attributes["direction"], &direction_word, REPORT, REQUIRED))) {
        return !m_has_error;
    }
    const std::size_t direction = index_of_word(DIRECTION_WORDS, direction_word);
    if (direction == std::size(DIRECTION_WORDS)) {
        return report_attr_error(
            elem, "direction",
            std::string("Unrecognized direction in interface port '") + direction_word + "'.",
            {"unknown-word", texts_of_words(DIRECTION_WORDS)});
    }
    port->direction = static_cast<Port::Direction>(direction);

    const char* hazard_free_word = nullptr;
    if (query_attribute(elem, attributes["hazard_free_attributes"], &hazard_free_word, REPORT,
                        OPTIONAL)) {
        const std::string_view hazard_free = hazard_free_word;
        const bool is_true = hazard_free == "true" || hazard_free == "1";
        if (!is_true && hazard_free != "false" && hazard_free != "0") {
            return report_attr_error(elem, "hazard_free_attributes",
                                     "hazard_free_attributes should be a boolean (true or false).",
                                     {"unknown-word", {"true", "false"}});
        }
        port->hazard_free_attributes = is_true;
    }
    // Without a width, the `attribute` children are passed over unread.
    if (query_attribute(elem, attributes["attribute_width"], &port->attribute_width, REPORT,
                        OPTIONAL)) {
        if (port->hazard_free_attributes) {
            return report_attr_error(elem, "attribute_width",
                                     "Cannot specify additional attributes without specifying "
                                     "hazard_free_attributes=false",
                                     {"attributes-need-hazards"});
        }
        AttributeVisitor reader(this, port.get());
        walk_with(elem, &reader);
    }
    if (!m_has_error) {
        m_intf->add_port(port.release());
    }
    return !m_has_error;
}

}  // namespace vemo::board::xml
