#pragma once

#include <string>
#include <string_view>

#include "Base/ArrayView.h"
#include "BoardLint/Finding.h"

namespace vemo::lint {

/// The documentation of an id.
struct Rule {
    const char* id;
    Severity severity;
    const char* summary;      ///< One sentence without a full stop.
    const char* explanation;  ///< Sentences: the rule, its reason, and what to do.

    // Examples: an element of one of the three files, with all siblings of its name. "..."
    // replaces content that does not matter.

    const char* wrong;
    const char* right;
};

/// All rules: those of errors, then those of warnings.
ArrayView<Rule> rules();

/// The rule of that id, or null.
const Rule* find_rule(std::string_view id);

/// The output of `--explain` for a rule.
std::string explain(const Rule& rule);

/// All ids, each in a line with severity and summary: tab-separated, for completions and scripts.
std::string list_rules();

}  // namespace vemo::lint
