#pragma once

#include <cstddef>
#include <cstring>
#include <ostream>
#include <string_view>

namespace vemo {

/// A text in 16 bytes, half of what std::string takes: up to 15 characters stand in place, a longer
/// text on the heap. For the names of what a board may have a hundred thousand of. Holds no NUL.
class CompactString {
public:
    CompactString() = default;
    CompactString(std::string_view text) { assign(text); }  // NOLINT(google-explicit-constructor)
    CompactString(const CompactString& other) { assign(other); }
    CompactString(CompactString&& other) noexcept { swap(other); }
    CompactString& operator=(const CompactString& other);
    CompactString& operator=(CompactString&& other) noexcept;
    CompactString& operator=(std::string_view text);
    CompactString& operator=(const char* text) { return *this = std::string_view(text); }
    ~CompactString() { release(); }

    const char* c_str() const { return is_on_heap() ? heap_text() : m_bytes; }
    std::size_t size() const { return std::strlen(c_str()); }
    bool empty() const { return c_str()[0] == '\0'; }
    operator std::string_view() const { return c_str(); }  // NOLINT(google-explicit-constructor)

private:
    static constexpr std::size_t NUM_BYTES = 16;
    static constexpr std::size_t LAST_BYTE = NUM_BYTES - 1;
    static constexpr char ON_HEAP = 1;  // in place, the last byte is a NUL

    bool is_on_heap() const { return m_bytes[LAST_BYTE] == ON_HEAP; }
    char* heap_text() const;
    void assign(std::string_view text);  // onto an empty string
    void release();
    void swap(CompactString& other) noexcept;

    alignas(char*) char m_bytes[NUM_BYTES] =
        {};  // the text; or a pointer to it, and ON_HEAP as last byte
};

inline bool operator==(const CompactString& a, std::string_view b) {
    return std::string_view(a) == b;
}
inline bool operator==(std::string_view a, const CompactString& b) { return b == a; }
inline bool operator==(const CompactString& a, const CompactString& b) {
    return a == std::string_view(b);
}
inline std::ostream& operator<<(std::ostream& os, const CompactString& text) {
    return os << text.c_str();
}

}  // namespace vemo
