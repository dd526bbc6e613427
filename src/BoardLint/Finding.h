#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vemo::lint {

/// A place in a file. Lines and columns count from 1. Columns count characters (code points of
/// UTF-8); a tab and an invalid byte count as one each.
struct Location {
    std::string file;     ///< As named on the command line, or the path at which it was found.
    unsigned line = 0;    ///< 0 for the file as a whole.
    unsigned column = 0;  ///< 0 for the line as a whole.
    unsigned length = 0;  ///< Characters concerned, from `column` on, within the line.
};

/// Additional information about a finding, possibly about another place.
struct Note {
    Location location;  ///< Line 0 when the note belongs to no place.
    std::string text;
};

enum class Severity { Error, Warning };

/// One mistake in a file. Texts contain names and values as they are in the file: outputs must
/// escape control characters.
struct Finding {
    Severity severity = Severity::Error;
    std::string id;  ///< Stable, in words: "unknown-attribute".
    Location location;
    std::string message;     ///< The reader's own text, without source and line, in one line.
    std::string suggestion;  ///< A name or word that is proven to load; empty for none.
    std::vector<Note> notes;
};

}  // namespace vemo::lint
