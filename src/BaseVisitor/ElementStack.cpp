#include "BaseVisitor/ElementStack.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "Base/Assert.h"

namespace vemo::xml {
namespace {

constexpr char SEPARATOR = '/';  // between the names of a key

}  // namespace

ElementStack::Path* ElementStack::add_path(ElementName name) {
    const bool has_place = m_num_first_paths < std::size(m_first_paths);
    Path& path = has_place ? m_first_paths[m_num_first_paths++] : m_more_paths.emplace_front();
    path.parent = m_current;
    path.name = name;
    path.next_sibling = m_current->first_child;
    m_current->first_child = &path;
    return &path;
}

bool ElementStack::begins_with(unsigned n, std::va_list names) const {
    for (unsigned depth = 0; depth < n; ++depth) {
        const char* elem_name = va_arg(names, const char*);
        VEMO_ASSERT(elem_name != 0);
        if (std::strcmp(name_at(depth).data(), elem_name) != 0) {
            return false;
        }
    }
    return true;
}

std::string ElementStack::key() const {
    std::string key;
    for (std::size_t depth = 0; depth < m_size; ++depth) {
        if (depth > 0) {
            key += SEPARATOR;
        }
        key += name_at(depth);
    }
    return key;
}

unsigned ElementStack::count_of(unsigned n, std::va_list names) const {
    const Path* path = &m_first_paths[0];
    for (unsigned i = 0; i < n && path != nullptr; ++i) {
        const std::string_view name = va_arg(names, const char*);
        if (n > 1 || !name.empty()) {  // one empty name is the key of the empty path
            path = find_key(path, name);
        }
    }
    return path == nullptr ? 0 : path->count;
}

const ElementStack::Path* ElementStack::find_key(const Path* path, std::string_view key) {
    for (std::size_t start = 0; start <= key.size() && path != nullptr;) {
        const std::size_t end = std::min(key.find(SEPARATOR, start), key.size());
        path = path->find(key.substr(start, end - start));
        start = end + 1;
    }
    return path;
}

ElementName ElementStack::name_at(std::size_t depth) const {
    const Path* path = m_current;
    for (std::size_t above = m_size - 1; above > depth; --above) {
        path = path->parent;
    }
    return path->name;
}

}  // namespace vemo::xml
