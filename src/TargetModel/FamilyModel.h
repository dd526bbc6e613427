#pragma once

#include <string>

namespace vemo::tmodel {

/// Facts about the family's logic. Any value is valid, 0 and the empty text included.
struct FamilyModel {
    unsigned bits_per_alm = 0;            // bits of an adaptive logic module (ALM)
    unsigned lut_inputs = 0;              // inputs of a look-up table
    unsigned mux_inputs = 0;              // inputs of a multiplexer
    unsigned preferred_dsp_dot_size = 0;  // preferred length of a dot product in DSP blocks
    std::string block_ram_name;           // what the family calls its block RAMs
    std::string alm_rom_name;             // what the family calls a ROM made of ALMs
};

}  // namespace vemo::tmodel
