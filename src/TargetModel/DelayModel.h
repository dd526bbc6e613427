#pragma once

namespace vemo::tmodel {

/// Basic delays. Any value is valid.
struct DelayModel {
    /// Delay of an adaptive logic module (ALM), in picoseconds.
    unsigned alm_delay_ps = 0;

    /// Delay of routing, in picoseconds.
    unsigned routing_delay_ps = 0;
};

}  // namespace vemo::tmodel
