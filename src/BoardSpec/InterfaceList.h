#pragma once

#include <vector>

#include "BoardSpec/DestroyWithPorts.h"
#include "BoardSpec/Interface.h"

namespace vemo::board {

/// Owner of interfaces in the order added: what a global memory, the kernel interfaces and the
/// channels have in common.
class InterfaceList {
public:
    InterfaceList(const InterfaceList&) = delete;
    InterfaceList& operator=(const InterfaceList&) = delete;

    /// Appends `intf`, which must not be null, and takes ownership of it.
    void add_interface(Interface* intf);

    /// The same. If memory runs out, destroys the ports as well.
    void add_interface(InterfacePtr intf);

    /// Interface number `i`, counted from 0; it must exist.
    const Interface& get_intf(unsigned i) const;

    /// Number of interfaces.
    unsigned get_num_intfs() const { return static_cast<unsigned>(m_interfaces.size()); }

    /// All interfaces, none of them null. Owned by this object.
    const std::vector<Interface*>& get_interfaces() const { return m_interfaces; }

protected:
    InterfaceList() = default;
    ~InterfaceList();  // destroys the interfaces

    std::vector<Interface*> m_interfaces;  // owned, in the order added
};

}  // namespace vemo::board
