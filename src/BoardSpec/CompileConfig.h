#pragma once

#include <string>

namespace vemo::board {

/// One compile flow: what build scripts need to compile a kernel for the board. Texts are kept as
/// written in the file.
class CompileConfig {
public:
    /// Name of a flow that the file does not name.
    static constexpr const char* DEFAULT_CONFIG_NAME = "default";

    /// Whether `auto_migrate` was read. Like the next two, recorded from format 17.0 on only.
    bool has_automigrate() const { return automigrate_present; }

    /// Whether `generate` was read.
    bool has_generate() const { return generate_present; }

    /// Whether `synthesize` was read.
    bool has_synthesis() const { return synthesis_present; }

    std::string name{DEFAULT_CONFIG_NAME};    ///< Below format 17.0 always the default name.
    std::string project;                      ///< Name of the project.
    std::string revision;                     ///< Revision of the project.
    std::string lomb_file;                    ///< The system-integration file.
    bool generic_kernel = false;              ///< Whether the flow uses a generic kernel.
    bool automigrate_present = false;         ///< See has_automigrate().
    bool generate_present = false;            ///< See has_generate().
    bool synthesis_present = false;           ///< See has_synthesis().
    std::string generate_cmd;                 ///< Command that generates the system.
    bool generate_additional_args = false;    ///< Whether it takes additional arguments.
    std::string synthesize_cmd;               ///< Command that synthesizes the system.
    bool synthesize_additional_args = false;  ///< Whether it takes additional arguments.
    std::string automigrate_type;             ///< Platform type for auto-migration.
    std::string automigrate_include;          ///< Fixes to include; may be empty.
    std::string automigrate_exclude;          ///< Fixes to exclude; may be empty.
};

}  // namespace vemo::board
