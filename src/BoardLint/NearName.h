#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vemo::lint {

/// Those of `names` that `written` may be a slip of, the likeliest first. Case counts little.
std::vector<std::string> near_names(std::string_view written,
                                    const std::vector<std::string>& names);

/// Whether `written` may be a slip of `name`.
bool is_near(std::string_view written, const std::string& name);

/// The same for one slip in three letters at most.
bool is_very_near(std::string_view written, const std::string& name);

}  // namespace vemo::lint
