#include "BoardDump/OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace vemo::dump {
namespace {

namespace fs = std::filesystem;

/// The error of the last system call.
std::system_error error_about(const std::string& path) {
    return {errno, std::generic_category(), "Cannot write '" + path + "'"};
}

bool write_all(int fd, const std::string& text) {
    std::size_t written = 0;
    while (written < text.size()) {
        const ssize_t size = write(fd, text.data() + written, text.size() - written);
        if (size >= 0) {
            written += static_cast<std::size_t>(size);
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

bool holds(const fs::path& path, const std::string& text) {
    std::string held(text.size() + 1, '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(held.data(), static_cast<std::streamsize>(held.size()));
    held.resize(static_cast<std::size_t>(file.gcount()));
    return file.eof() && held == text;
}

bool is_standard_output(const struct stat& status) {
    struct stat output = {};
    return fstat(STDOUT_FILENO, &output) == 0 && output.st_dev == status.st_dev
           && output.st_ino == status.st_ino;
}

/// Closes `fd`, which is -1, with errno set, if the file could not be opened.
void write_and_close(int fd, const std::string& path, const std::string& text) {
    if (fd == -1 || !write_all(fd, text)) {
        const std::system_error error = error_about(path);
        close(fd);
        throw error;
    }
    close(fd);
}

mode_t mode_of_new_files() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

}  // namespace

void write_file(const std::string& path, const std::string& text) {
    struct stat status = {};
    const bool exists = stat(path.c_str(), &status) == 0;
    if (!exists && errno != ENOENT) {
        throw error_about(path);
    }
    if (exists && is_standard_output(status)) {
        write_and_close(dup(STDOUT_FILENO), path, text);
        return;
    }
    if (exists && !S_ISREG(status.st_mode)) {
        write_and_close(open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY), path, text);
        return;
    }
    fs::path target = path;
    while (fs::is_symlink(target)) {
        target = target.parent_path() / fs::read_symlink(target);
    }
    if (exists && holds(target, text)) {
        return;
    }
    std::string temporary = target.parent_path() / ".vemo-XXXXXX";
    const int fd = mkstemp(temporary.data());
    if (fd == -1) {
        throw error_about(path);
    }
    bool is_done = write_all(fd, text)
                   && fchmod(fd, exists ? status.st_mode & 07777 : mode_of_new_files()) == 0;
    is_done = close(fd) == 0 && is_done;
    is_done = is_done && std::rename(temporary.c_str(), target.c_str()) == 0;
    if (!is_done) {
        const std::system_error error = error_about(path);
        unlink(temporary.c_str());
        throw error;
    }
}

}  // namespace vemo::dump
