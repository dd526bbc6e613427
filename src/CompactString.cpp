#include "CompactString.h"

#include <algorithm>
#include <utility>

namespace vemo {

CompactString& CompactString::operator=(const CompactString& other) {
    CompactString copy(other);
    swap(copy);
    return *this;
}

CompactString& CompactString::operator=(CompactString&& other) noexcept {
    swap(other);
    return *this;
}

CompactString& CompactString::operator=(std::string_view text) {
    if (empty()) {  // the usual case: a name is read into a new object
        assign(text);
    } else {
        CompactString copy(text);
        swap(copy);
    }
    return *this;
}

char* CompactString::heap_text() const {
    char* text = nullptr;
    std::memcpy(&text, m_bytes, sizeof text);
    return text;
}

void CompactString::assign(std::string_view text) {
    if (text.size() < NUM_BYTES) {
        std::copy(text.begin(), text.end(), m_bytes);
        return;
    }
    char* copy = new char[text.size() + 1];
    *std::copy(text.begin(), text.end(), copy) = '\0';
    std::memcpy(m_bytes, &copy, sizeof copy);
    m_bytes[LAST_BYTE] = ON_HEAP;
}

void CompactString::release() {
    if (is_on_heap()) {
        delete[] heap_text();
    }
}

void CompactString::swap(CompactString& other) noexcept { std::swap(m_bytes, other.m_bytes); }

}  // namespace vemo
