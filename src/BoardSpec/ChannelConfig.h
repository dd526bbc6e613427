#pragma once

#include "BoardSpec/InterfaceList.h"

namespace vemo::board {

/// The board's streaming channels: interfaces of the two stream types.
class ChannelConfig : public InterfaceList {};

}  // namespace vemo::board
