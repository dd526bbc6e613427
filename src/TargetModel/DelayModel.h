#pragma once

namespace vemo::tmodel {

/// Basic delays, in picoseconds. Any value is valid.
struct DelayModel {
    unsigned alm_delay_ps = 0;      // of an adaptive logic module (ALM)
    unsigned routing_delay_ps = 0;  // of routing
};

}  // namespace vemo::tmodel
