#pragma once

#include <vector>

#include "BaseVisitor/BaseVisitor.h"
#include "BoardSpec/BoardSpec.h"

namespace vemo::board::xml {

/// Reads `channels`: the streaming interfaces of the board.
class ChannelsVisitor : public vemo::xml::BaseVisitor {
public:
    /// Fills `spec`, which is not owned and must not be null.
    ChannelsVisitor(BaseVisitor* parent, BoardSpec* spec);

    using BaseVisitor::VisitEnter;
    using BaseVisitor::VisitExit;
    bool VisitEnter(const XMLElement& elem, const XMLAttribute* first_attribute) override;
    bool VisitExit(const XMLElement& elem) override;

private:
    bool visit_channels_elem(const XMLElement& elem);
    bool visit_interface_elem(const XMLElement& elem);
    bool check_channel_ids(const XMLElement& elem);

    /// The channels whose id is empty, or those that have the id of an earlier one.
    std::vector<vemo::xml::ElementPair> find_empty_ids() const;
    std::vector<vemo::xml::ElementPair> find_duplicate_ids() const;

    static const ElementHandler<ChannelsVisitor> HANDLERS[];

    BoardSpec* m_spec;
    std::vector<const XMLElement*> m_channel_elems;  // in the order of the model; for a sink
};

}  // namespace vemo::board::xml
