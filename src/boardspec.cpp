#include "boardspec.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "Base/Assert.h"
#include "Base/Program.h"
#include "BoardPackage/AnswerTable.h"
#include "BoardPackage/LoadFailure.h"
#include "BoardSpecXml/BoardSpecXmlLoader.h"
#include "DeviceModelXmlLoader.h"
#include "TargetModelXmlLoader.h"

using vemo::board::BoardSpec;
using vemo::board::BoardSpecXmlLoader;
using vemo::dmodel::DeviceModel;
using vemo::dmodel::DeviceModelXmlLoader;
using vemo::tmodel::TargetModel;
using vemo::tmodel::TargetModelXmlLoader;

namespace {

constexpr char FLOW_SEPARATOR = ':';

// The models live until the process ends. Here a leak checker sees that they are not lost; and
// since nothing else reads it, the compiler must be told to keep it.
[[gnu::used]] vemo::AnswerSources* all_sources = nullptr;

/// Takes the flow suffix off `command`, if it has one, and returns the name of the compile flow
/// that it asks for; without a suffix, the flow that the board defines first.
std::string take_flow_name(std::string& command, const BoardSpec& bspec) {
    const std::vector<std::string>& flow_names = bspec.get_compile_config_names();
    if (command.find(FLOW_SEPARATOR) == std::string::npos) {
        return flow_names.front();
    }
    std::vector<std::string> pieces;
    split_string(command, FLOW_SEPARATOR, pieces);
    const bool has_flow_name = pieces.size() > 1;
    if (!has_flow_name
        || std::find(flow_names.begin(), flow_names.end(), pieces[1]) == flow_names.end()) {
        error("Could not find the BSP " + (has_flow_name ? pieces[1] : "") + " in board_spec.xml!");
    }
    command = pieces[0];
    return pieces[1];
}

std::string unknown_command_message(const std::string& command) {
    std::string message = command + " - Unknown command. Use one of the following commands:\n";
    for (const vemo::Answer& answer : vemo::ANSWERS) {
        message += std::string(answer.command) + "\n";
    }
    for (const char* flow_command : vemo::COMPILE_FLOW_COMMANDS) {
        message += std::string(flow_command) + ":<compile-flow-name>\n";
    }
    return message;
}

int run(int argc, char** argv) {
    if (argc != 3) {
        error("Usage: vemo-boardspec <path-to-board_spec.xml> <command>");
    }
    const char* board_path = argv[1];
    std::string command = argv[2];

    all_sources = new vemo::AnswerSources;
    vemo::AnswerSources& sources = *all_sources;
    const BoardSpec* bspec = parse_boardspec(board_path);
    VEMO_ASSERT(bspec);
    sources.spec = bspec;
    sources.dm = parse_devicemodel(bspec->get_device_config().device_model.c_str(), board_path,
                                   sources.dm_resolved_path);
    const TargetModel* tm = parse_targetmodel(sources.dm->target_model.c_str(),
                                              sources.dm_resolved_path, sources.tm_resolved_path);
    VEMO_ASSERT(tm);
    sources.tm = tm;

    const std::string flow_name = take_flow_name(command, *bspec);
    try {
        sources.flow = &bspec->get_compile_config(flow_name);
    } catch (const std::exception&) {
        error("Could not find a compile flow of the name: " + flow_name);
    }

    const auto answer = vemo::find_answer(command, sources);
    if (!answer) {
        error(unknown_command_message(command));
    }
    vemo::write_output(*answer);
    return vemo::finish_output() ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

void error(std::string message) {
    vemo::write_output("Error: ");
    vemo::write_output(message);
    vemo::write_output("\n");
    vemo::finish_output();
    std::exit(EXIT_FAILURE);
}

template <typename Loader>
void error_loader(const Loader& loader, const char* filename) {
    for (unsigned i = 0; i < loader.get_num_errors(); ++i) {
        vemo::write_output(loader.get_error(i));
    }
    error(vemo::load_failure_message(filename));
}

BoardSpec* parse_boardspec(const char* bspec_xml) {
    VEMO_ASSERT(bspec_xml);
    BoardSpecXmlLoader loader;
    BoardSpec* bspec = loader.load_file(bspec_xml);
    if (bspec == nullptr) {
        error_loader(loader, bspec_xml);
    }
    return bspec;
}

DeviceModel* parse_devicemodel(const char* dm_xml, const char* bspec_xml,
                               std::string& dm_resolved_path) {
    VEMO_ASSERT(bspec_xml);
    VEMO_ASSERT(dm_xml);
    DeviceModelXmlLoader loader;
    dm_resolved_path = loader.resolve_device_model_file(dm_xml, bspec_xml);
    DeviceModel* dm = loader.load_file(dm_resolved_path.c_str());
    if (dm == nullptr) {
        error_loader(loader, dm_xml);
    }
    return dm;
}

TargetModel* parse_targetmodel(const char* tm_xml, const std::string& dm_resolved_path,
                               std::string& tm_resolved_path) {
    VEMO_ASSERT(tm_xml);
    VEMO_ASSERT(!dm_resolved_path.empty());
    TargetModelXmlLoader loader;
    tm_resolved_path = loader.resolve_target_model_file(tm_xml, dm_resolved_path);
    TargetModel* tm = loader.load_file(tm_resolved_path.c_str());
    if (tm == nullptr) {
        error_loader(loader, tm_xml);
    }
    return tm;
}

void split_string(const std::string& text, char delimiter, std::vector<std::string>& pieces) {
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find(delimiter, start), text.size());
        if (end > start) {
            pieces.push_back(text.substr(start, end - start));
        }
        start = end + 1;
    }
}

int main(int argc, char** argv) {
    vemo::set_up_program("vemo-boardspec", stdout);
    try {
        return run(argc, argv);
    } catch (const std::exception& exception) {
        error(exception.what());
    }
}
