#pragma once

#include <vector>

#include <tinyxml2.h>

#include "BoardLint/Finding.h"
#include "BoardLint/SourceText.h"
#include "BoardSpec/BoardSpec.h"
#include "DeviceModel.h"
#include "TargetModel/TargetModel.h"

namespace vemo::lint {

/// A file that was read: its text, its document as parsed from it, and what the document loads as.
/// All are null for a file that is not there, or that does not load.
template <typename Model>
struct ReadFile {
    const SourceText* text = nullptr;
    const tinyxml2::XMLDocument* doc = nullptr;
    const Model* model = nullptr;
};

/// A board and the models that it leads to, a device model and its target model, or a target model.
struct Package {
    ReadFile<board::BoardSpec> board;
    ReadFile<dmodel::DeviceModel> device_model;
    ReadFile<tmodel::TargetModel> target_model;
};

/// What loads and is probably wrong in the first file of the package that is there. The time taken
/// grows linearly with the file.
std::vector<Finding> find_warnings(const Package& package);

}  // namespace vemo::lint
