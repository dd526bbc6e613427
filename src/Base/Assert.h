#pragma once

#include <cstddef>  // NULL

/// Aborts the run unless `expr` holds, in every build type. For broken invariants only: what a
/// file can get wrong is reported as a diagnostic instead.
///
/// The condition is printed as it stands after macro expansion, so that a check against NULL
/// prints `intf != __null`. People search for these texts; spell a condition as it shall print.
#define VEMO_ASSERT(expr) VEMO_ASSERT_EXPANDED(expr)
#define VEMO_ASSERT_EXPANDED(expr) \
    ((expr) ? static_cast<void>(0) : ::vemo::assertion_failed(#expr, __FILE__, __LINE__))

namespace vemo {

/// Writes the failed condition and its place to standard error and aborts.
[[noreturn]] void assertion_failed(const char* condition, const char* file, int line);

}  // namespace vemo
