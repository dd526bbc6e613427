#pragma once

#include <string>

namespace vemo::dump {

/// Makes the file `path` contain exactly `text`. A file that already does is not touched and keeps
/// its modification time. Otherwise a new file with the same permissions replaces it atomically:
/// nobody sees a partial file, and after a failure the old file is as it was. Symbolic links are
/// followed.
///
/// Anything other than a regular file is written to directly, and so is the file that standard
/// output goes to.
///
/// Throws std::system_error.
void write_file(const std::string& path, const std::string& text);

}  // namespace vemo::dump
