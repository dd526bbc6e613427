#include "BoardLint/NearName.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace vemo::lint {
namespace {

// Names of the formats are shorter than this; nothing longer is a slip of one.
constexpr std::size_t MAX_LENGTH = 64;

char to_lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// The number of letters to be added, left out, replaced or swapped with their neighbor; between
/// those that are swapped, others may have been added or left out.
std::size_t count_slips(std::string_view a, std::string_view b) {
    const std::size_t width = b.size() + 1;
    std::vector<std::size_t> slips((a.size() + 1) * width);  // between beginnings of a and b
    std::array<std::size_t, 256> last_row = {};              // of each letter in a
    for (std::size_t i = 0; i <= a.size(); ++i) {
        std::size_t last_column = 0;  // with the letter of the row
        for (std::size_t j = 0; j <= b.size(); ++j) {
            std::size_t& count = slips[i * width + j];
            if (i == 0 || j == 0) {
                count = i + j;
                continue;
            }
            const char letter = to_lower(b[j - 1]);
            const bool is_equal = to_lower(a[i - 1]) == letter;
            count = std::min({slips[(i - 1) * width + j] + 1, slips[i * width + j - 1] + 1,
                              slips[(i - 1) * width + j - 1] + (is_equal ? 0u : 1u)});
            const std::size_t row = last_row[static_cast<unsigned char>(letter)];
            if (row > 0 && last_column > 0) {
                const std::size_t between = (i - row - 1) + (j - last_column - 1);
                count = std::min(count, slips[(row - 1) * width + last_column - 1] + between + 1);
            }
            if (is_equal) {
                last_column = j;
            }
        }
        if (i > 0) {
            last_row[static_cast<unsigned char>(to_lower(a[i - 1]))] = i;
        }
    }
    return slips.back();
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

bool is_very_near(std::string_view written, const std::string& name) {
    return is_near(written, name) && 3 * count_slips(written, name) <= name.size();
}

}  // namespace vemo::lint
