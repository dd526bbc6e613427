#include "DeviceModelXmlLoader.h"

#include <cstdlib>

#include "Base/Assert.h"
#include "Base/FilePath.h"
#include "Base/SdkModelPath.h"
#include "DeviceModelXml.h"

namespace vemo::dmodel {

DeviceModel* DeviceModelXmlLoader::load_file(const char* filename) {
    return load_target_model(parse_file(filename));
}

DeviceModel* DeviceModelXmlLoader::load_xml(const char* xml) {
    return load_target_model(parse_xml(xml));
}

DeviceModel* DeviceModelXmlLoader::load_target_model(tinyxml2::XMLDocument* doc) {
    return load_document<DeviceModel, xml::DeviceModelVisitor>(doc, m_echo);
}

std::string DeviceModelXmlLoader::resolve_device_model_file(const std::string& dm_path,
                                                            const std::string& board_spec_path,
                                                            TriedPaths* tried) const {
    add_tried_path(tried, dm_path);
    if (FilePath::is_absolute(dm_path) || FilePath::exists(dm_path)) {
        return dm_path;
    }
    VEMO_ASSERT(!board_spec_path.empty());
    std::string beside = FilePath::append(FilePath::parent_path(board_spec_path), dm_path);
    add_tried_path(tried, beside);
    if (FilePath::exists(beside)) {
        return beside;
    }
    if (const char* root = std::getenv(SDK_ROOT_VARIABLE)) {
        std::string in_kit = sdk_model_path(root, "dm", dm_path);
        add_tried_path(tried, in_kit);
        if (FilePath::exists(in_kit)) {
            return in_kit;
        }
    }
    return "";
}

}  // namespace vemo::dmodel
