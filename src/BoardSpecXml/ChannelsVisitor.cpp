#include "BoardSpecXml/ChannelsVisitor.h"

#include <string_view>
#include <unordered_set>
#include <utility>

#include "Base/Assert.h"
#include "BoardSpecXml/InterfaceVisitor.h"

namespace vemo::board::xml {
namespace {

// Of a channel's interface, in the order of the test.
constexpr const char* REQUIRED_ATTRIBUTES[] = {"name", "port", "type", "width", "chan_id"};

}  // namespace

const ChannelsVisitor::ElementHandler<ChannelsVisitor> ChannelsVisitor::HANDLERS[] = {
    {"channels", &ChannelsVisitor::visit_channels_elem},
    {"interface", &ChannelsVisitor::visit_interface_elem},
};

ChannelsVisitor::ChannelsVisitor(BaseVisitor* parent, BoardSpec* spec)
    : BaseVisitor(parent), m_spec(spec) {
    VEMO_ASSERT(spec != NULL);
}

bool ChannelsVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    return dispatch(this, elem, HANDLERS);
}

bool ChannelsVisitor::visit_channels_elem(const XMLElement& elem) {
    if (report_unexpected_elem_stack(elem, 0) && report_unexpected_attrs(elem, 0)) {
        VEMO_ASSERT(!m_spec->has_channel_config());
        m_spec->set_channel_config(new ChannelConfig);
    }
    return !m_has_error;
}

bool ChannelsVisitor::visit_interface_elem(const XMLElement& elem) {
    InterfaceVisitor reader(this, REQUIRED_ATTRIBUTES);
    if (!report_unexpected_elem_stack(elem, 1, "channels") || !walk_with(elem, &reader)) {
        return false;
    }
    InterfacePtr intf(reader.release_intf());
    if (intf->get_type() != Interface::StreamSource && intf->get_type() != Interface::StreamSink) {
        return report_error(
            elem, "Channel interface must be a stream.",
            {"wrong-interface-type", {"streamsource", "streamsink"}, nullptr, "type"});
    }
    m_spec->get_channel_config().add_interface(std::move(intf));
    // True: this visitor walks the children as well, and a `port` among them is one it does not
    // expect. A channel names its port by attribute.
    return !m_has_error;
}

bool ChannelsVisitor::VisitExit(const XMLElement& elem) {
    if (!m_has_error && current_name() == "channels" && !check_channel_ids(elem)) {
        return false;
    }
    return BaseVisitor::VisitExit(elem);
}

bool ChannelsVisitor::check_channel_ids(const XMLElement& elem) {
    const auto& channels = m_spec->get_channel_config().get_interfaces();
    std::unordered_set<std::string_view> ids;
    ids.reserve(channels.size());
    for (const Interface* intf : channels) {
        if (intf->chan_id.empty()) {
            return report_error(elem, "Empty channel ID name.",
                                {"empty-channel-id", {}, nullptr, "chan_id"});
        }
        if (!ids.insert(intf->chan_id).second) {
            return report_error(elem, "Two or more channels share the same channel ID.",
                                {"duplicate-channel-id", {}, nullptr, "chan_id"});
        }
    }
    return true;
}

}  // namespace vemo::board::xml
