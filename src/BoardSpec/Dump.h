#pragma once

#include <ostream>

#include "BoardSpec/BoardSpec.h"

namespace vemo::board {

// Dumps as text; none ends in a newline. An interface must have a port, a global memory an
// interface. Hexadecimal fields leave '0' behind as the stream's fill character.

std::ostream& operator<<(std::ostream& os, const BoardSpec::Version& version);
std::ostream& operator<<(std::ostream& os, Interface::Type type);
std::ostream& operator<<(std::ostream& os, const Interface& intf);
std::ostream& operator<<(std::ostream& os, const KernelClkReset& kernel_clk_reset);
std::ostream& operator<<(std::ostream& os, const DeviceConfig& device_config);
std::ostream& operator<<(std::ostream& os, const HostConfig& host_config);
std::ostream& operator<<(std::ostream& os, const GlobalMemConfig& gmc);
std::ostream& operator<<(std::ostream& os, const ChannelConfig& channel_config);
std::ostream& operator<<(std::ostream& os, const InterfaceConfig& interface_config);

/// Of the global memories, only the default one is dumped.
std::ostream& operator<<(std::ostream& os, const BoardSpec& spec);

}  // namespace vemo::board
