#pragma once

#include <string>

#include "BoardDump/Markup.h"
#include "BoardPackage/AnswerTable.h"

namespace vemo::dump {

/// A picture of the board as an SVG document, for light and dark viewers. If there are too many
/// parts of a kind, they are summarized, and the picture states that.
std::string svg_dump(const AnswerSources& sources);

/// The same as an element `svg` of another document. Its classes are prefixed with "p-", its ids
/// with "picture-".
Markup picture(const AnswerSources& sources);

}  // namespace vemo::dump
