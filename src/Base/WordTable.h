#pragma once

#include <cstddef>
#include <string_view>

namespace vemo {

/// Index of `word` in `words`, or N when it is none of them. The comparison is exact.
template <std::size_t N>
constexpr std::size_t index_of_word(const std::string_view (&words)[N], std::string_view word) {
    for (std::size_t i = 0; i < N; ++i) {
        if (word == words[i]) {
            return i;
        }
    }
    return N;
}

}  // namespace vemo
