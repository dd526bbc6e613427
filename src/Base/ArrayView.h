#pragma once

#include <cstddef>

namespace vemo {

/// The entries of an array that lives elsewhere, which must outlive the view.
template <typename T>
class ArrayView {
public:
    constexpr ArrayView() = default;
    template <std::size_t N>
    constexpr ArrayView(const T (&array)[N])  // NOLINT(google-explicit-constructor)
        : m_begin(array), m_size(N) {}

    constexpr ArrayView(const T* begin, std::size_t size) : m_begin(begin), m_size(size) {}

    constexpr const T* begin() const { return m_begin; }
    constexpr const T* end() const { return m_begin + m_size; }
    constexpr std::size_t size() const { return m_size; }

private:
    const T* m_begin = nullptr;
    std::size_t m_size = 0;
};

}  // namespace vemo
