#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

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

/// The words as texts.
template <std::size_t N>
std::vector<std::string> texts_of_words(const std::string_view (&words)[N]) {
    return {words, words + N};
}

}  // namespace vemo
