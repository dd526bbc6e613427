#pragma once

#include <string>

namespace vemo::board {

/// The figures and signals of an interface that most interfaces leave at their defaults.
struct InterfaceDetails {
    unsigned latency = 240;
    unsigned latency_type = 0;  // 0 average, 1 fixed
    unsigned waitrequest = 0;
    unsigned waitrequest_allowance = 0;
    unsigned addpipe = 0;
    unsigned misc = 0;
    bool bsp_vnmm_write_ack = false;
    float sampling_rate = 0.0f;  // above 0 once set; 0 stands for none
    std::string enable;          // name of the enable signal
    std::string clock;           // name of the clock signal
};

}  // namespace vemo::board
