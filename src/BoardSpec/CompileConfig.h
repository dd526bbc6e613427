#pragma once

#include <string>

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

    std::string name{DEFAULT_CONFIG_NAME};
    std::string project;
    std::string revision;
    std::string lomb_file;  // the system-integration file
    bool generic_kernel = false;
    bool automigrate_present = false;
    bool generate_present = false;
    bool synthesis_present = false;
    std::string generate_cmd;
    bool generate_additional_args = false;
    std::string synthesize_cmd;
    bool synthesize_additional_args = false;
    std::string automigrate_type;     // platform type
    std::string automigrate_include;  // fixes, as written
    std::string automigrate_exclude;
};

}  // namespace vemo::board
