#pragma once

#include <exception>

#include "Base/Assert.h"

namespace vemo {

/// An assertion that failed under an InvariantTrap. The texts are constants of the program.
struct BrokenInvariant : std::exception {
    BrokenInvariant(const char* broken_condition, const char* source_file, int source_line)
        : condition(broken_condition), file(source_file), line(source_line) {}

    /// The condition.
    const char* what() const noexcept override { return condition; }

    const char* condition;  // as the abort would print it
    const char* file;       // of the assertion
    int line;
};

/// While one lives, a failed assertion on its thread throws BrokenInvariant in place of the abort.
/// Other threads abort as ever. Traps may be nested.
///
/// After the exception, objects that took part in the failed operation are good for destruction
/// only.
class InvariantTrap {
public:
    InvariantTrap();
    ~InvariantTrap() { set_invariant_handler(m_former); }
    InvariantTrap(const InvariantTrap&) = delete;
    InvariantTrap& operator=(const InvariantTrap&) = delete;

private:
    InvariantHandler m_former;
};

}  // namespace vemo
