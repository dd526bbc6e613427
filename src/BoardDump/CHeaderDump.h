#pragma once

#include <string>

#include "BoardPackage/AnswerTable.h"

namespace vemo::dump {

/// A header for C11 and C++17 or later: macros for the board, the host's window on the kernel, the
/// global memories, the channels and the compile flows. It is ASCII and compiles without warnings.
/// A text is a string literal, or an array of characters if it is too long for one.
///
/// The names of macros contain the name of the memory, channel or flow: in upper case, shortened,
/// and with "_" for characters other than letters and digits. If such a name is taken, the index is
/// appended; if nothing is left of it, the index replaces it. VEMO_FOR_EACH_<kind>(X) expands to
/// X(<that name>) for each item, in order.
std::string c_dump(const AnswerSources& sources);

}  // namespace vemo::dump
