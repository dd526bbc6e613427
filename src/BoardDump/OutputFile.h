#pragma once

#include <string>

namespace vemo::dump {

/// Makes the file `path` hold exactly `text`. A file that does already is left alone, its time of
/// modification included. Otherwise a new file takes its place at once, under the same name and
/// with the same permissions: nobody sees half of it, and a failure leaves the old file as it was.
/// Of a symbolic link, the file that it leads to is meant.
///
/// What is not a regular file is written to, and so is the file that standard output goes to.
///
/// Throws std::system_error.
void write_file(const std::string& path, const std::string& text);

}  // namespace vemo::dump
