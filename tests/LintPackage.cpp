#include "LintPackage.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "Base/InvariantTrap.h"
#include "BaseVisitor/Report.h"
#include "BoardLint/SourceText.h"
#include "BoardLint/Warnings.h"
#include "BoardSpec/DestroyWithPorts.h"
#include "BoardSpecXml/BoardVisitor.h"
#include "DeviceModelXml.h"
#include "DeviceModelXmlLoader.h"
#include "TargetModelXml/TargetModelVisitor.h"
#include "Testing.h"

using vemo::lint::Finding;

namespace {

constexpr const char* FILES[] = {"teasel/board_spec.xml", "teasel/pb3180.xml",
                                 "teasel/peltrab.xml"};

/// Offset of the start tag `name` at or after `offset`.
std::size_t find_tag(const std::string& text, const std::string& name, std::size_t offset = 0) {
    do {
        offset = text.find("<" + name, offset == 0 ? 0 : offset + 1);
    } while (offset != std::string::npos
             && std::string(" \n>/").find(text[offset + name.size() + 1]) == std::string::npos);
    return offset;
}

struct Sink : vemo::xml::ReportSink {
    explicit Sink(std::vector<Finding>* list) : findings(list) {}
    void report(const vemo::xml::Report& report) override { add(report.rule); }
    void enter(const tinyxml2::XMLElement&) override {}
    void add(const std::string& id) {
        Finding finding;
        finding.id = id;
        findings->push_back(finding);
    }
    std::vector<Finding>* findings;
};

/// Changes the working directory for as long as it lives.
struct WorkingDirectory {
    explicit WorkingDirectory(const std::string& path) { std::filesystem::current_path(path); }
    ~WorkingDirectory() { std::filesystem::current_path(former); }
    std::filesystem::path former = std::filesystem::current_path();
};

/// Lets a visitor read a document; false when it does not load.
template <typename Visitor, typename Model, typename... Flags>
bool read(const tinyxml2::XMLDocument& doc, Model* model, std::vector<Finding>* findings,
          Flags... flags) {
    Sink sink(findings);
    if (doc.Error()) {
        sink.add("malformed-xml");
        return false;
    }
    Visitor visitor(model, nullptr, false, flags...);
    visitor.set_report_sink(&sink);
    return doc.Accept(&visitor);
}

}  // namespace

std::string read_file(const std::string& path) {
    std::ifstream file(path);
    if (!file) {
        throw std::runtime_error("cannot read " + path);
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

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
    for (std::string& text : files) {
        const std::size_t begin = find_tag(text, name);
        if (begin == std::string::npos) {
            continue;
        }
        std::size_t last = begin;
        for (std::size_t next = begin; next != std::string::npos;
             next = find_tag(text, name, next)) {
            last = next;
        }
        const std::size_t tag_end = text.find('>', last) + 1;
        const bool is_empty = text[tag_end - 2] == '/';
        const std::string end_tag = "</" + name + ">";
        const std::size_t end = is_empty ? tag_end : text.find(end_tag, last) + end_tag.size();
        const std::size_t content = text.find('>', begin) + 1;
        const std::string former =
            is_empty ? "" : text.substr(content, end - end_tag.size() - content);
        text.replace(begin, end - begin, fill(example, {{"...", former}}));
        return *this;
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
    using namespace vemo;
    const TempDir dir;
    std::string paths[3];
    for (std::size_t i = 0; i < std::size(FILES); ++i) {
        dir.write(FILES[i], files[i]);
        paths[i] = dir / FILES[i];
    }
    dir.write("teasel/model.xml", files[1]);
    dir.write("model.xml", files[1]);
    const WorkingDirectory inside(dir.path);

    std::vector<Finding> findings;
    const std::unique_ptr<board::BoardSpec, board::DestroyWithPorts> spec(new board::BoardSpec);
    dmodel::DeviceModel dm;
    tmodel::TargetModel tm;
    tinyxml2::XMLDocument docs[3];
    for (std::size_t i = 0; i < std::size(docs); ++i) {
        docs[i].Parse(files[i].c_str());
    }
    try {
        const InvariantTrap trap;
        if (!read<board::xml::BoardVisitor>(docs[0], spec.get(), &findings, false)) {
            return findings;
        }
        paths[1] = dmodel::DeviceModelXmlLoader().resolve_device_model_file(
            spec->get_device_config().device_model, paths[0]);
        if (paths[1].empty()) {
            Sink(&findings).add("model-not-found");
            return findings;
        }
        if (!read<dmodel::xml::DeviceModelVisitor>(docs[1], &dm, &findings)
            || !read<tmodel::xml::TargetModelVisitor>(docs[2], &tm, &findings)) {
            return findings;
        }
    } catch (const BrokenInvariant& broken) {
        Sink(&findings).add(std::string("aborts: ") + broken.condition);
        return findings;
    }
    lint::Sources sources;
    for (std::size_t i = 0; i < std::size(docs); ++i) {
        sources.add(paths[i], files[i]).attach(docs[i]);
    }
    const lint::ReadFile<board::BoardSpec> board = {sources.find(paths[0]), &docs[0], spec.get()};
    const lint::ReadFile<dmodel::DeviceModel> device = {sources.find(paths[1]), &docs[1], &dm};
    const lint::ReadFile<tmodel::TargetModel> target = {sources.find(paths[2]), &docs[2], &tm};
    for (const lint::Package& package :
         {lint::Package{board, device, target}, {{}, device, target}, {{}, {}, target}}) {
        for (Finding& finding : lint::find_warnings(package)) {
            findings.push_back(std::move(finding));
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
