#pragma once

#include <memory>
#include <utility>

namespace vemo {

/// Makes `slot` own `object`; what it owned before is destroyed.
template <typename T>
void replace_owned(T*& slot, T* object) {
    if (slot != object) {
        delete slot;
        slot = object;
    }
}

/// Inserts `object` into `list`, which owns it from then on. If there is no memory for that, throws
/// std::bad_alloc and destroys `object`; the list stays as it was.
template <typename List, typename T, typename Deleter>
void insert_owned(List& list, typename List::const_iterator position,
                  std::unique_ptr<T, Deleter> object) {
    list.insert(position, object.get());
    (void)object.release();
}

/// The same at the end.
template <typename List, typename T, typename Deleter>
void append_owned(List& list, std::unique_ptr<T, Deleter> object) {
    insert_owned(list, list.end(), std::move(object));
}

/// Destroys every object of `objects` (null entries are skipped) and empties the list.
template <typename PtrContainer>
void clean_ptr_container(PtrContainer& objects) {
    for (auto* object : objects) {
        delete object;
    }
    objects.clear();
}

}  // namespace vemo
