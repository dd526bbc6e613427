#pragma once

#include <string>
#include <vector>

#include "BoardLint/Finding.h"

/// A board package for the tests of the checker: the example teasel, which is right, and changes.
/// The working directory has a model.xml of its own.
class LintPackage {
public:
    LintPackage();

    /// Replaces an element and all siblings of its name by an example, in the first file that has
    /// such an element, which is empty only if there is one. "..." in the example stands for the
    /// content of the former element.
    LintPackage& replace(const std::string& example);

    /// Replaces the first `from`, which must be there, in the first file that has it.
    LintPackage& change(const std::string& from, const std::string& to);

    /// What the checker finds: the errors, then the warnings.
    std::vector<vemo::lint::Finding> findings() const;

    /// The ids of the errors, each followed by a blank.
    std::string errors() const;

    /// The errors as above, and the warnings, each as "id line:column+length message" in a line.
    std::string warnings() const;

    std::string files[3];  ///< Texts of board, device model and target model.
};
