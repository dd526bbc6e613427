#include "Xml.h"

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

const std::string BOARD = read_data("board_spec.xml");
const std::string BOARD_14 = read_data("board_14.1.xml");
const std::string BOARD_09 = read_data("board_0.9.xml");
const std::string DEVICE_MODEL = read_data("dev.xml");
const std::string TARGET_MODEL = read_data("tm.xml");

std::string edit(std::string text, const std::string& from, const std::string& to) {
    const std::size_t gap = from.find("...");
    const std::string head = from.substr(0, gap);
    const std::string tail = gap == std::string::npos ? "" : from.substr(gap + 3);
    const std::size_t begin = text.find(head);
    const std::size_t end = text.find(tail, begin + head.size());
    if (begin == std::string::npos || end == std::string::npos) {
        throw std::logic_error("not in the document: " + from);
    }
    return text.replace(begin, end + tail.size() - begin, to);
}

std::string dumped_model(const std::string& title) {
    for (const std::string& part : split(read_data("dump.txt"), "\n\n")) {
        if (part.rfind(title, 0) == 0) {
            return part;
        }
    }
    throw std::logic_error("not in dump.txt: " + title);
}

ShellTest::ShellTest(const char* link, const char* variable, const char* program) {
    const char* other = std::getenv(variable);
    std::filesystem::create_symlink(other == nullptr ? program : other, dir / link);
    dir.write("board_spec.xml", BOARD);
    dir.write("dev.xml", DEVICE_MODEL);
    dir.write("tm.xml", TARGET_MODEL);
}

int ShellTest::run(const std::string& command) const {
    std::string line = "unset VEMOSDKROOT; cd '" + dir.path + "' && ( ";
    line += command + " ) >out 2>err";
    return WEXITSTATUS(std::system(line.c_str()));
}

std::string at(int line, const std::string& message) {
    const std::string place = line == 0 ? ":" : ", line " + std::to_string(line);
    return "Error in '[mem]'" + place + "\n" + message + "\n";
}

static std::string expand_outcome(const std::string& outcome) {
    if (outcome == "loaded" || outcome == "silent") {
        return outcome == "silent" ? "" : outcome;
    }
    std::string texts;
    for (const std::string& report : split(fill(outcome, {{"\\s", " "}}), " + ")) {
        const int line = static_cast<int>(std::strtol(report.c_str(), nullptr, 10));
        texts += at(line, line == 0 ? report : report.substr(report.find(": ") + 2));
    }
    return texts;
}

std::vector<Case> parse_cases(const std::string& document, const std::string& lines) {
    const std::string abort = "aborts: ";
    std::vector<Case> cases;
    for (const std::string& line : split(lines, "\n")) {
        if (line.empty() || line[0] == '#') {
            continue;
        }
        const std::vector<std::string> parts = split(line, " => ");
        const std::string& outcome = parts.at(2);
        for (const std::string& from : split(parts[0], " || ")) {
            for (const std::string& to : split(parts[1], " || ")) {
                Case c;
                c.name = from;
                c.name += " => " + to;
                c.document = edit(document, from, fill(to, {{"(nothing)", ""}, {"\\n", "\n"}}));
                const bool aborts = outcome.compare(0, abort.size(), abort) == 0;
                (aborts ? c.abort : c.outcome) =
                    aborts ? outcome.substr(abort.size()) : expand_outcome(outcome);
                cases.push_back(std::move(c));
            }
        }
    }
    return cases;
}

std::map<std::string, std::vector<Case>> read_cases(const std::string& file) {
    std::map<std::string, std::vector<Case>> groups;
    for (const std::string& group : split(read_data(file), "\n\n[")) {
        const std::vector<std::string> parts = split(group, "]\n");
        if (parts.size() == 2) {
            const std::vector<std::string> head = split(parts[0], ": ");
            groups[head.at(0)] = parse_cases(read_data(head.at(1)), parts[1]);
        }
    }
    return groups;
}

std::vector<std::string> read_group_names(const std::string& file) {
    std::vector<std::string> names;
    for (const auto& [name, cases] : read_cases(file)) {
        names.push_back(name);
    }
    return names;
}
