#include "ElementStack.h"

#include <algorithm>

#include "Assert.h"

namespace vemo::xml {
namespace {

constexpr std::size_t EMPTY_PATH = 0;
constexpr std::size_t NO_PATH = static_cast<std::size_t>(-1);
constexpr std::size_t USUAL_NUM_PATHS = 9;

}  // namespace

ElementStack::ElementStack() {
    m_paths.reserve(USUAL_NUM_PATHS);
    m_paths.push_back({NO_PATH, "", 0});
}

void ElementStack::push(std::string_view name) {
    const std::size_t path = find(m_current, name);
    if (path == m_paths.size()) {
        m_paths.push_back({m_current, name, 0});
    }
    m_current = path;
    ++m_paths[path].count;
    ++m_size;
}

void ElementStack::pop() {
    m_current = m_paths[m_current].parent;
    --m_size;
}

bool ElementStack::begins_with(unsigned n, std::va_list names) const {
    for (unsigned depth = 0; depth < n; ++depth) {
        const char* elem_name = va_arg(names, const char*);
        VEMO_ASSERT(elem_name != 0);
        if (name_at(depth) != elem_name) {
            return false;
        }
    }
    return true;
}

std::string ElementStack::key() const {
    std::string key;
    for (std::size_t depth = 0; depth < m_size; ++depth) {
        if (depth > 0) {
            key += '/';
        }
        key += name_at(depth);
    }
    return key;
}

unsigned ElementStack::count_of(unsigned n, std::va_list names) const {
    std::size_t path = EMPTY_PATH;
    for (unsigned i = 0; i < n; ++i) {
        path = find(path, va_arg(names, const char*));
        if (path == m_paths.size()) {
            return 0;
        }
    }
    return m_paths[path].count;
}

std::size_t ElementStack::find(std::size_t parent, std::string_view name) const {
    // A schema has few paths, and an element outside it ends the walk. From the last one, since an
    // element is most often followed by another one of its kind.
    const auto path = std::find_if(m_paths.rbegin(), m_paths.rend(), [&](const Path& candidate) {
        return candidate.parent == parent && candidate.name == name;
    });
    return path == m_paths.rend() ? m_paths.size()
                                  : static_cast<std::size_t>(m_paths.rend() - path) - 1;
}

std::string_view ElementStack::name_at(std::size_t depth) const {
    std::size_t path = m_current;
    for (std::size_t above = m_size - 1; above > depth; --above) {
        path = m_paths[path].parent;
    }
    return m_paths[path].name;
}

}  // namespace vemo::xml
