// To be preloaded. From the allocation with the number FAIL_FROM on, or at number FAIL_AT alone,
// there is no memory; and the file VANISH is removed when it is closed.

#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdlib>

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);

static bool fails() {
    static const char* const from = std::getenv("FAIL_FROM");
    static const char* const at = std::getenv("FAIL_AT");
    static long number = 0;
    ++number;
    if ((from != nullptr && number >= std::atol(from))
        || (at != nullptr && number == std::atol(at))) {
        errno = ENOMEM;
        return true;
    }
    return false;
}

void* malloc(std::size_t size) { return fails() ? nullptr : __libc_malloc(size); }

void* calloc(std::size_t count, std::size_t size) {
    return fails() ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* memory, std::size_t size) {
    return fails() ? nullptr : __libc_realloc(memory, size);
}

int close(int fd) {
    const char* const vanishing = std::getenv("VANISH");
    struct stat named = {};
    struct stat closed = {};
    if (vanishing != nullptr && stat(vanishing, &named) == 0 && fstat(fd, &closed) == 0
        && named.st_ino == closed.st_ino) {
        unlink(vanishing);
    }
    return static_cast<int>(syscall(SYS_close, fd));
}
}
