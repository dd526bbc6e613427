#include "BoardDump/AssignmentDump.h"

#include <cstddef>

#include "BoardDump/FlowSources.h"
#include "BoardDump/InterfaceAttributes.h"
#include "BoardDump/JsonString.h"
#include "BoardDump/MemoryAttributes.h"
#include "BoardSpec/Words.h"

namespace vemo::dump {
namespace {

/// How a language assigns a value to a variable.
struct Syntax {
    const char* before_name;
    const char* before_value;
    std::string (*quoted)(const std::string& value);  // a word that stands for exactly `value`
    const char* after_value;
};

/// Collects the assignments of all variables. Functions that are given a prefix put it before the
/// names of their variables.
class Assignments {
public:
    explicit Assignments(const Syntax& syntax) : m_syntax(syntax) {}

    void add_package(const AnswerSources& sources) {
        for (const Answer& answer : ANSWERS) {
            add(std::string("vemo_") + answer.command, answer.text(sources));
        }
        add_files(sources);
        add_flows(sources);
        const board::BoardSpec& spec = *sources.spec;
        add_memories(spec.get_global_mem_configs());
        add_number("vemo_num_channels",
                   spec.has_channel_config() ? spec.get_channel_config().get_num_intfs() : 0);
        if (spec.has_channel_config()) {
            add_interfaces("vemo_channel_", spec.get_channel_config());
        }
        add_number("vemo_num_interfaces", spec.get_interface_config().get_num_intfs());
        add_interfaces("vemo_interface_", spec.get_interface_config());
        const board::HostConfig& host = spec.get_host_config();
        add_number("vemo_kernel_config_start", host.kernel_config_start);
        add_number("vemo_kernel_config_size", host.get_kernel_config_size());
    }

    const std::string& text() const { return m_text; }

private:
    void add(const std::string& name, const std::string& value) {
        m_text += m_syntax.before_name;
        m_text += name;
        m_text += m_syntax.before_value;
        m_text += m_syntax.quoted(value);
        m_text += m_syntax.after_value;
    }

    void add_number(const std::string& name, std::size_t number) {
        add(name, std::to_string(number));
    }

    void add_files(const AnswerSources& sources) {
        add("vemo_file_board", sources.files->board);
        add("vemo_file_device_model", sources.dm_resolved_path);
        add("vemo_file_target_model", sources.tm_resolved_path);
        const TriedPaths& candidates = sources.files->candidates;
        add_number("vemo_num_candidates", candidates.size());
        for (std::size_t i = 0; i < candidates.size(); ++i) {
            add("vemo_candidate_" + std::to_string(i), candidates[i]);
        }
    }

    void add_flows(const AnswerSources& sources) {
        const auto flows = sources_of_flows(sources);
        add_number("vemo_num_flows", flows.size());
        for (std::size_t i = 0; i < flows.size(); ++i) {
            const std::string prefix = "vemo_flow_" + std::to_string(i) + "_";
            add(prefix + "name", flows[i].flow->name);
            for (const char* command : COMPILE_FLOW_COMMANDS) {
                add(prefix + command, *find_answer(command, flows[i]));
            }
        }
    }

    void add_memories(const std::vector<board::GlobalMemConfig*>& memories) {
        add_number("vemo_num_memories", memories.size());
        for (std::size_t i = 0; i < memories.size(); ++i) {
            const std::string prefix = "vemo_memory_" + std::to_string(i) + "_";
            add_attributes(prefix, *memories[i], MEMORY_ATTRIBUTES);
            add_number(prefix + "num_interfaces", memories[i]->get_num_intfs());
            add_interfaces(prefix + "interface_", *memories[i]);
        }
    }

    void add_interfaces(const std::string& prefix, const board::InterfaceList& list) {
        for (unsigned i = 0; i < list.get_num_intfs(); ++i) {
            const board::Interface& intf = list.get_intf(i);
            const std::string intf_prefix = prefix + std::to_string(i) + "_";
            add_attributes(intf_prefix, intf, INTERFACE_ATTRIBUTES);
            add_ports(intf_prefix, intf);
        }
    }

    void add_ports(const std::string& prefix, const board::Interface& intf) {
        add_number(prefix + "num_ports", intf.get_num_ports());
        for (unsigned i = 0; i < intf.get_num_ports(); ++i) {
            const board::Port& port = *intf.get_port(i);
            const std::string port_prefix = prefix + "port_" + std::to_string(i) + "_";
            add(port_prefix + "name", port.name);
            add(port_prefix + "direction", std::string(board::DIRECTION_WORDS[port.direction]));
        }
    }

    template <typename Object, typename Attribute>
    void add_attributes(const std::string& prefix, const Object& object,
                        const ArrayView<Attribute>& attributes) {
        for (const Attribute& attribute : attributes) {
            add(prefix + attribute.name, to_text(attribute.value(object)));
        }
    }

    const Syntax& m_syntax;
    std::string m_text;
};

std::string assignments(const AnswerSources& sources, const Syntax& syntax) {
    Assignments result(syntax);
    result.add_package(sources);
    return result.text();
}

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

/// The right-hand side of := that gives a make variable exactly `value`.
std::string make_quoted(const std::string& value) {
    constexpr const char* EMPTY = "$(vemo_empty)";
    constexpr const char* WHITESPACE = " \t\v\f\r";

    std::string text;
    // Whitespace before a value does not belong to it.
    if (value.find_first_of(WHITESPACE) == 0) {
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
    // the line break, and editors remove whitespace.
    if (!value.empty()
        && std::string(WHITESPACE).append("\\").find(value.back()) != std::string::npos) {
        text += EMPTY;
    }
    return text;
}

std::string cmake_quoted(const std::string& value) {
    std::string word = "\"";
    for (const char c : value) {
        if (c == '\n') {
            word += "\\n";
        } else if (c == '\r') {
            word += "\\r";  // one before a newline would be taken for a part of the line break
        } else {
            // At signs begin a reference only under old policies.
            word += std::string("\\\"$@").find(c) == std::string::npos ? "" : "\\";
            word += c;
        }
    }
    return word + "\"";
}

std::string tcl_quoted(const std::string& value) {
    // The escapes of a JSON string mean the same to Tcl.
    std::string string;
    append_json_string(string, value, JsonCharacters::Ascii);
    std::string word;
    for (const char c : string) {
        word += std::string("$[]").find(c) == std::string::npos ? "" : "\\";
        word += c;
    }
    return word;
}

}  // namespace

std::string shell_dump(const AnswerSources& sources) {
    return assignments(sources, {"", "=", shell_quoted, "\n"});
}

std::string make_dump(const AnswerSources& sources) {
    // The two empty lines between define and endef are one newline.
    return "vemo_empty :=\ndefine vemo_newline\n\n\nendef\n"
           + assignments(sources, {"", " := ", make_quoted, "\n"});
}

std::string cmake_dump(const AnswerSources& sources) {
    return assignments(sources, {"set(", " ", cmake_quoted, ")\n"});
}

std::string tcl_dump(const AnswerSources& sources) {
    return assignments(sources, {"set ", " ", tcl_quoted, "\n"});
}

}  // namespace vemo::dump
