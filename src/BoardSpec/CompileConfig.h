#pragma once

#include "CompactString.h"

namespace vemo::board {

/// One compile flow: what build scripts need to compile a kernel for the board.
class CompileConfig {
public:
    /// Name of a flow that the file does not name.
    static constexpr const char* DEFAULT_CONFIG_NAME = "default";

    /// Whether the element of the same name has been read; only files of version 17.0 or later are
    /// asked.
    bool has_automigrate() const { return automigrate_present; }
    bool has_generate() const { return generate_present; }
    bool has_synthesis() const { return synthesis_present; }

    CompactString name{DEFAULT_CONFIG_NAME};
    CompactString project;
    CompactString revision;
    CompactString lomb_file;  // the system-integration file
    bool generic_kernel = false;
    bool automigrate_present = false;
    bool generate_present = false;
    bool synthesis_present = false;
    CompactString generate_cmd;
    bool generate_additional_args = false;
    CompactString synthesize_cmd;
    bool synthesize_additional_args = false;
    CompactString automigrate_type;     // platform type
    CompactString automigrate_include;  // fixes, as written
    CompactString automigrate_exclude;
};

}  // namespace vemo::board
