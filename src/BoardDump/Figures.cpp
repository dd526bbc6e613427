#include "BoardDump/Figures.h"

#include <charconv>

#include "BoardDump/AddressMap.h"

namespace vemo::dump {
namespace {

using dmodel::DeviceResources;

constexpr Resource ROWS[] = {
    {"LEs", &DeviceResources::LEs},
    {"FFs", &DeviceResources::FFs},
    {"RAMs", &DeviceResources::RAMs},
    {"DSPs", &DeviceResources::DSPs},
};

}  // namespace

const ArrayView<Resource> RESOURCES = ROWS;

std::string count_text(std::uint64_t count) {
    std::string text = std::to_string(count);
    for (std::size_t place = text.size(); place > 3;) {
        place -= 3;
        text.insert(place, 1, ',');
    }
    return text;
}

std::string plural_text(std::uint64_t count, const char* singular, const char* plural) {
    return count_text(count) + " " + (count == 1 ? singular : plural);
}

std::string figure_text(float figure) {
    char text[32];
    return std::string(text, std::to_chars(text, text + sizeof text, figure).ptr);
}

std::string share_text(std::uint64_t used, std::uint64_t available) {
    constexpr std::uint64_t MOST = 999;
    if (available == 0) {
        return "";
    }
    const std::uint64_t percent = (200 * used + available) / (2 * available);
    if (percent > MOST) {
        return ">" + std::to_string(MOST) + " %";
    }
    return percent == 0 && used > 0 ? "<1 %" : std::to_string(percent) + " %";
}

std::string board_name_text(const board::BoardSpec& spec) {
    return spec.name.empty() ? "(unnamed board)" : spec.name;
}

std::string board_summary(const board::BoardSpec& spec) {
    const unsigned num_channels =
        spec.has_channel_config() ? spec.get_channel_config().get_num_intfs() : 0;
    return "Board file format " + board::to_string(spec.version) + ", "
           + plural_text(spec.get_num_global_mem_definitions(), "global memory", "global memories")
           + ", "
           + plural_text(spec.get_interface_config().get_num_intfs(), "kernel interface",
                         "kernel interfaces")
           + ", " + plural_text(num_channels, "channel", "channels");
}

std::string device_name(const std::string& device_model) {
    const std::string name = device_model.substr(device_model.rfind('/') + 1);
    const std::size_t end = name.rfind(".xml");
    return end == std::string::npos || end == 0 ? name : name.substr(0, end);
}

std::string bandwidth_text(const board::GlobalMemConfig& memory) {
    return figure_text(memory.get_max_bandwidth()) + " MB/s";
}

std::string window_text(const board::HostConfig& host) {
    const std::uint64_t start = host.kernel_config_start;
    return range_text(start, start + host.get_kernel_config_size() - 1);
}

}  // namespace vemo::dump
