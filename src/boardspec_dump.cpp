// vemo-boardspec-dump: everything about a board in one call.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iterator>
#include <string>
#include <vector>

#include "Base/Program.h"

namespace {

constexpr const char* PROGRAM = "vemo-boardspec-dump";

// Before CLI11 makes objects of its own, which is before main. (An out-of-memory exception would
// not do here: streams keep it to themselves, and the destructors of JSON values allocate.)
[[maybe_unused]] const bool is_set_up = vemo::set_up_program(PROGRAM, stderr);

}  // namespace

#include <CLI/CLI.hpp>

#include "BoardDump/AddressMap.h"
#include "BoardDump/AssignmentDump.h"
#include "BoardDump/CHeaderDump.h"
#include "BoardDump/Depfile.h"
#include "BoardDump/HtmlDump.h"
#include "BoardDump/JsonDump.h"
#include "BoardDump/OutputFile.h"
#include "BoardDump/SvgDump.h"
#include "BoardDump/TextDump.h"
#include "BoardPackage/BoardPackage.h"
#include "BoardSpec/MemoryOverlap.h"
#include "vemo-boardspec-version.h"

namespace {

struct Format {
    const char* name;
    std::string (*dump)(const vemo::AnswerSources& sources);
};

// The first one is the default.
constexpr Format FORMATS[] = {
    {"text", vemo::dump::text_dump},   {"json", vemo::dump::json_dump},
    {"sh", vemo::dump::shell_dump},    {"make", vemo::dump::make_dump},
    {"cmake", vemo::dump::cmake_dump}, {"tcl", vemo::dump::tcl_dump},
    {"c", vemo::dump::c_dump},         {"svg", vemo::dump::svg_dump},
    {"html", vemo::dump::html_dump},
};

constexpr const char* FORMAT_HELP = R"(Formats:
  text  Compile flows, global memories with an address map ("--" marks a gap, "!!"
        an overlap), ports, and the models.
  json  One object: "answers" (of every vemo-boardspec command), "flows" (the
        answers of each compile flow), "board", "device_model" and
        "target_model" (the contents of the files).
  sh    Assignments to eval: vemo_<command>, vemo_num_flows, vemo_flow_<i>_name
        and vemo_flow_<i>_<command>, with i from 0; likewise the memories, their
        interfaces and the channels. The manual page lists all variables.
  make, cmake, tcl
        The same variables to include in a GNU makefile or a CMake script, or to
        source in a Tcl script.
  c     A header for C and C++ with macros for the memories, the kernel window,
        the channels and the compile flows.
  svg   A picture of the board: FPGA, interfaces, memories and address map.
  html  A page with the picture, and with everything as tables. It needs no
        other file and no network, and contains no script.

Examples:
  vemo-boardspec-dump board_spec.xml
  vemo-boardspec-dump --format=json board_spec.xml | jq .board.global_mem
  answers=$(vemo-boardspec-dump --format=sh board_spec.xml) && eval "$answers"
  vemo-boardspec-dump --format=make board_spec.xml >board.mk
  vemo-boardspec-dump --format=html board_spec.xml >board.html

Exit status: 0, or 1 after an error, which is reported on standard error.)";

struct Options {
    std::string format = FORMATS[0].name;
    bool allow_overlap = false;
    bool candidates = false;
    std::string output;          // a path; empty for standard output
    std::string depfile;         // a path; empty for none
    std::string depfile_target;  // empty for `output`
    std::string board_path;
};

std::vector<std::string> format_names() {
    std::vector<std::string> names;
    for (const Format& format : FORMATS) {
        names.emplace_back(format.name);
    }
    return names;
}

/// The exit status.
int fail(const std::string& message) {
    std::fprintf(stderr, "Error: %s\n", message.c_str());
    return EXIT_FAILURE;
}

int fail_usage(const std::string& message) {
    return fail(message + "\nRun " + PROGRAM + " --help for its usage.");
}

/// Writes all that goes to standard output. The exit status.
int print(const std::string& text) {
    vemo::write_output(text);
    return vemo::finish_output() ? EXIT_SUCCESS : EXIT_FAILURE;
}

