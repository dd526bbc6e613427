#pragma once

#include <cstdint>
#include <string>

#include "Base/ArrayView.h"
#include "BoardSpec/BoardSpec.h"

namespace vemo::dump {

// Texts that the picture and the page share.

/// A count with commas between groups of three digits.
std::string count_text(std::uint64_t count);

/// A count with the noun for one or for any other number.
std::string plural_text(std::uint64_t count, const char* singular, const char* plural);

/// The shortest number that reads as `figure`; "inf" for what is not finite.
std::string figure_text(float figure);

/// How much of `available` is used, in whole percent: "15 %", "<1 %", ">999 %". Empty if there is
/// none to use.
std::string share_text(std::uint64_t used, std::uint64_t available);

/// A kind of resources of a device.
struct Resource {
    const char* name;
    std::uint32_t dmodel::DeviceResources::*count;
};

/// The kinds of resources that files have, in the order in which they are shown.
extern const ArrayView<Resource> RESOURCES;

/// The name of the board, which may have none.
std::string board_name_text(const board::BoardSpec& spec);

/// The format of the board file, and how many memories, interfaces and channels the board has.
std::string board_summary(const board::BoardSpec& spec);

/// The name of a device: that of its model file, without directory and suffix.
std::string device_name(const std::string& device_model);

/// The bandwidth of a memory with its unit.
std::string bandwidth_text(const board::GlobalMemConfig& memory);

/// First and last address of the host's window on the kernel.
std::string window_text(const board::HostConfig& host);

}  // namespace vemo::dump
