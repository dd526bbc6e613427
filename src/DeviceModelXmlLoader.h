#pragma once

#include <string>

#include "Base/TriedPaths.h"
#include "BaseXmlLoader.h"
#include "DeviceModel.h"

namespace vemo::dmodel {

/// Loads device model files.
class DeviceModelXmlLoader : public vemo::xml::BaseXmlLoader {
public:
    explicit DeviceModelXmlLoader(vemo::xml::Debug debug = vemo::xml::Debug::Off)
        : DeviceModelXmlLoader(debug == vemo::xml::Debug::On) {}

    /// The same; `debug` means Debug::On.
    explicit DeviceModelXmlLoader(bool debug) : m_echo(echo_if(debug)) {}

    /// Loads the file `filename`, see parse_file. Returns a model owned by the caller, or null when
    /// an error was reported.
    DeviceModel* load_file(const char* filename);

    /// The same for a NUL-terminated text, see parse_xml.
    DeviceModel* load_xml(const char* xml);

    /// The same for a parsed document. Takes ownership of `doc`. Returns null if `doc` is
    /// null, as after a failed parse.
    DeviceModel* load_target_model(tinyxml2::XMLDocument* doc);

    /// Finds the device model file that the board file `board_spec_path` calls `dm_path`. Returns
    /// an absolute path as it is; otherwise the first of these that exists, or "" when none does:
    /// `dm_path` in the working directory, `dm_path` beside the board file, and
    /// share/models/dm/`dm_path` below the directory that VEMOSDKROOT names. `board_spec_path` must
    /// not be empty unless the file is in the working directory. Appends the paths that it looks
    /// at, up to the one that is found, to `tried` if that is given.
    std::string resolve_device_model_file(const std::string& dm_path,
                                          const std::string& board_spec_path,
                                          TriedPaths* tried = nullptr) const;

private:
    Echo m_echo;
};

}  // namespace vemo::dmodel
