#pragma once

#include <string>

namespace vemo::tmodel {

/// Facts about the family's logic. Any value is valid, 0 and the empty text included.
struct FamilyModel {
    /// Bits of an adaptive logic module (ALM).
    unsigned bits_per_alm = 0;

    /// Number of inputs of a look-up table (LUT).
    unsigned lut_inputs = 0;

    /// Number of inputs of a multiplexer.
    unsigned mux_inputs = 0;

    /// Preferred length of a dot product in DSP blocks, as the file gives it.
    unsigned preferred_dsp_dot_size = 0;

    /// What the family calls its block RAMs.
    std::string block_ram_name;

    /// What the family calls a ROM made of ALMs.
    std::string alm_rom_name;
};

}  // namespace vemo::tmodel
