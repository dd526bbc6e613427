#include "LintPackage.h"

#include <filesystem>
#include <iterator>
#include <regex>
#include <stdexcept>

#include "BoardLint/PackageCheck.h"
#include "BoardLint/Warnings.h"
#include "Testing.h"

using vemo::lint::Finding;

namespace {

constexpr const char* FILES[] = {"teasel/board_spec.xml", "teasel/pb3180.xml",
                                 "teasel/peltrab.xml"};

/// Changes the working directory for as long as it lives.
struct WorkingDirectory {
    explicit WorkingDirectory(const std::string& path) { std::filesystem::current_path(path); }
    ~WorkingDirectory() { std::filesystem::current_path(former); }
    std::filesystem::path former = std::filesystem::current_path();
};

}  // namespace

LintPackage::LintPackage() {
    for (std::size_t i = 0; i < std::size(FILES); ++i) {
        files[i] = read_file(std::string(VEMO_SOURCE_DIR "/examples/") + FILES[i]);
    }
    // So that the flow is right in format 14.1, too.
    change("platform_type=\"none\"/>",
           "platform_type=\"none\"><include fixes=\"\"/><exclude fixes=\"\"/></auto_migrate>");
}

LintPackage& LintPackage::replace(const std::string& example) {
    const std::string name = example.substr(1, example.find_first_of(" >/\n") - 1);
    const std::string end_tag = "</" + name + ">";
    for (std::string& text : files) {
        std::smatch tag;
        if (std::regex_search(text, tag, std::regex("<" + name + "(?=[ \n>/])[^>]*>"))) {
            const auto begin = static_cast<std::size_t>(tag.position());
            const std::size_t content = begin + static_cast<std::size_t>(tag.length());
            const std::size_t content_end = text.rfind(end_tag);
            const bool is_empty = content_end == std::string::npos;
            const std::string former = is_empty ? "" : text.substr(content, content_end - content);
            const std::size_t end = is_empty ? content : content_end + end_tag.size();
            text.replace(begin, end - begin, fill(example, {{"...", former}}));
            return *this;
        }
    }
    throw std::logic_error("no element " + name);
}

LintPackage& LintPackage::change(const std::string& from, const std::string& to) {
    for (std::string& text : files) {
        const std::size_t found = text.find(from);
        if (found != std::string::npos) {
            text.replace(found, from.size(), to);
            return *this;
        }
    }
    throw std::logic_error("not in the package: " + from);
}

std::vector<Finding> LintPackage::findings() const {
    const TempDir dir;
    for (std::size_t i = 0; i < std::size(FILES); ++i) {
        dir.write(FILES[i], files[i]);
    }
    dir.write("teasel/model.xml", files[1]);
    dir.write("model.xml", files[1]);
    const WorkingDirectory inside(dir.path);

    vemo::lint::PackageCheck check(100);
    check.check(FILES[0]);
    std::vector<Finding> findings = check.findings();
    for (const auto& file : check.files()) {
        for (Finding& warning : vemo::lint::find_warnings(file)) {
            findings.push_back(std::move(warning));
        }
    }
    return findings;
}

std::string LintPackage::errors() const {
    std::string ids;
    for (const Finding& finding : findings()) {
        if (finding.severity == vemo::lint::Severity::Error) {
            ids += finding.id + " ";
        }
    }
    return ids;
}

std::string LintPackage::warnings() const {
    std::string lines = errors();
    for (const Finding& finding : findings()) {
        if (finding.severity == vemo::lint::Severity::Warning) {
            const auto& place = finding.location;
            lines += finding.id + " " + std::to_string(place.line) + ":"
                     + std::to_string(place.column) + "+" + std::to_string(place.length) + " "
                     + finding.message + "\n";
        }
    }
    return lines;
}
