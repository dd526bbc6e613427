#pragma once

#include <string>

#include "BoardPackage/AnswerTable.h"

namespace vemo::dump {

// Everything about a board as assignments of variables. Texts of a board file can become values,
// never part of a name. A missing attribute is empty, a flag is 1 or 0, and numbers are decimal. i,
// j and k count from 0:
//
//   vemo_<command>                        every answer, with that about the default flow where a
//                                         command reads a flow
//   vemo_file_board, vemo_file_device_model, vemo_file_target_model
//                                         paths of the files that were read
//   vemo_num_candidates, vemo_candidate_<i>
//                                         where the models were searched for, see PackageFiles
//   vemo_num_flows, vemo_flow_<i>_name, vemo_flow_<i>_<command>
//   vemo_num_memories, vemo_memory_<i>_<attribute>
//   vemo_memory_<i>_num_interfaces, vemo_memory_<i>_interface_<j>_<attribute>
//   vemo_num_channels, vemo_channel_<i>_<attribute>
//   vemo_num_interfaces, vemo_interface_<i>_<attribute>
//                                         the kernel interfaces
//   <an interface or channel>_num_ports, <...>_port_<k>_name, <...>_port_<k>_direction
//   vemo_kernel_config_start, vemo_kernel_config_size
//                                         the host's window on the kernel
//
// All formats except Tcl keep values byte for byte.

/// For `eval` in a POSIX shell.
std::string shell_dump(const AnswerSources& sources);

/// For `include` in a GNU makefile. Also defines vemo_empty and vemo_newline.
std::string make_dump(const AnswerSources& sources);

/// For `include` in a CMake script.
std::string cmake_dump(const AnswerSources& sources);

/// For `source` in a Tcl script of any encoding: the output is ASCII. Invalid UTF-8 becomes U+FFFD.
std::string tcl_dump(const AnswerSources& sources);

}  // namespace vemo::dump
