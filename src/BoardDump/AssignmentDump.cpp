#include "BoardDump/AssignmentDump.h"

#include <cstddef>

#include "BoardDump/FlowSources.h"

namespace vemo::dump {
namespace {

/// Hands every variable and its value to `assign`, in the order of the dump.
template <typename Assign>
void for_each_variable(const AnswerSources& sources, Assign assign) {
    for (const Answer& answer : ANSWERS) {
        assign(std::string("vemo_") + answer.command, answer.text(sources));
    }
    const auto flows = sources_of_flows(sources);
    assign("vemo_num_flows", std::to_string(flows.size()));
    for (std::size_t i = 0; i < flows.size(); ++i) {
        const std::string prefix = "vemo_flow_" + std::to_string(i) + "_";
        assign(prefix + "name", flows[i].flow->name);
        for (const char* command : COMPILE_FLOW_COMMANDS) {
            assign(prefix + command, *find_answer(command, flows[i]));
        }
    }
}

/// A shell word that stands for exactly `value`.
std::string shell_quoted(const std::string& value) {
    std::string word = "'";
    for (const char c : value) {
        if (c == '\'') {
            word += "'\\''";  // nothing but the quote itself ends or changes a quoted text
        } else {
            word += c;
        }
    }
    return word + "'";
}

/// The right-hand side of := that gives a variable of make exactly `value`.
std::string make_quoted(const std::string& value) {
    constexpr const char* EMPTY = "$(vemo_empty)";
    constexpr const char* BLANKS = " \t\v\f\r";

    std::string text;
    // Blanks before a value do not belong to it.
    if (value.find_first_of(BLANKS) == 0) {
        text += EMPTY;
    }
    std::size_t num_backslashes = 0;  // right before c
    for (const char c : value) {
        if (c == '$') {
            text += "$$";
        } else if (c == '\n') {
            text += "$(vemo_newline)";
        } else if (c == '#') {
            // Takes a backslash to be no comment, and halves those before it.
            text.append(num_backslashes + 1, '\\');
            text += c;
        } else {
            text += c;
        }
        num_backslashes = c == '\\' ? num_backslashes + 1 : 0;
    }
    // At its end, a backslash would join the line with the next, a carriage return would belong to
    // the line break, and editors take blanks away.
    if (!value.empty()
        && std::string(BLANKS).append("\\").find(value.back()) != std::string::npos) {
        text += EMPTY;
    }
    return text;
}

}  // namespace

std::string shell_dump(const AnswerSources& sources) {
    std::string text;
    for_each_variable(sources, [&text](const std::string& name, const std::string& value) {
        text += name + "=" + shell_quoted(value) + "\n";
    });
    return text;
}

std::string make_dump(const AnswerSources& sources) {
    // The two empty lines between define and endef are one newline.
    std::string text = "vemo_empty :=\ndefine vemo_newline\n\n\nendef\n";
    for_each_variable(sources, [&text](const std::string& name, const std::string& value) {
        text += name + " := " + make_quoted(value) + "\n";
    });
    return text;
}

}  // namespace vemo::dump
