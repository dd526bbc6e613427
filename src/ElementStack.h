#pragma once

#include <cstdarg>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vemo::xml {

/// The open elements of a walk, and how often each path of elements has been entered. Names are
/// not copied: they must live as long as the stack.
class ElementStack {
public:
    ElementStack();

    /// Enters an element: opens it and counts its path.
    void push(std::string_view name);

    /// Leaves the innermost element; there must be one.
    void pop();

    /// Number of open elements.
    std::size_t size() const { return m_size; }

    /// Name of the innermost open element; empty when none is open.
    std::string_view back() const { return m_paths[m_current].name; }

    /// Whether the outermost `n` open elements, of which there must be that many, have the given
    /// names (each a const char*, not null), outermost first.
    bool begins_with(unsigned n, std::va_list names) const;

    /// The names of the open elements, outermost first, joined with "/".
    std::string key() const;

    /// How often the path of the open elements has been entered.
    unsigned& count() { return m_paths[m_current].count; }

    /// How often the path of the given names has been entered.
    unsigned count_of(unsigned n, std::va_list names) const;

private:
    /// A path: the one above it, the last name, and how often it has been entered.
    struct Path {
        std::size_t parent;
        std::string_view name;
        unsigned count;
    };

    /// Index of the path `parent`/`name`, or the number of paths when it has not been entered.
    std::size_t find(std::size_t parent, std::string_view name) const;

    /// Name of an open element by its depth, 0 being the outermost.
    std::string_view name_at(std::size_t depth) const;

    std::vector<Path> m_paths;  // begins with the empty path
    std::size_t m_current = 0;  // index of the path of the open elements
    std::size_t m_size = 0;
};

}  // namespace vemo::xml
