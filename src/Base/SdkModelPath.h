#pragma once

#include <string>

namespace vemo {

/// Environment variable that names the root of the installed development kit.
constexpr const char* SDK_ROOT_VARIABLE = "VEMOSDKROOT";

/// Where the development kit at `root` keeps the model file `file`; `kind` is "dm" for device
/// models and "tm" for target models.
std::string sdk_model_path(const std::string& root, const char* kind, const std::string& file);

}  // namespace vemo