void declare(CLI::App& app, Options& options) {
    app.name(PROGRAM);
    app.description("Prints everything about an FPGA accelerator board package.");
    app.footer(FORMAT_HELP);
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.set_version_flag("--version", std::string(PROGRAM) + " " + VEMO_BOARDSPEC_VERSION,
                         "Print the version and exit");
    auto* format = app.add_option("--format", options.format,
                                  "text (the default), json, sh, make, cmake, tcl, c, svg or html")
                       ->option_text("FORMAT")
                       ->check(CLI::IsMember(format_names()))
                       ->take_last();
    app.add_flag("--candidates", options.candidates,
                 "Print the paths where the models were searched for")
        ->excludes(format);
    app.add_option("--output", options.output, "Write to a file, unless its contents are the same")
        ->option_text("FILE")
        ->take_last();
    auto* depfile = app.add_option("--depfile", options.depfile,
                                   "Write a make rule that names the files that were read")
                        ->option_text("FILE")
                        ->take_last();
    app.add_option("--depfile-target", options.depfile_target,
                   "Target of that rule (default: the output file)")
        ->option_text("NAME")
        ->take_last()
        ->needs(depfile);
    app.add_flag("--allow-overlap", options.allow_overlap,
                 "Dump a board whose global memories overlap, too");
    app.add_option("BOARD", options.board_path, "The board file, board_spec.xml")
        ->option_text(" ")
        ->required();
}

std::string candidates_text(const vemo::AnswerSources& sources) {
    std::string text;
    for (const std::string& path : sources.files->candidates) {
        text += path + "\n";
    }
    return text;
}

/// Writes what the options ask for. The exit status.
int write(const Options& options, const vemo::AnswerSources& sources) {
    const auto* format = std::find_if(
        std::begin(FORMATS), std::end(FORMATS),
        [&options](const Format& candidate) { return options.format == candidate.name; });
    const std::string text = options.candidates ? candidates_text(sources) : format->dump(sources);
    // First, so that a failure does not leave an output that nothing would make again.
    if (!options.depfile.empty()) {
        const bool has_target = !options.depfile_target.empty();
        vemo::dump::write_file(
            options.depfile,
            vemo::dump::depfile_text(
                has_target ? options.depfile_target : options.output,
                {sources.files->board, sources.dm_resolved_path, sources.tm_resolved_path}));
    }
    if (options.output.empty()) {
        return print(text);
    }
    vemo::dump::write_file(options.output, text);
    return EXIT_SUCCESS;
}

/// What there is to add to an error if the board is refused only because its memories overlap.
std::string overlap_hint(const std::string& board_path) {
    try {
        const vemo::BoardPackage package(board_path, vemo::board::Overlap::Allow);
        const vemo::board::BoardSpec& spec = *package.sources().spec;
        if (vemo::board::has_overlapping_memories(spec.get_global_mem_configs())) {
            return vemo::dump::overlap_text(spec)
                   + ".\nUse --allow-overlap to dump the board nevertheless.\n";
        }
    } catch (const vemo::LoadError&) {  // there is another reason
    }
    return "";
}

/// The exit status.
int dump(const Options& options) {
    using vemo::board::Overlap;
    try {
        const vemo::BoardPackage package(options.board_path,
                                         options.allow_overlap ? Overlap::Allow : Overlap::Refuse);
        return write(options, package.sources());
    } catch (const vemo::LoadError& error) {
        std::fputs(error.reports().c_str(), stderr);
        const int status = fail(error.what());
        if (!options.allow_overlap) {
            std::fputs(overlap_hint(options.board_path).c_str(), stderr);
        }
        return status;
    }
}

int run(int argc, char** argv) {
    CLI::App app;
    Options options;
    declare(app, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        return print(app.help());
    } catch (const CLI::CallForVersion& version) {
        return print(std::string(version.what()) + "\n");
    } catch (const CLI::ParseError& error) {
        return fail_usage(error.what());
    }
    if (!options.depfile.empty() && options.depfile_target.empty() && options.output.empty()) {
        return fail_usage("--depfile requires --output or --depfile-target");
    }
    return dump(options);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        return fail(error.what());
    }
}
