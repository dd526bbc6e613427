// Takes a board package, its three documents in one input, through every answer and every dump.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>

#include <nlohmann/json.hpp>

#include "Base/FilePath.h"
#include "BoardDump/AssignmentDump.h"
#include "BoardDump/CHeaderDump.h"
#include "BoardDump/FlowSources.h"
#include "BoardDump/HtmlDump.h"
#include "BoardDump/JsonDump.h"
#include "BoardDump/SvgDump.h"
#include "BoardDump/TextDump.h"
#include "BoardPackage/AnswerTable.h"
#include "BoardPackage/PackageFiles.h"
#include "BoardSpec/DestroyWithPorts.h"
#include "BoardSpec/Dump.h"
#include "BoardSpecXml/BoardSpecXmlLoader.h"
#include "DeviceModelXmlLoader.h"
#include "TargetModel/Dump.h"
#include "TargetModelXmlLoader.h"
#include "loading.h"

namespace {

using vemo::AnswerSources;
using vemo::fuzz::load_in_every_way;
using vemo::fuzz::take_document;
using vemo::fuzz::until_invariant;

/// Aborts unless the JSON text of a command's answer is `dumped`.
void check_answer(const char* command, const AnswerSources& sources, const nlohmann::json& dumped) {
    using nlohmann::json;
    const json answer = vemo::find_answer(command, sources).value();
    // What is not UTF-8 is replaced in JSON.
    const std::string expected = answer.dump(-1, ' ', false, json::error_handler_t::replace);
    if (dumped.dump() != expected) {
        vemo::fuzz::fail(std::string("JSON of ") + command, dumped.dump(), expected);
    }
}

/// Aborts unless the JSON dump has all answers.
void check_answers(const AnswerSources& sources) {
    const auto dump = nlohmann::json::parse(vemo::dump::json_dump(sources));
    for (const vemo::Answer& answer : vemo::ANSWERS) {
        check_answer(answer.command, sources, dump.at("answers").at(answer.command));
    }
    std::size_t i = 0;
    for (const AnswerSources& flow : vemo::dump::sources_of_flows(sources)) {
        for (const char* command : vemo::COMPILE_FLOW_COMMANDS) {
            check_answer(command, flow, dump.at("flows").at(i).at(command));
        }
        ++i;
    }
}

template <typename Model>
void stream(const Model& model) {
    until_invariant([&model] { std::ostringstream() << model; });
}

std::string dump_as_text(const AnswerSources& sources) {
    const auto& memories = sources.spec->get_global_mem_configs();
    try {
        return vemo::dump::text_dump(sources);
    } catch (const std::runtime_error&) {
        // The one thing that it may complain about.
        if (std::all_of(memories.begin(), memories.end(),
                        [](const auto* memory) { return memory->get_num_intfs() > 0; })) {
            throw;
        }
        return "";
    }
}

/// Makes all dumps of what was read from `input_size` bytes.
void dump_all(const AnswerSources& sources, std::size_t input_size) {
    stream(*sources.spec);
    for (const auto* memory : sources.spec->get_global_mem_configs()) {
        stream(*memory);
    }
    stream(*sources.dm);
    stream(*sources.tm);
    const struct {
        std::string (*dump)(const AnswerSources& sources);
        bool is_for_people;
        bool is_markup;
    } formats[] = {
        {dump_as_text, true, false},
        {vemo::dump::svg_dump, true, true},
        {vemo::dump::html_dump, true, true},
        {vemo::dump::json_dump, false, false},
        {vemo::dump::shell_dump, false, false},
        {vemo::dump::make_dump, false, false},
        {vemo::dump::cmake_dump, false, false},
        {vemo::dump::tcl_dump, false, false},
        {vemo::dump::c_dump, false, false},
    };
    for (const auto& format : formats) {
        until_invariant([&] {
            const std::string text = format.dump(sources);
            // Nothing in a file takes that much of a dump, unless it is there in many rows.
            if (text.size() > 64 * input_size + 16384) {
                throw std::length_error("a dump that grows faster than its input");
            }
            if (format.is_for_people) {
                vemo::fuzz::check_printable(text);
            }
            tinyxml2::XMLDocument document;
            if (format.is_markup && document.Parse(text.c_str()) != tinyxml2::XML_SUCCESS) {
                vemo::fuzz::fail("XML", document.ErrorStr(), text);
            }
        });
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string input(data, data + size);
    const std::string board_xml = take_document(input);
    const std::string dm_xml = take_document(input);
    const std::string tm_xml = take_document(input);

    using Board = vemo::board::BoardSpecXmlLoader;
    using Device = vemo::dmodel::DeviceModelXmlLoader;
    using Target = vemo::tmodel::TargetModelXmlLoader;
    using Spec = std::unique_ptr<vemo::board::BoardSpec, vemo::board::DestroyWithPorts>;
    // Memories may overlap, which one of the dumps tells.
    const auto spec = load_in_every_way<Board, Spec>(&Board::load_board_spec, board_xml, true);
    const auto dm = load_in_every_way<Device, std::unique_ptr<vemo::dmodel::DeviceModel>>(
        &Device::load_target_model, dm_xml);
    const auto tm = load_in_every_way<Target, std::unique_ptr<vemo::tmodel::TargetModel>>(
        &Target::load_target_model, tm_xml);
    if (spec == nullptr || dm == nullptr || tm == nullptr) {
        return 0;
    }
    const vemo::PackageFiles files = {"[board]", {}};
    AnswerSources sources;
    sources.files = &files;
    sources.spec = spec.get();
    sources.dm = dm.get();
    sources.tm = tm.get();
    sources.dm_resolved_path = spec->get_device_config().device_model;
    sources.tm_resolved_path = vemo::FilePath::append(
        vemo::FilePath::parent_path(sources.dm_resolved_path), dm->target_model);
    sources.flow = &spec->get_compile_config(spec->get_compile_config_names().front());
    until_invariant([&] { check_answers(sources); });
    dump_all(sources, size);
    return 0;
}
