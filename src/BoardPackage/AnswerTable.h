#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Base/ArrayView.h"
#include "BoardPackage/PackageFiles.h"
#include "BoardSpec/BoardSpec.h"
#include "DeviceModel.h"
#include "TargetModel/TargetModel.h"

namespace vemo {

/// What answers are made from. The models and the flow are not owned and must not be null. Answers
/// do not need `files`, but dumps of a package do.
struct AnswerSources {
    const board::BoardSpec* spec = nullptr;      ///< The board.
    const dmodel::DeviceModel* dm = nullptr;     ///< The device model that the board names.
    const tmodel::TargetModel* tm = nullptr;     ///< The target model that the device model names.
    std::string dm_resolved_path;                ///< Path of the file that `dm` was loaded from.
    std::string tm_resolved_path;                ///< Path of the file that `tm` was loaded from.
    const board::CompileConfig* flow = nullptr;  ///< The flow that compile-flow commands read.
    const PackageFiles* files = nullptr;         ///< Not owned.
};

/// One row of the answer table.
struct Answer {
    const char* command;                                ///< The command word.
    std::string (*text)(const AnswerSources& sources);  ///< Computes the answer.
};

/// All commands, in ascending byte order.
extern const ArrayView<Answer> ANSWERS;

/// The commands that read a compile flow, in the order in which users see them listed.
extern const ArrayView<const char*> COMPILE_FLOW_COMMANDS;

/// The answer to `command`, or nothing if there is no such command. The command must match exactly
/// and carries no flow suffix.
std::optional<std::string> find_answer(std::string_view command, const AnswerSources& sources);

}  // namespace vemo
