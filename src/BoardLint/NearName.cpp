#include "BoardLint/NearName.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vemo::lint {
namespace {

// Names of the formats are shorter than this; nothing longer is a slip of one.
constexpr std::size_t MAX_LENGTH = 64;

char to_lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// The number of letters to be added, left out, replaced or swapped with their neighbor.
std::size_t count_slips(std::string_view a, std::string_view b) {
    std::vector<std::size_t> before_last(b.size() + 1);
    std::vector<std::size_t> last(b.size() + 1);
    std::vector<std::size_t> current(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) {
        current[j] = j;
    }
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::swap(before_last, last);
        std::swap(last, current);
        current[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const bool is_equal = to_lower(a[i - 1]) == to_lower(b[j - 1]);
            current[j] =
                std::min({last[j] + 1, current[j - 1] + 1, last[j - 1] + (is_equal ? 0u : 1u)});
            if (i > 1 && j > 1 && to_lower(a[i - 1]) == to_lower(b[j - 2])
                && to_lower(a[i - 2]) == to_lower(b[j - 1])) {
                current[j] = std::min(current[j], before_last[j - 2] + 1);
            }
        }
    }
    return current[b.size()];
}

/// How many slips are believable in a name.
std::size_t most_slips(std::string_view name) {
    if (name.size() < 3) {
        return 1;
    }
    return name.size() < 8 ? 2 : 3;
}

/// Whether `slips` slips may turn `name` into `written`: some of the name must be left.
bool are_believable(std::size_t slips, std::string_view written, std::string_view name) {
    return slips <= most_slips(name) && slips < std::max(written.size(), name.size())
           && slips < name.size();
}

}  // namespace

std::vector<std::string> near_names(std::string_view written,
                                    const std::vector<std::string>& names) {
    std::vector<std::pair<std::size_t, std::string>> near;
    if (written.size() <= MAX_LENGTH) {
        for (const std::string& name : names) {
            const std::size_t slips = count_slips(written, name);
            if (name != written && are_believable(slips, written, name)) {
                near.emplace_back(slips, name);
            }
        }
    }
    std::stable_sort(near.begin(), near.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::string> result;
    result.reserve(near.size());
    for (auto& entry : near) {
        result.push_back(std::move(entry.second));
    }
    return result;
}

bool is_near(std::string_view written, const std::string& name) {
    return !near_names(written, {name}).empty();
}

}  // namespace vemo::lint
