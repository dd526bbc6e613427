#pragma once

namespace vemo {

/// Opens the file `path` for reading. Returns a descriptor that the caller closes, or -1 with errno
/// set.
///
/// Never waits for the other end of a pipe. A file that another process holds a lease on is waited
/// for: the system limits that wait. Interruptions by signals are retried.
int open_for_reading(const char* path);

/// True if `error`, an errno value, means that there is no file of that name that this process can
/// read. False if it means that the system failed, so that there may be one.
bool means_absent(int error);

/// True when no way of opening `path` for reading waits for another process, except for one that
/// holds a lease: there is no such file, or it is a regular file, a directory or a socket.
bool opens_without_waiting(const char* path);

}  // namespace vemo
