#pragma once

#include <ostream>

#include "BoardSpec/BoardSpec.h"

namespace vemo::board {

// Text dumps. None ends in a newline. Hexadecimal fields and the version do not depend on the
// stream's locale or format; a hexadecimal field leaves '0' as the stream's fill character.

/// The number, or "<unknown>(0)" when none was set.
std::ostream& operator<<(std::ostream& os, const BoardSpec::Version& version);

/// "slave", "master", "irq", "stream-source" or "stream-sink"; "<unknown>(n)" for other values.
std::ostream& operator<<(std::ostream& os, Interface::Type type);

/// One line. Aborts if the interface has no port; only its first port is shown.
std::ostream& operator<<(std::ostream& os, const Interface& intf);

/// One line: the three signals.
std::ostream& operator<<(std::ostream& os, const KernelClkReset& kernel_clk_reset);

/// The model file and the used resources.
std::ostream& operator<<(std::ostream& os, const DeviceConfig& device_config);

/// Start and size of the window.
std::ostream& operator<<(std::ostream& os, const HostConfig& host_config);

/// Name, interleaving and interfaces. Aborts if the memory has no interface.
std::ostream& operator<<(std::ostream& os, const GlobalMemConfig& gmc);

/// The channels, one line each.
std::ostream& operator<<(std::ostream& os, const ChannelConfig& channel_config);

/// Clocks, reset and interfaces.
std::ostream& operator<<(std::ostream& os, const InterfaceConfig& interface_config);

/// The whole board without its compile flows. Of the global memories, only the default one.
std::ostream& operator<<(std::ostream& os, const BoardSpec& spec);

}  // namespace vemo::board
