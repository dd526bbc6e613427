#pragma once

#include <string>
#include <vector>

namespace vemo::fuzz {

/// What an assertion throws here when input may break its condition, in place of the abort that the
/// programs end with. Any other assertion aborts as ever.
struct InvariantBroken {};

/// Performs `action` up to its end, or until it breaks an expected invariant.
template <typename Action>
void until_invariant(Action action) {
    try {
        action();
    } catch (const InvariantBroken&) {
        // `action` ends here, as the run of a program would
    }
}

/// The expected conditions that nothing has broken yet, each with its reason.
std::vector<std::string> unbroken_invariants();

}  // namespace vemo::fuzz
