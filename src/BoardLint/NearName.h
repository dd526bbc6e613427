#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vemo::lint {

/// The `names` of which `written` may be a misspelling, the likeliest first. Case matters little.
std::vector<std::string> near_names(std::string_view written,
                                    const std::vector<std::string>& names);

/// Whether `written` may be a misspelling of `name`.
bool is_near(std::string_view written, const std::string& name);

/// The same with at most one slip in three letters.
bool is_very_near(std::string_view written, const std::string& name);

}  // namespace vemo::lint
