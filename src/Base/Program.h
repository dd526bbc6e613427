#pragma once

#include <cstdio>
#include <string_view>

// Set-up and output of a program, for main functions only: all of this affects the whole process.

namespace vemo {

/// To be called once, before anything else. `name` is the prefix of messages and must live as long
/// as the process. Always true, so that the initialization of a static object can call it.
///
/// From then on, a failed allocation writes "Error: out of memory" to `errors` and ends the process
/// with exit status 1. (An exception would need memory itself, and code in between might catch it.)
/// A closed pipe and a limit on the size of files make writing fail instead of ending the process.
bool set_up_program(const char* name, std::FILE* errors);

/// Appends `text` to standard output. finish_output() reports errors.
void write_output(std::string_view text);

/// Ends standard output. If some of it could not be written, reports that on standard error and
/// returns false.
bool finish_output();

}  // namespace vemo
