#pragma once

#include <string>

#include "Base/TriedPaths.h"
#include "BaseXmlLoader.h"
#include "TargetModel/TargetModel.h"

namespace vemo::tmodel {

/// Loads target model files.
class TargetModelXmlLoader : public vemo::xml::BaseXmlLoader {
public:
    /// With Debug::On, the search for a model file is traced on standard output as well.
    explicit TargetModelXmlLoader(vemo::xml::Debug debug = vemo::xml::Debug::Off)
        : TargetModelXmlLoader(debug == vemo::xml::Debug::On) {}

    /// The same; `debug` means Debug::On.
    explicit TargetModelXmlLoader(bool debug) : m_echo(echo_if(debug)) {}

    /// Loads the file `filename`, see parse_file. Returns a model owned by the caller, or null when
    /// an error was reported.
    TargetModel* load_file(const char* filename);

    /// The same for a NUL-terminated text, see parse_xml.
    TargetModel* load_xml(const char* xml);

    /// The same for a parsed document. Takes ownership of `doc`. Returns null if `doc` is
    /// null, as after a failed parse.
    TargetModel* load_target_model(tinyxml2::XMLDocument* doc);

    /// Finds the target model file that the device model file `dm_file_path` calls `tm_path`.
    /// Returns an absolute path as it is; otherwise the first of these that exists, or "" when none
    /// does: `tm_path` in the working directory, `tm_path` beside the device model file, and
    /// share/models/tm/`tm_path` below the directory that VEMOSDKROOT names. `dm_file_path` must
    /// not be empty unless the file is in the working directory. Appends the paths that it looks
    /// at, up to the one that is found, to `tried` if that is given.
    std::string resolve_target_model_file(const std::string& tm_path,
                                          const std::string& dm_file_path,
                                          TriedPaths* tried = nullptr) const;

private:
    /// FilePath::exists(path). The trace shows the result behind `what`.
    bool exists(const char* what, const std::string& path) const;

    /// Writes `label`, `text` and a newline to standard output when debugging.
    void trace(const char* label, const std::string& text) const;

    Echo m_echo;
};

}  // namespace vemo::tmodel
