#include "TargetModelXmlLoader.h"

#include <cstdio>
#include <cstdlib>

#include "Base/Assert.h"
#include "Base/FilePath.h"
#include "Base/SdkModelPath.h"
#include "TargetModelXml/TargetModelVisitor.h"

namespace vemo::tmodel {

TargetModel* TargetModelXmlLoader::load_file(const char* filename) {
    return load_target_model(parse_file(filename));
}

TargetModel* TargetModelXmlLoader::load_xml(const char* xml) {
    return load_target_model(parse_xml(xml));
}

TargetModel* TargetModelXmlLoader::load_target_model(tinyxml2::XMLDocument* doc) {
    return load_document<TargetModel, xml::TargetModelVisitor>(doc, m_echo);
}

std::string TargetModelXmlLoader::resolve_target_model_file(const std::string& tm_path,
                                                            const std::string& dm_file_path,
                                                            TriedPaths* tried) const {
    add_tried_path(tried, tm_path);
    trace("Resolving target model file path:", "");
    trace("  input path: ", tm_path);
    if (FilePath::is_absolute(tm_path)) {
        trace("  input path is absolute", "");
        return tm_path;
    }
    if (exists("  relative to cwd: ", tm_path)) {
        return tm_path;
    }
    VEMO_ASSERT(!dm_file_path.empty());
    const std::string dm_dir = FilePath::parent_path(dm_file_path);
    trace("  Device Model file path: ", dm_file_path);
    trace("  Device Model dir: ", dm_dir);
    std::string beside = FilePath::append(dm_dir, tm_path);
    add_tried_path(tried, beside);
    if (exists("  relative to DM dir: ", beside)) {
        return beside;
    }
    if (const char* root = std::getenv(SDK_ROOT_VARIABLE)) {
        trace("  VEMOSDKROOT: ", root);
        std::string in_kit = sdk_model_path(root, "tm", tm_path);
        add_tried_path(tried, in_kit);
        if (exists("  relative to VEMO TM dir: ", in_kit)) {
            return in_kit;
        }
    }
    return "";
}

bool TargetModelXmlLoader::exists(const char* what, const std::string& path) const {
    const bool found = FilePath::exists(path);
    trace(what, path + (found ? " exists" : " does not exist"));
    return found;
}

void TargetModelXmlLoader::trace(const char* label, const std::string& text) const {
    if (m_echo != nullptr) {
        const std::string line = label + text + "\n";
        std::fwrite(line.data(), 1, line.size(), stdout);
    }
}

}  // namespace vemo::tmodel
