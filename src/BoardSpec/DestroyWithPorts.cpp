#include "BoardSpec/DestroyWithPorts.h"

#include "BoardSpec/BoardSpec.h"

namespace vemo::board {
namespace {

void destroy_ports(const Interface& intf) {
    for (unsigned i = 0; i < intf.get_num_ports(); ++i) {
        delete intf.get_port(i);
    }
}

void destroy_ports(const InterfaceList& interfaces) {
    for (const Interface* intf : interfaces.get_interfaces()) {
        destroy_ports(*intf);
    }
}

}  // namespace

void DestroyWithPorts::operator()(const Interface* intf) const {
    destroy_ports(*intf);
    delete intf;
}

void DestroyWithPorts::operator()(const BoardSpec* spec) const {
    for (const GlobalMemConfig* memory : spec->get_global_mem_configs()) {
        destroy_ports(*memory);
    }
    if (spec->has_interface_config()) {
        destroy_ports(spec->get_interface_config());
    }
    if (spec->has_channel_config()) {
        destroy_ports(spec->get_channel_config());
    }
    delete spec;
}

}  // namespace vemo::board
