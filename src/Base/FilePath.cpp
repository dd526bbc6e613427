#include "Base/FilePath.h"

#include <unistd.h>

#include <cerrno>

#include "Base/OpenForReading.h"

namespace vemo {
namespace {

constexpr char SEPARATOR = '/';

}  // namespace

bool FilePath::is_separator(char c) { return c == SEPARATOR; }

std::size_t FilePath::rfind_sep(std::string path, std::size_t start) {
    if (start >= path.size()) {
        return start;
    }
    return path.rfind(SEPARATOR, start);
}

std::string FilePath::parent_path(std::string path) {
    std::size_t last = rfind_sep(path, path.size() - 1);
    if (!path.empty() && last == path.size() - 1) {
        if (path.size() == 1) {
            return "";
        }
        last = rfind_sep(path, last - 1);
    }
    if (last == std::string::npos) {
        return "";
    }
    return path.substr(0, last == 0 ? 1 : last);
}

bool FilePath::is_absolute(std::string path) { return path.size() >= 2 && is_separator(path[0]); }

std::string FilePath::append(std::string base, std::string tail) {
    if (base.empty()) {
        return tail;
    }
    if (!is_separator(base.back())) {
        base += SEPARATOR;
    }
    return base + tail;
}

bool FilePath::exists(std::string path) {
    const int fd = open_for_reading(path.c_str());
    if (fd == -1) {
        return !means_absent(errno);
    }
    close(fd);
    return true;
}

}  // namespace vemo
