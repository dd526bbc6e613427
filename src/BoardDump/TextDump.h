#pragma once

#include <string>

#include "BoardPackage/AnswerTable.h"

namespace vemo::dump {

/// Everything for people: the compile flows, the memories side by side and by address, and all
/// ports; then the dumps of the three models with their parts, and of the memories that the board's
/// own dump leaves out.
/// Every memory must have an interface; std::runtime_error tells of one that has none.
std::string text_dump(const AnswerSources& sources);

}  // namespace vemo::dump
