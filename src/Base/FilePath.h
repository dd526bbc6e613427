#pragma once

#include <cstddef>
#include <string>

namespace vemo {

/// Operations on slash-separated paths. They look at the text only ("." and ".." mean nothing to
/// them), except `exists`, which asks the file system.
class FilePath {
public:
    /// True for "/" alone.
    static bool is_separator(char c);

    /// Index of the last separator at or before `start`, or npos when there is none. A `start`
    /// that is not below the length of the path (npos included) comes back unchanged.
    static std::size_t rfind_sep(std::string path, std::size_t start);

    /// The path without its last name and the separator before it; one trailing separator is
    /// ignored. Empty for a single relative name, "/" for a single name below the root.
    static std::string parent_path(std::string path);

    /// True when the path starts with a separator and something follows it: a lone "/" is relative.
    static bool is_absolute(std::string path);

    /// `base` and `tail` with one separator between them; the tail alone when the base is empty.
    /// The tail is appended as it is, even when it is absolute.
    static std::string append(std::string base, std::string tail);

    /// True when the path can be opened for reading; so a directory exists, an unreadable file
    /// does not. Also true if the system fails (too many open files, a disk error), so that a
    /// search does not skip the file: the next attempt to open it reports the failure.
    static bool exists(std::string path);
};

}  // namespace vemo
