#pragma once

#include <cstddef>  // NULL

/// Aborts the run unless `expr` holds, in every build type. For broken invariants only: what a
/// file can get wrong is reported as a diagnostic instead. An InvariantTrap turns the abort into an
/// exception.
///
/// The condition is printed after macro expansion, so that a check against NULL
/// prints `intf != __null`. People search for these texts; spell a condition as it shall print.
#define VEMO_ASSERT(expr) VEMO_ASSERT_EXPANDED(expr)
#define VEMO_ASSERT_EXPANDED(expr) \
    ((expr) ? static_cast<void>(0) : ::vemo::assertion_failed(#expr, __FILE__, __LINE__))

namespace vemo {

/// Calls the thread's invariant handler, if there is one. Otherwise, or if the handler returns,
/// writes the failed condition and its place to standard error and aborts.
[[noreturn]] void assertion_failed(const char* condition, const char* file, int line);

/// The arguments are those of assertion_failed.
using InvariantHandler = void (*)(const char* condition, const char* file, int line);

/// Sets the handler of the calling thread, null for none, and returns the former one. A thread
/// starts without one.
InvariantHandler set_invariant_handler(InvariantHandler handler);

}  // namespace vemo
