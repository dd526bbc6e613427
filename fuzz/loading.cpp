#include "loading.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "Base/Characters.h"

namespace vemo::fuzz {

void (*watch_report)(const std::string& text) = nullptr;

void fail(const std::string& what, const std::string& a, const std::string& b) {
    std::fprintf(stderr, "assertion failed: %s gives\n%s\nin place of\n%s\n", what.c_str(),
                 a.c_str(), b.c_str());
    std::abort();
}

void check_printable(const std::string& text) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const std::string expected = vemo::printable(line);
        if (line != expected) {
            fail("a line", line, expected);
        }
    }
}

std::string take_document(std::string& input) {
    const std::string separator = "%%";
    const std::size_t end = input.find(separator);
    std::string document = input.substr(0, end);
    input.erase(0, end == std::string::npos ? end : end + separator.size());
    return document;
}

const char* write_memory_file(const std::string& text) {
    static const int fd = memfd_create("input", MFD_CLOEXEC);
    static const std::string path = "/proc/self/fd/" + std::to_string(fd);
    const auto size = static_cast<off_t>(text.size());
    if (fd == -1 || ftruncate(fd, size) != 0 || pwrite(fd, text.data(), text.size(), 0) != size) {
        std::perror("a file in memory");
        std::abort();
    }
    return path.c_str();
}

std::string with_source_name(std::string text, const std::string& from, const std::string& to) {
    const std::string place = "Error in '";
    if (text.compare(0, place.size(), place) == 0
        && text.compare(place.size(), from.size(), from) == 0) {
        text.replace(place.size(), from.size(), to);
    }
    return text;
}

}  // namespace vemo::fuzz
