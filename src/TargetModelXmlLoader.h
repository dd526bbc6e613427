#pragma once

#include <string>

#include "BaseXmlLoader.h"
#include "TargetModel/TargetModel.h"

namespace vemo::tmodel {

/// Loads target model files.
class TargetModelXmlLoader : public vemo::xml::BaseXmlLoader {
public:
    /// With `debug`, each document is echoed to standard error and its walk traced there, and the
    /// search for a model file is traced on standard output.
    explicit TargetModelXmlLoader(bool debug) : m_echo(echo_if(debug)) {}

    // The loads return a model owned by the caller, or null when an error was reported.

    TargetModel* load_file(const char* filename);
    TargetModel* load_xml(const char* xml);

    /// Takes ownership of `doc`; null stands for a parse that failed.
    TargetModel* load_target_model(tinyxml2::XMLDocument* doc);

    /// Finds the target model file that a device model file names `tm_path`: an absolute path as
    /// it is; else the first that exists of the path itself (below the working directory), the
    /// path beside the device model file, and the path below share/models/tm of VEMOSDKROOT. Empty
    /// when none exists.
    std::string resolve_target_model_file(const std::string& tm_path,
                                          const std::string& dm_file_path) const;

private:
    /// FilePath::exists(path), told in the trace as the test of `what`.
    bool exists(const char* what, const std::string& path) const;

    /// Writes `label`, `text` and a newline to standard output when debugging.
    void trace(const char* label, const std::string& text) const;

    Echo m_echo;
};

}  // namespace vemo::tmodel
