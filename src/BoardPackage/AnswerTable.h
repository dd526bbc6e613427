#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Base/ArrayView.h"
#include "BoardSpec/BoardSpec.h"
#include "DeviceModel.h"
#include "TargetModel/TargetModel.h"

namespace vemo {

/// What answers are made from. The models are not owned.
struct AnswerSources {
    const board::BoardSpec* spec = nullptr;
    const dmodel::DeviceModel* dm = nullptr;
    const tmodel::TargetModel* tm = nullptr;
    std::string dm_resolved_path;                // of the files that the models were
    std::string tm_resolved_path;                // loaded from
    const board::CompileConfig* flow = nullptr;  // what the compile-flow commands read
};

/// One row of the answer table.
struct Answer {
    const char* command;
    std::string (*text)(const AnswerSources& sources);
};

/// All commands, in ascending byte order.
extern const ArrayView<Answer> ANSWERS;

/// Those that read a compile flow, in the order in which they are listed to the user.
extern const ArrayView<const char*> COMPILE_FLOW_COMMANDS;

/// The answer to exactly that command; nothing when there is no such command.
std::optional<std::string> find_answer(std::string_view command, const AnswerSources& sources);

}  // namespace vemo
