#pragma once

#include <string>

#include "BaseXmlLoader.h"
#include "DeviceModel.h"

namespace vemo::dmodel {

/// Loads device model files.
class DeviceModelXmlLoader : public vemo::xml::BaseXmlLoader {
public:
    /// With `debug`, each document is echoed to standard error and its walk traced there.
    explicit DeviceModelXmlLoader(bool debug) : m_echo(echo_if(debug)) {}

    // The loads return a model owned by the caller, or null when an error was reported.

    DeviceModel* load_file(const char* filename);
    DeviceModel* load_xml(const char* xml);

    /// Takes ownership of `doc`; null stands for a parse that failed.
    DeviceModel* load_target_model(tinyxml2::XMLDocument* doc);

    /// Finds the device model file that a board file names `dm_path`: an absolute path as it is;
    /// else the first that exists of the path itself (below the working directory), the path
    /// beside the board file, and the path below share/models/dm of VEMOSDKROOT. Empty when none
    /// exists.
    std::string resolve_device_model_file(const std::string& dm_path,
                                          const std::string& board_spec_path) const;

private:
    Echo m_echo;
};

}  // namespace vemo::dmodel
