#pragma once

namespace vemo {

/// Makes `slot` own `object`; what it owned before is destroyed.
template <typename T>
void replace_owned(T*& slot, T* object) {
    if (slot != object) {
        delete slot;
        slot = object;
    }
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
