#pragma once

#include <string>

#include "BoardPackage/AnswerTable.h"

namespace vemo::dump {

/// The board for people: the compile flows, the global memories, the address map and all ports;
/// then the dumps of the three models, and of the memories that the board's own dump leaves out.
///
/// Throws std::runtime_error if a memory has no interface.
std::string text_dump(const AnswerSources& sources);

}  // namespace vemo::dump
