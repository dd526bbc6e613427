#include "BoardSpec/InterfaceList.h"

#include <utility>

#include "Base/Assert.h"
#include "Base/Ownership.h"

namespace vemo::board {

InterfaceList::~InterfaceList() { clean_ptr_container(m_interfaces); }

void InterfaceList::add_interface(Interface* intf) {
    VEMO_ASSERT(intf != NULL);
    append_owned(m_interfaces, std::unique_ptr<Interface>(intf));
}

void InterfaceList::add_interface(InterfacePtr intf) {
    VEMO_ASSERT(intf != NULL);
    append_owned(m_interfaces, std::move(intf));
}

const Interface& InterfaceList::get_intf(unsigned i) const {
    VEMO_ASSERT(i < m_interfaces.size());
    VEMO_ASSERT(m_interfaces[i] != NULL);
    return *m_interfaces[i];
}

}  // namespace vemo::board
