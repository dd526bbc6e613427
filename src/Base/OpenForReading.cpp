#include "Base/OpenForReading.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace vemo {
namespace {

// A signal seldom interrupts an open, and never this often in a row unless something is broken.
constexpr int MAX_ATTEMPTS = 1000;

int retry_open(const char* path, int flags) {
    int fd = -1;
    for (int attempt = 0; attempt < MAX_ATTEMPTS; ++attempt) {
        fd = open(path, flags);
        if (fd != -1 || errno != EINTR) {
            break;
        }
    }
    return fd;
}

bool is_regular_file(const char* path) {
    struct stat status = {};
    return stat(path, &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

int open_for_reading(const char* path) {
    constexpr int FLAGS = O_RDONLY | O_CLOEXEC;
    const int fd = retry_open(path, FLAGS | O_NONBLOCK);
    if (fd == -1 && errno == EWOULDBLOCK && is_regular_file(path)) {
        return retry_open(path, FLAGS);  // waits until the lease on the file is given up
    }
    return fd;
}

bool means_absent(int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
        case ELOOP:
        case ENAMETOOLONG:
        case EACCES:
        case EPERM:
        case ENXIO:   // a socket, or a device file
        case ENODEV:  // without its device
            return true;
        default:
            return false;
    }
}

bool opens_without_waiting(const char* path) {
    struct stat status = {};
    if (stat(path, &status) != 0) {
        return means_absent(errno);
    }
    return S_ISREG(status.st_mode) || S_ISDIR(status.st_mode) || S_ISSOCK(status.st_mode);
}

}  // namespace vemo
