// Takes a board package, its three documents in one input, through the checker and every form of
// its output. Its verdict must be that of the library, whose first report is among its findings.
// There must be a rule for each finding.

#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "Base/Characters.h"
#include "BoardLint/GithubOutput.h"
#include "BoardLint/JsonOutput.h"
#include "BoardLint/PackageCheck.h"
#include "BoardLint/Rules.h"
#include "BoardLint/SarifOutput.h"
#include "BoardLint/TextOutput.h"
#include "BoardLint/Warnings.h"
#include "BoardPackage/BoardPackage.h"
#include "loading.h"

namespace {

using vemo::fuzz::take_document;
using vemo::lint::Finding;
using vemo::lint::PackageCheck;

constexpr std::size_t MAX_FINDINGS = 20;
constexpr const char* BOARD_FILE = "board_spec.xml";

/// The working directory of the harness, new and empty.
class WorkingDirectory {
public:
    WorkingDirectory() {
        std::string path = (std::filesystem::temp_directory_path() / "lint.XXXXXX").string();
        if (mkdtemp(path.data()) == nullptr || chdir(path.c_str()) != 0) {
            std::perror("a directory for packages");
            std::abort();
        }
        m_path = path;
    }
    ~WorkingDirectory() { std::filesystem::remove_all(m_path); }
    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;

private:
    std::filesystem::path m_path;
};

void write(const std::string& file, const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
}

/// The value of the first attribute `attribute` in `xml`, if it will do as a file name of a model.
std::string file_name_in(const std::string& xml, const std::string& attribute) {
    const std::string before = attribute + "=\"";
    const std::size_t found = xml.find(before);
    const std::size_t begin = found == std::string::npos ? xml.size() : found + before.size();
    const std::string name = xml.substr(begin, xml.find('"', begin) - begin);
    const bool will_do = !name.empty() && name.size() < 100 && name != BOARD_FILE && name != "."
                         && name != ".." && name.find('/') == std::string::npos
                         && name.find('\0') == std::string::npos;
    return will_do ? name : attribute + ".xml";
}

/// What the library says about the package; empty when it loads.
std::string library_reports() {
    try {
        const vemo::BoardPackage package(BOARD_FILE);
        return "";
    } catch (const vemo::LoadError& error) {
        return error.reports() + error.what();
    }
}

/// What the library reports where it is the finding.
std::string report_of(const Finding& finding) {
    const unsigned line = finding.location.line;
    return "Error in '" + finding.location.file + "'"
           + (line == 0 ? "" : ", line " + std::to_string(line)) + " " + finding.message + " ";
}

void check_verdict(const PackageCheck& check, std::string reports) {
    std::replace(reports.begin(), reports.end(), '\n', ' ');
    std::string found;
    bool has_first = false;
    for (const Finding& finding : check.findings()) {
        const std::string report = report_of(finding);
        has_first = has_first || reports.compare(0, report.size(), report) == 0;
        found += report + "\n";
    }
    // The checker has words of its own for broken invariants and for files that are missing, cannot
    // be read or are not XML.
    const bool is_diagnostic = reports.find("', line ") != std::string::npos;
    if (found.empty() != reports.empty() || (is_diagnostic && !has_first)) {
        vemo::fuzz::fail("the checker", found, reports);
    }
}

/// Aborts if the findings as text have a line that only a file can have written: one that does not
/// begin with the name of a file, a line number or spaces.
void check_lines(const std::vector<Finding>& findings, const std::string& text) {
    std::set<std::string> heads;
    for (const Finding& finding : findings) {
        heads.insert(vemo::printable(finding.location.file) + ":");
        for (const vemo::lint::Note& note : finding.notes) {
            if (note.location.line > 0) {
                heads.insert(vemo::printable(note.location.file) + ":");
            }
        }
    }
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const auto begins_line = [&line](const std::string& head) {
            return line.compare(0, head.size(), head) == 0;
        };
        if (line.find_first_of(" 0123456789") != 0
            && std::none_of(heads.begin(), heads.end(), begins_line)) {
            vemo::fuzz::fail("a line", line, text);
        }
    }
}

void write_output(const PackageCheck& check) {
    std::vector<Finding> findings = check.findings();
    for (const PackageCheck::File& file : check.files()) {
        const std::vector<Finding> warnings = vemo::lint::find_warnings(file);
        findings.insert(findings.end(), warnings.begin(), warnings.end());
    }
    for (const Finding& finding : findings) {
        if (vemo::lint::find_rule(finding.id) == nullptr) {
            vemo::fuzz::fail("BoardLint/Rules.cpp", "no rule", finding.id + ": " + finding.message);
        }
    }
    using nlohmann::json;
    const std::string text = vemo::lint::text_output(findings, check.sources(), {});
    const json in_json = json::parse(vemo::lint::json_output(findings));
    const json in_sarif = json::parse(vemo::lint::sarif_output(findings, "/"));
    const std::string in_github = vemo::lint::github_output(findings);
    check_lines(findings, text);
    vemo::fuzz::check_printable(text);
    vemo::fuzz::check_printable(in_github);
    const std::size_t counts[] = {
        in_json.at("findings").size(),
        in_sarif.at("runs").at(0).at("results").size(),
        static_cast<std::size_t>(std::count(in_github.begin(), in_github.end(), '\n')),
    };
    for (const std::size_t count : counts) {
        if (count != findings.size()) {
            vemo::fuzz::fail("output", std::to_string(count), text);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const WorkingDirectory directory;
    std::string input(data, data + size);
    const std::string board = take_document(input);
    const std::string dm = take_document(input);
    const std::string dm_file = file_name_in(board, "device_model");
    const std::string tm_file = file_name_in(dm, "target_model");
    write(tm_file, take_document(input));
    write(dm_file, dm);
    write(BOARD_FILE, board);

    PackageCheck check(MAX_FINDINGS);
    check.check(BOARD_FILE);
    check_verdict(check, library_reports());
    write_output(check);
    std::filesystem::remove(tm_file);
    std::filesystem::remove(dm_file);
    return 0;
}
