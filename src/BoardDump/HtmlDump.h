#pragma once

#include <string>

#include "BoardPackage/AnswerTable.h"

namespace vemo::dump {

/// Everything about the board as one HTML page that needs nothing else and runs nothing: the
/// picture, which may be summarized, and tables, which are complete. It is well-formed XML, too.
/// `sources` must have its files.
std::string html_dump(const AnswerSources& sources);

}  // namespace vemo::dump
