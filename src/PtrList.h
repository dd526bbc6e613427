#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace vemo {

/// A list of pointers, none of them null, that takes no more than two pointers while it has at most
/// one entry: most interfaces have one port, and most memories one interface. Owns no object.
template <typename T>
class PtrList {
public:
    std::size_t size() const {
        return m_several != nullptr ? m_several->size() : std::size_t{m_only != nullptr};
    }
    bool empty() const { return size() == 0; }
    T* operator[](std::size_t i) const { return begin()[i]; }
    T* const* begin() const { return m_several != nullptr ? m_several->data() : &m_only; }
    T* const* end() const { return begin() + size(); }

    void push_back(T* entry) {
        if (empty()) {
            m_only = entry;
            return;
        }
        if (m_several == nullptr) {
            m_several = std::make_unique<std::vector<T*>>(1, m_only);
        }
        m_several->push_back(entry);
    }

    void clear() {
        m_only = nullptr;
        m_several.reset();
    }

private:
    T* m_only = nullptr;
    std::unique_ptr<std::vector<T*>> m_several;  // all entries, once there are two
};

}  // namespace vemo
