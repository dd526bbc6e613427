#pragma once

#include <string>
#include <vector>

#include "BoardLint/Finding.h"

namespace vemo::lint {

/// The findings as a SARIF 2.1.0 log with the metadata of all rules. Files below
/// `working_directory`, an absolute path, get URIs relative to it, others absolute ones. The text
/// is ASCII; invalid UTF-8 in messages becomes U+FFFD.
std::string sarif_output(const std::vector<Finding>& findings,
                         const std::string& working_directory);

}  // namespace vemo::lint
