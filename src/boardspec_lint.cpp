// vemo-boardspec-lint: every mistake in a board package.

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iterator>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <unistd.h>

#include "Base/Program.h"

namespace {

constexpr const char* PROGRAM = "vemo-boardspec-lint";

// Before CLI11 makes objects of its own, which is before main.
[[maybe_unused]] const bool is_set_up = vemo::set_up_program(PROGRAM, stderr);

}  // namespace

#include <CLI/CLI.hpp>

#include "Base/Characters.h"
#include "BoardLint/GithubOutput.h"
#include "BoardLint/JsonOutput.h"
#include "BoardLint/PackageCheck.h"
#include "BoardLint/Rules.h"
#include "BoardLint/SarifOutput.h"
#include "BoardLint/TextOutput.h"
#include "BoardLint/Warnings.h"
#include "vemo-boardspec-version.h"

namespace {

using vemo::lint::Finding;
using vemo::lint::PackageCheck;
using vemo::lint::Severity;

// Exit statuses.
constexpr int CLEAN = 0;
constexpr int HAS_FINDINGS = 1;
constexpr int FAILED = 2;

constexpr const char* HELP =
    R"(A board file is checked together with the models that it leads to; they are
searched where vemo-boardspec searches them.

Examples:
  vemo-boardspec-lint board_spec.xml
  vemo-boardspec-lint --strict --format=github boards/*/board_spec.xml
  vemo-boardspec-lint --explain=memory-overlap

Exit status: 0 without findings that count, 1 with, 2 if the options are wrong,
a FILE cannot be opened or the output cannot be written.)";

struct Options {
    std::string format = "text";
    std::string color = "auto";
    std::size_t max_findings = 100;
    bool is_strict = false;
    std::vector<std::string> unwanted_warnings;
    std::string rule_to_explain;
    std::vector<std::string> files;
};

bool has_color(const std::string& when) {
    if (when != "auto") {
        return when == "always";
    }
    const char* no_color = std::getenv("NO_COLOR");
    return isatty(STDOUT_FILENO) == 1 && (no_color == nullptr || *no_color == '\0');
}

std::string working_directory() {
    char* path = getcwd(nullptr, 0);
    std::string text = path == nullptr ? "" : path;
    std::free(path);
    return text;
}

std::string text_format(const std::vector<Finding>& findings, const PackageCheck& check,
                        const Options& options) {
    return text_output(findings, check.sources(), {has_color(options.color)});
}

std::string json_format(const std::vector<Finding>& findings, const PackageCheck&, const Options&) {
    return vemo::lint::json_output(findings);
}

std::string sarif_format(const std::vector<Finding>& findings, const PackageCheck&,
                         const Options&) {
    return vemo::lint::sarif_output(findings, working_directory());
}

std::string github_format(const std::vector<Finding>& findings, const PackageCheck&,
                          const Options&) {
    return vemo::lint::github_output(findings);
}

struct Format {
    const char* name;
    std::string (*write)(const std::vector<Finding>& findings, const PackageCheck& check,
                         const Options& options);
};
constexpr Format FORMATS[] = {{"text", text_format},
                              {"json", json_format},
                              {"sarif", sarif_format},
                              {"github", github_format}};

void say(const std::string& message) {
    std::fprintf(stderr, "%s: %s\n", PROGRAM, vemo::printable(message).c_str());
}

/// The exit status.
int fail(const std::string& message) {
    say(message);
    return FAILED;
}

int fail_usage(const std::string& message) {
    say(message);
    std::fprintf(stderr, "Run %s --help for its usage.\n", PROGRAM);
    return FAILED;
}

/// Writes all that goes to standard output. The exit status is `status` unless that fails.
int print(const std::string& text, int status) {
    vemo::write_output(text);
    return vemo::finish_output() ? status : FAILED;
}

void declare(CLI::App& app, Options& options) {
    app.name(PROGRAM);
    app.description("Finds all mistakes in FPGA accelerator board packages.");
    app.footer(HELP);
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.set_version_flag("--version", std::string(PROGRAM) + " " + VEMO_BOARDSPEC_VERSION,
                         "Print the version and exit");
    std::vector<std::string> names;
    for (const Format& format : FORMATS) {
        names.emplace_back(format.name);
    }
    app.add_option("--format", options.format, "text (the default), json, sarif or github")
        ->option_text("FORMAT")
        ->check(CLI::IsMember(names))
        ->take_last();
    app.add_option("--color", options.color, "auto (the default), always or never")
        ->option_text("WHEN")
        ->check(CLI::IsMember(std::vector<std::string>{"auto", "always", "never"}))
        ->take_last();
    app.add_option("--max-findings", options.max_findings,
                   "Stop after this many findings (default: 100)")
        ->option_text("NUMBER")
        ->check(CLI::PositiveNumber)
        ->take_last();
    app.add_flag("--strict", options.is_strict, "Let warnings count for the exit status");
    app.add_option("--no-warn", options.unwanted_warnings, "Do not show warnings of this ID")
        ->option_text("ID")
        ->allow_extra_args(false)
        ->take_all();
    app.add_option("--explain", options.rule_to_explain,
                   "Print what findings of this ID mean and exit; \"list\" prints all IDs")
        ->option_text("ID");
    app.add_option("FILE", options.files, "Board files or model files")->option_text("...");
}

int explain(const std::string& id) {
    if (id == "list") {
        return print(vemo::lint::list_rules(), CLEAN);
    }
    const vemo::lint::Rule* rule = vemo::lint::find_rule(id);
    return rule == nullptr ? fail("no such id: '" + id + "' (--explain=list prints all)")
                           : print(vemo::lint::explain(*rule), CLEAN);
}

bool is_wanted(const Finding& finding, const Options& options) {
    const auto& unwanted = options.unwanted_warnings;
    return std::find(unwanted.begin(), unwanted.end(), finding.id) == unwanted.end();
}

/// All findings: file by file, and in each in the order of lines.
std::vector<Finding> all_findings(const PackageCheck& check, const Options& options) {
    std::vector<Finding> findings = check.findings();
    for (const PackageCheck::File& file : check.files()) {
        for (Finding& warning : find_warnings(file)) {
            if (is_wanted(warning, options)) {
                findings.push_back(std::move(warning));
            }
        }
    }
    const auto place = [&check](const Finding& finding) {
        return std::make_tuple(check.sources().position(finding.location.file),
                               finding.location.line, finding.location.column);
    };
    std::stable_sort(findings.begin(), findings.end(),
                     [&place](const Finding& a, const Finding& b) { return place(a) < place(b); });
    return findings;
}

int check_files(const Options& options) {
    PackageCheck check(options.max_findings);
    int status = CLEAN;
    for (const std::string& file : options.files) {
        if (!check.check(file)) {
            status = fail("cannot open '" + file + "': " + std::strerror(errno));
        }
    }
    std::vector<Finding> findings = all_findings(check, options);
    const bool is_cut = findings.size() >= options.max_findings;
    if (findings.size() > options.max_findings) {
        findings.resize(options.max_findings);
    }
    const bool counts = std::any_of(findings.begin(), findings.end(), [&](const Finding& finding) {
        return options.is_strict || finding.severity == Severity::Error;
    });
    if (counts && status == CLEAN) {
        status = HAS_FINDINGS;
    }
    const auto* format = std::find_if(
        std::begin(FORMATS), std::end(FORMATS),
        [&options](const Format& candidate) { return options.format == candidate.name; });
    status = print(format->write(findings, check, options), status);
    if (is_cut) {
        say("stopped after " + std::to_string(findings.size()) + " findings (see --max-findings)");
    } else {
        for (const std::string& remark : check.remarks()) {
            say(remark);
        }
    }
    return status;
}

int run(int argc, char** argv) {
    CLI::App app;
    Options options;
    declare(app, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        return print(app.help(), CLEAN);
    } catch (const CLI::CallForVersion& version) {
        return print(std::string(version.what()) + "\n", CLEAN);
    } catch (const CLI::ParseError& error) {
        return fail_usage(error.what());
    }
    if (!options.rule_to_explain.empty()) {
        return explain(options.rule_to_explain);
    }
    for (const std::string& id : options.unwanted_warnings) {
        const vemo::lint::Rule* rule = vemo::lint::find_rule(id);
        if (rule == nullptr || rule->severity != Severity::Warning) {
            return fail("no such warning: '" + id + "' (--explain=list prints all)");
        }
    }
    if (options.files.empty()) {
        return fail_usage("no FILE given");
    }
    return check_files(options);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        return fail(error.what());
    }
}
