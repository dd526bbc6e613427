#pragma once

#include <string>
#include <vector>

namespace vemo::fuzz {

/// What an assertion throws here when input may break its condition. Any other aborts as ever.
struct InvariantBroken {
    const char* condition;
};

/// Makes assertions of this thread throw InvariantBroken.
void trap_expected_invariants();

/// Performs `action` up to its end, or until it breaks an expected invariant, as the run of a
/// program would end there. Returns the condition, or "".
template <typename Action>
std::string until_invariant(Action action) {
    trap_expected_invariants();
    try {
        action();
        return "";
    } catch (const InvariantBroken& broken) {
        return broken.condition;
    }
}

/// The expected conditions that nothing has broken yet, each with its reason. None for a harness
/// that traps none.
std::vector<std::string> unbroken_invariants();

}  // namespace vemo::fuzz
