#pragma once

#include <string>
#include <vector>

#include "BoardSpec/BoardSpec.h"
#include "DeviceModel.h"
#include "TargetModel/TargetModel.h"

// The functions of the command-line driver. Answers and errors alike go to standard output.

/// Writes "Error: ", the message and a newline, and ends the process with exit status 1.
[[noreturn]] void error(std::string message);

/// Writes what `loader` has reported and ends the process through error(), which names `filename`.
template <typename Loader>
[[noreturn]] void error_loader(const Loader& loader, const char* filename);

// The loads end the process with the loader's texts when they fail. The names must not be null. The
// models live until the process ends.

vemo::board::BoardSpec* parse_boardspec(const char* bspec_xml);

/// Loads the device model file that the board file `bspec_xml` names `dm_xml`, and stores
/// its path. An error names the file as the board file does.
vemo::dmodel::DeviceModel* parse_devicemodel(const char* dm_xml, const char* bspec_xml,
                                             std::string& dm_resolved_path);

/// The same for the target model file that the device model file at `dm_resolved_path`, which must
/// not be empty, names `tm_xml`.
vemo::tmodel::TargetModel* parse_targetmodel(const char* tm_xml,
                                             const std::string& dm_resolved_path,
                                             std::string& tm_resolved_path);

/// Appends the non-empty pieces of `text` between `delimiter`s to `pieces`.
void split_string(const std::string& text, char delimiter, std::vector<std::string>& pieces);
