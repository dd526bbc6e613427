#include "BoardDump/InterfaceAttributes.h"

#include <cstddef>

#include "BoardSpec/Words.h"

namespace vemo::dump {
namespace {

using board::Interface;

template <auto Field>
AttributeValue field(const Interface& intf) {
    return intf.*Field;
}

template <auto Field>
AttributeValue text(const Interface& intf) {
    return std::string_view(intf.*Field);
}

template <auto Getter>
AttributeValue figure(const Interface& intf) {
    return figure_value((intf.*Getter)());
}

AttributeValue type(const Interface& intf) {
    return word_value(board::INTERFACE_TYPE_WORDS, static_cast<std::size_t>(intf.type));
}

AttributeValue latency_type(const Interface& intf) {
    return word_value(board::LATENCY_TYPE_WORDS, intf.latency_type);
}

constexpr InterfaceAttribute ROWS[] = {
    {"name", text<&Interface::name>},
    {"type", type},
    {"width", figure<&Interface::get_data_width>},
    {"maxburst", figure<&Interface::get_max_burst_count>},
    {"address", field<&Interface::address>},
    {"size", figure<&Interface::get_size>},
    {"chan_id", text<&Interface::chan_id>},
    {"enable", text<&Interface::enable>},
    {"clock", text<&Interface::clock>},
    {"misc", field<&Interface::misc>},
    {"latency", field<&Interface::latency>},
    {"latency_type", latency_type},
    {"waitrequest", field<&Interface::waitrequest>},
    {"waitrequest_allowance", field<&Interface::waitrequest_allowance>},
    {"bsp_vnmm_write_ack", field<&Interface::bsp_vnmm_write_ack>},
    {"addpipe", field<&Interface::addpipe>},
    {"sampling_rate", figure<&Interface::get_sampling_rate>},
};

}  // namespace

const ArrayView<InterfaceAttribute> INTERFACE_ATTRIBUTES = ROWS;

}  // namespace vemo::dump
