#pragma once

#include <cstdarg>
#include <cstddef>
#include <forward_list>
#include <string>
#include <string_view>

namespace vemo::xml {

/// Name of an element. It is not copied: the text must live as long as the name.
class ElementName : public std::string_view {
public:
    ElementName(const char* name)  // NOLINT(google-explicit-constructor)
        : std::string_view(name) {}
};

/// An element is left with the very text that it was entered with, which need not be read again.
inline bool operator==(ElementName a, const char* b) {
    return a.data() == b || std::string_view(a) == b;
}

/// The open elements of a walk, and how often each path of elements has been entered.
class ElementStack {
public:
    ElementStack() = default;
    ElementStack(const ElementStack&) = delete;
    ElementStack& operator=(const ElementStack&) = delete;

    /// Enters an element: opens it and counts its path.
    void push(ElementName name) {
        Path* path = m_current->find(name);
        m_current = path == nullptr ? add_path(name) : path;
        m_current->name = name;
        ++m_current->count;
        ++m_size;
    }

    /// Leaves the innermost element; there must be one.
    void pop() {
        m_current = m_current->parent;
        --m_size;
    }

    /// Number of open elements.
    std::size_t size() const { return m_size; }

    /// Name of the innermost open element; empty when none is open.
    ElementName back() const { return m_current->name; }

    /// Whether the outermost `n` open elements, of which there must be that many, have the given
    /// names (each a const char*, not null), outermost first.
    bool begins_with(unsigned n, std::va_list names) const;

    /// The names of the open elements, outermost first, joined with "/".
    std::string key() const;

    /// How often the path of the open elements has been entered.
    unsigned& count() { return m_current->count; }

    /// How often the path has been entered whose key is the given names joined with "/".
    unsigned count_of(unsigned n, std::va_list names) const;

private:
    /// A path of names, and how often it has been entered. A schema has few, and an element outside
    /// it ends the walk, so those below a path are a list. The newest is the first.
    struct Path {
        Path* parent = nullptr;
        ElementName name = "";  // as it was written last
        unsigned count = 0;
        Path* first_child = nullptr;
        Path* next_sibling = nullptr;

        /// The path one `child_name` longer; null when it has not been entered.
        Path* find(std::string_view child_name) const {
            Path* child = first_child;
            while (child != nullptr && std::string_view(child->name) != child_name) {
                child = child->next_sibling;
            }
            return child;
        }
    };

    Path* add_path(ElementName name);

    /// The path that is `path` with the names of `key` appended; null when it has not been entered.
    static const Path* find_key(const Path* path, std::string_view key);

    /// Name of an open element by its depth, 0 being the outermost.
    ElementName name_at(std::size_t depth) const;

    Path m_first_paths[7];  // the empty path, and as many as most stacks see
    std::size_t m_num_first_paths = 1;
    std::forward_list<Path> m_more_paths;
    Path* m_current = &m_first_paths[0];  // the path of the open elements
    std::size_t m_size = 0;
};

}  // namespace vemo::xml
