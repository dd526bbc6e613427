#include "BoardSpecXml/ChannelsVisitor.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "Base/Assert.h"
#include "BoardSpecXml/InterfaceVisitor.h"

namespace vemo::board::xml {
namespace {

template <typename T>
bool sort_and_find_duplicate(std::vector<T>& values) {
    std::sort(values.begin(), values.end());
    return std::adjacent_find(values.begin(), values.end()) != values.end();
}

bool has_duplicate_ids(Interface* const* begin, Interface* const* end) {
    // Channels are mostly numbered, and in order: then there is nothing to sort.
    const auto precedes = [](const Interface* a, const Interface* b) {
        const std::string_view id_a = a->chan_id;
        const std::string_view id_b = b->chan_id;
        return id_a.size() != id_b.size() ? id_a.size() < id_b.size() : id_a < id_b;
    };
    if (std::adjacent_find(begin, end, std::not_fn(precedes)) == end) {
        return false;
    }
    // Texts with distinct hashes are distinct, and numbers are quicker to sort.
    std::vector<std::string_view> ids(static_cast<std::size_t>(end - begin));
    std::transform(begin, end, ids.begin(),
                   [](const Interface* intf) -> std::string_view { return intf->chan_id; });
    std::vector<std::size_t> hashes(ids.size());
    std::transform(ids.begin(), ids.end(), hashes.begin(), std::hash<std::string_view>());
    return sort_and_find_duplicate(hashes) && sort_and_find_duplicate(ids);
}

}  // namespace

ChannelsVisitor::ChannelsVisitor(BaseVisitor* parent, BoardSpec* spec)
    : BaseVisitor(parent), m_spec(spec) {
    VEMO_ASSERT(spec != NULL);
}

bool ChannelsVisitor::VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) {
    BaseVisitor::VisitEnter(elem, first_attribute);
    const std::string_view name = current_name();
    if (name == "channels") {
        return visit_channels_elem(elem);
    }
    if (name == "interface") {
        return visit_interface_elem(elem);
    }
    return report_unexpected_elem(elem, "");
}

bool ChannelsVisitor::visit_channels_elem(const XMLElement& elem) {
    if (report_unexpected_elem_stack(elem, 0) && report_unexpected_attrs(elem, 0)) {
        VEMO_ASSERT(!m_spec->has_channel_config());
        m_spec->set_channel_config(new ChannelConfig);
    }
    return !m_has_error;
}

bool ChannelsVisitor::visit_interface_elem(const XMLElement& elem) {
    if (!report_unexpected_elem_stack(elem, 1, "channels")) {
        return !m_has_error;
    }
    InterfaceVisitor reader(this, InterfaceVisitor::InChannels);
    if (!walk_with(elem, &reader)) {
        return false;
    }
    std::unique_ptr<Interface> intf(reader.release_intf());
    if (intf->get_type() != Interface::StreamSource && intf->get_type() != Interface::StreamSink) {
        return report_error(elem, "Channel interface must be a stream.");
    }
    m_spec->get_channel_config().add_interface(intf.release());
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
    // The first empty identifier ends the check.
    const auto end = std::find_if(channels.begin(), channels.end(),
                                  [](const Interface* intf) { return intf->chan_id.empty(); });
    if (has_duplicate_ids(channels.begin(), end)) {
        return report_error(elem, "Two or more channels share the same channel ID.");
    }
    if (end != channels.end()) {
        return report_error(elem, "Empty channel ID name.");
    }
    return true;
}

}  // namespace vemo::board::xml
