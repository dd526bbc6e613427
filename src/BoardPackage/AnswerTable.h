#pragma once

#include <optional>
#include <string>
#include <string_view>

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
extern const Answer ANSWERS[22];

/// Those that read a compile flow, in the order in which they are listed to the user.
extern const char* const COMPILE_FLOW_COMMANDS[9];

/// The answer to exactly that command; nothing when there is no such command.
std::optional<std::string> find_answer(std::string_view command, const AnswerSources& sources);

}  // namespace vemo
