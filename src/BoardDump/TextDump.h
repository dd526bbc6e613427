#pragma once

#include <string>

#include "BoardPackage/AnswerTable.h"

namespace vemo::dump {

/// Everything for people: the dumps of the three models with their parts, of the memories that the
/// board's own dump leaves out, the compile flows, and the memories side by side and by address.
/// Every memory must have an interface; std::runtime_error tells of one that has none.
std::string text_dump(const AnswerSources& sources);

}  // namespace vemo::dump
