#pragma once

#include <memory>

namespace vemo::board {

class BoardSpec;
class Interface;

/// Deleter for std::unique_ptr that destroys the ports as well, which an interface alone does not.
/// The ports must not be used afterwards.
struct DestroyWithPorts {
    /// Destroys `intf`, which must not be null, and its ports.
    void operator()(const Interface* intf) const;

    /// Destroys `spec`, which must not be null, and the ports of all its interfaces.
    void operator()(const BoardSpec* spec) const;
};

/// An interface whose ports are owned as well.
using InterfacePtr = std::unique_ptr<Interface, DestroyWithPorts>;

}  // namespace vemo::board
