#pragma once

#include <memory>

namespace vemo::board {

class BoardSpec;
class Interface;

/// Deleter for std::unique_ptr: destroys an interface, or a whole board, along with its ports. (An
/// interface alone does not destroy its ports.) Nobody else may hold one of them.
struct DestroyWithPorts {
    void operator()(const Interface* intf) const;
    void operator()(const BoardSpec* spec) const;
};

/// An interface whose ports are owned as well.
using InterfacePtr = std::unique_ptr<Interface, DestroyWithPorts>;

}  // namespace vemo::board
