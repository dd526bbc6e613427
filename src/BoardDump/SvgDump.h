#pragma once

#include <string>

#include "BoardDump/Markup.h"
#include "BoardPackage/AnswerTable.h"

namespace vemo::dump {

/// A picture of the board as an SVG document, for light and dark viewers. Parts of which there are
/// too many are summarized, which the picture says.
std::string svg_dump(const AnswerSources& sources);

/// The same as an element `svg` of another document. Its classes are prefixed with "p-", its ids
/// with "picture-".
Markup picture(const AnswerSources& sources);

}  // namespace vemo::dump
