#pragma once

#include <vector>

#include "BoardPackage/AnswerTable.h"

namespace vemo::dump {

/// The sources of the answers about each compile flow of the board, in the order in which the board
/// first defines them. A flow that is defined twice is there once: the later one counts.
std::vector<AnswerSources> sources_of_flows(const AnswerSources& sources);

}  // namespace vemo::dump
