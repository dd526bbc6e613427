#pragma once

#include <string>

#include "BoardPackage/AnswerTable.h"

namespace vemo::dump {

/// Every answer and the three models as one JSON object. It is valid UTF-8: invalid bytes in the
/// files become U+FFFD. Members:
///   "format_version"
///                   1; another number when a member is removed or its meaning changes
///   "tool_version"  that of the program
///   "files"         paths of the files that were read, and the "candidates" of PackageFiles
///   "answers"       every command with its answer (of the default flow), all of them texts
///   "flows"         per compile flow: its name, and the commands that read a flow with their
///                   answers
///   "board", "device_model", "target_model"
///                   the models, built and named as the files are: a member for each element and
///                   attribute; an array, in file order, where an element may occur several times
/// In the models, numbers are JSON numbers and flags are booleans; null is a value or part that is
/// not given, or a number that is not finite.
std::string json_dump(const AnswerSources& sources);

}  // namespace vemo::dump
