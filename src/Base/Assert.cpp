#include "Base/Assert.h"

#include <cstdio>
#include <cstdlib>

namespace vemo {

void assertion_failed(const char* condition, const char* file, int line) {
    std::fprintf(stderr, "%s:%d: assertion failed: %s\n", file, line, condition);
    std::abort();
}

}  // namespace vemo
