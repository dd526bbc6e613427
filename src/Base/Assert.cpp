#include "Base/Assert.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace vemo {
namespace {

thread_local InvariantHandler invariant_handler = nullptr;

}  // namespace

void assertion_failed(const char* condition, const char* file, int line) {
    if (invariant_handler != nullptr) {
        invariant_handler(condition, file, line);
    }
    std::fprintf(stderr, "%s:%d: assertion failed: %s\n", file, line, condition);
    std::abort();
}

InvariantHandler set_invariant_handler(InvariantHandler handler) {
    return std::exchange(invariant_handler, handler);
}

}  // namespace vemo
