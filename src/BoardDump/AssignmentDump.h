#pragma once

#include <string>

#include "BoardPackage/AnswerTable.h"

namespace vemo::dump {

// Every answer as the assignment of a variable: vemo_<command>, with the answer about the default
// flow where a command reads a flow; then vemo_num_flows, and vemo_flow_<i>_name and
// vemo_flow_<i>_<command> for the i-th flow, counted from 0. What a board file contains can end up
// in a value, never in a name. Values are kept to the byte.

/// For the eval of a POSIX shell.
std::string shell_dump(const AnswerSources& sources);

/// For the include of a GNU makefile. Defines vemo_empty and vemo_newline, too.
std::string make_dump(const AnswerSources& sources);

}  // namespace vemo::dump
