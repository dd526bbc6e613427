#include "Base/SdkModelPath.h"

#include "Base/FilePath.h"

namespace vemo {

std::string sdk_model_path(const std::string& root, const char* kind, const std::string& file) {
    const std::string models = FilePath::append(FilePath::append(root, "share"), "models");
    return FilePath::append(FilePath::append(models, kind), file);
}

}  // namespace vemo
