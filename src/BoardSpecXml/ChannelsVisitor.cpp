#include "BoardSpecXml/ChannelsVisitor.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Base/Assert.h"
#include "BoardSpecXml/InterfaceVisitor.h"

namespace vemo::board::xml {
namespace {

using vemo::xml::ElementPair;
using vemo::xml::MAX_PAIRS;

// Of a channel's interface, in the order of the test.
constexpr const char* REQUIRED_ATTRIBUTES[] = {"name", "port", "type", "width", "chan_id"};

bool has_duplicates(std::vector<std::string_view> texts) {
    const auto shorter_first = [](std::string_view a, std::string_view b) {
        return a.size() != b.size() ? a.size() < b.size() : a < b;
    };
    // Numbered identifiers are in this order already.
    if (!std::is_sorted(texts.begin(), texts.end(), shorter_first)) {
        std::sort(texts.begin(), texts.end(), shorter_first);
    }
    return std::adjacent_find(texts.begin(), texts.end()) != texts.end();
}

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
    if (has_report_sink()) {
        m_channel_elems.push_back(&elem);
    }
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
    // The first empty identifier ends the check of those before it.
    const auto& channels = m_spec->get_channel_config().get_interfaces();
    const auto end = std::find_if(channels.begin(), channels.end(),
                                  [](const Interface* intf) { return intf->chan_id.empty(); });
    std::vector<std::string_view> ids;
    ids.reserve(channels.size());
    std::transform(channels.begin(), end, std::back_inserter(ids),
                   [](const Interface* intf) -> std::string_view { return intf->chan_id; });
    if (has_duplicates(std::move(ids))) {
        return report_error(elem, "Two or more channels share the same channel ID.",
                            {"duplicate-channel-id", {}, nullptr, "chan_id", find_duplicate_ids()});
    }
    if (end != channels.end()) {
        return report_error(elem, "Empty channel ID name.",
                            {"empty-channel-id", {}, nullptr, "chan_id", find_empty_ids()});
    }
    return true;
}

std::vector<ElementPair> ChannelsVisitor::find_empty_ids() const {
    std::vector<ElementPair> pairs;
    for (const XMLElement* elem : m_channel_elems) {
        if (*elem->Attribute("chan_id") == '\0' && pairs.size() < MAX_PAIRS) {
            pairs.push_back({elem, nullptr});
        }
    }
    return pairs;
}

std::vector<ElementPair> ChannelsVisitor::find_duplicate_ids() const {
    std::vector<ElementPair> pairs;
    std::unordered_map<std::string_view, const XMLElement*> first_of_id;
    for (const XMLElement* elem : m_channel_elems) {
        const std::string_view id = elem->Attribute("chan_id");
        const auto [first, is_first] = first_of_id.emplace(id, elem);
        if (!is_first && !id.empty() && pairs.size() < MAX_PAIRS) {
            pairs.push_back({first->second, elem});
        }
    }
    return pairs;
}

}  // namespace vemo::board::xml
