#include "BoardSpec/Dump.h"

#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <iomanip>
#include <iterator>

namespace vemo::board {
namespace {

constexpr const char* TYPE_NAMES[] = {"slave", "master", "irq", "stream-source", "stream-sink"};
static_assert(std::size(TYPE_NAMES) == Interface::TypeCount);

constexpr int ADDRESS_DIGITS = 16;
constexpr int HOST_ADDRESS_DIGITS = 8;

/// Writes `value` as 0x and `digits` lower-case hexadecimal digits, whatever the stream's locale
/// and format, and leaves '0' as its fill character.
void write_hex(std::ostream& os, std::uint32_t value, int digits) {
    char text[sizeof "0x0123456789abcdef"];
    std::snprintf(text, sizeof text, "0x%0*" PRIx32, digits, value);
    os << text << std::setfill('0');
}

void write_interfaces(std::ostream& os, const InterfaceList& list) {
    for (const Interface* intf : list.get_interfaces()) {
        os << "\n  Interface: " << *intf;
    }
}

/// Writes the part that `get_part` gives, or that there is none.
template <typename GetPart>
void write_part(std::ostream& os, const char* title, bool is_present, GetPart get_part) {
    if (is_present) {
        os << get_part();
    } else {
        os << title << ": <null>";
    }
}

}  // namespace

std::ostream& operator<<(std::ostream& os, const BoardSpec::Version& version) {
    return os << to_string(version);
}

std::ostream& operator<<(std::ostream& os, Interface::Type type) {
    if (type >= 0 && type < Interface::TypeCount) {
        return os << TYPE_NAMES[type];
    }
    return os << "<unknown>(" << static_cast<std::int32_t>(type) << ")";
}

std::ostream& operator<<(std::ostream& os, const Interface& intf) {
    os << "type = " << intf.get_type() << ", name = " << intf.name
       << ", port = " << intf.get_port_name(0) << ", dataw = " << intf.get_data_width()
       << ", maxburst = " << intf.get_max_burst_count() << ", address = ";
    write_hex(os, intf.address, ADDRESS_DIGITS);
    os << ", size = ";
    write_hex(os, intf.get_size(), ADDRESS_DIGITS);
    if (!intf.enable.empty()) {
        os << ", enable = " << intf.enable;
    }
    if (!intf.clock.empty()) {
        os << ", clock = " << intf.clock;
    }
    if (!intf.chan_id.empty()) {
        os << ", chan_id = " << intf.chan_id;
    }
    return os << ", misc = " << intf.misc;
}

std::ostream& operator<<(std::ostream& os, const KernelClkReset& kernel_clk_reset) {
    return os << "clk = " << kernel_clk_reset.clk << " clk2x = " << kernel_clk_reset.clk2x
              << " reset = " << kernel_clk_reset.reset;
}

std::ostream& operator<<(std::ostream& os, const DeviceConfig& device_config) {
    os << "Device configuration:\n";
    os << "  Device model file: " << device_config.device_model << "\n";
    os << "  Used resources: ";
    if (device_config.has_used_resources()) {
        return os << device_config.get_used_resources();
    }
    return os << "<null>";
}

std::ostream& operator<<(std::ostream& os, const HostConfig& host_config) {
    os << "Host configuration:\n";
    os << "  Kernel configuration start: ";
    write_hex(os, host_config.kernel_config_start, HOST_ADDRESS_DIGITS);
    os << "\n  Kernel configuration size:  ";  // two spaces align the values
    write_hex(os, host_config.get_kernel_config_size(), HOST_ADDRESS_DIGITS);
    return os;
}

std::ostream& operator<<(std::ostream& os, const GlobalMemConfig& gmc) {
    os << "Global memory configuration:\n";
    if (!gmc.name.empty()) {
        os << "  name: " << gmc.name << ",";  // the next label follows on this line
    }
    os << "  # interleaved bytes: " << gmc.get_num_interleaved_bytes();
    write_interfaces(os, gmc);
    return os;
}

std::ostream& operator<<(std::ostream& os, const ChannelConfig& channel_config) {
    os << "Channel configuration:";
    write_interfaces(os, channel_config);
    return os;
}

std::ostream& operator<<(std::ostream& os, const InterfaceConfig& interface_config) {
    os << "Interface configuration:\n";
    os << "  Kernel clock-reset: ";
    if (interface_config.has_kernel_clk_reset()) {
        os << interface_config.get_kernel_clk_reset();
    } else {
        os << "<null>";
    }
    write_interfaces(os, interface_config);
    return os;
}

std::ostream& operator<<(std::ostream& os, const BoardSpec& spec) {
    // The plain number: here a version of 0 is no "<unknown>".
    os << "Board specification (v" << number_text(spec.version) << "):\n";
    os << "  Name: " << spec.name << "\n";
    write_part(
        os, "Device configuration",
        spec.has_device_config(), [&spec]() -> const auto& { return spec.get_device_config(); });
    os << "\n";
    write_part(
        os, "Global memory configuration", spec.has_global_mem_config(), [&spec]() -> const auto& {
            return spec.get_global_mem_config();
        });
    os << "\n";
    write_part(
        os, "Host configuration",
        spec.has_host_config(), [&spec]() -> const auto& { return spec.get_host_config(); });
    os << "\n";
    write_part(
        os, "Interface configuration", spec.has_interface_config(), [&spec]() -> const auto& {
            return spec.get_interface_config();
        });
    os << "\n";
    write_part(
        os, "Channel configuration",
        spec.has_channel_config(), [&spec]() -> const auto& { return spec.get_channel_config(); });
    return os;
}

}  // namespace vemo::board
