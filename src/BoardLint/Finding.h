#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vemo::lint {

/// A place in a file. Lines and columns count from 1; columns count characters (code points of
/// UTF-8, a byte that is none counts as one), a tab as one.
struct Location {
    std::string file;     ///< As named on the command line, or the path at which it was found.
    unsigned line = 0;    ///< 0 for the file as a whole.
    unsigned column = 0;  ///< 0 for the line as a whole.
    unsigned length = 0;  ///< Characters concerned, from `column` on, within the line.
};

/// Something that helps to understand a finding, perhaps at another place.
struct Note {
    Location location;  ///< Line 0 when the note belongs to no place.
    std::string text;
};

enum class Severity { Error, Warning };

/// One thing that is wrong with a file. Texts hold names and values as the file has them: whoever
/// shows them makes control characters harmless.
struct Finding {
    Severity severity = Severity::Error;
    std::string id;  ///< Stable, in words: "unknown-attribute".
    Location location;
    std::string message;     ///< The reader's own text, without source and line, in one line.
    std::string suggestion;  ///< A name or word that is proven to load; empty for none.
    std::vector<Note> notes;
};

}  // namespace vemo::lint
