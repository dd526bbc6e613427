#pragma once

#include "CompactString.h"

namespace vemo::board {

/// The figures and signals of an interface that most interfaces leave at their defaults.
struct InterfaceDetails {
    unsigned waitrequest = 0;
    unsigned waitrequest_allowance = 0;
    unsigned addpipe = 0;
    unsigned misc = 0;
    bool bsp_vnmm_write_ack = false;
    float sampling_rate = 0.0f;  // above 0 once set; 0 stands for none
    CompactString enable;        // name of the enable signal
    CompactString clock;         // name of the clock signal
};

}  // namespace vemo::board
