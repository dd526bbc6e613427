#pragma once

#include <string>
#include <vector>

#include "BoardLint/Finding.h"
#include "BoardLint/SourceText.h"

namespace vemo::lint {

struct TextOptions {
    bool has_color = false;  ///< Whether terminal escape sequences are wanted.
};

/// The findings for a person: file, line, column and message of each, the source line with the
/// place marked, the suggestion, and the notes. Whatever the files contain, a line that begins with
/// a file name is a finding or a note, and only the escape sequences of the colors reach the
/// terminal. Source lines are cut around the place.
std::string text_output(const std::vector<Finding>& findings, const Sources& sources,
                        const TextOptions& options);

}  // namespace vemo::lint
