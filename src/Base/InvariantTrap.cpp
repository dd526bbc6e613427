#include "Base/InvariantTrap.h"

namespace vemo {
namespace {

[[noreturn]] void throw_broken_invariant(const char* condition, const char* file, int line) {
    throw BrokenInvariant(condition, file, line);
}

}  // namespace

InvariantTrap::InvariantTrap() : m_former(set_invariant_handler(throw_broken_invariant)) {}

}  // namespace vemo
