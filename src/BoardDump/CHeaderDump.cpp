#include "BoardDump/CHeaderDump.h"

#include <algorithm>
#include <cinttypes>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <set>
#include <string_view>
#include <vector>

#include "BoardDump/FlowSources.h"
#include "BoardSpec/Words.h"

namespace vemo::dump {
namespace {

/// `text` in upper case, with one underscore for characters that cannot be part of an identifier.
/// There is none at either end. May be empty, or begin with a digit.
std::string identifier_part(const std::string& text) {
    constexpr std::size_t MAX_SIZE = 32;  // compilers need not distinguish longer identifiers
    std::string part;
    bool is_separated = false;
    for (const char c : text) {
        if (part.size() + (is_separated ? 1 : 0) >= MAX_SIZE) {
            break;
        }
        const bool is_lower = c >= 'a' && c <= 'z';
        if (is_lower || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) {
            if (is_separated && !part.empty()) {
                part += '_';
            }
            part += is_lower ? static_cast<char>(c - 'a' + 'A') : c;
            is_separated = false;
        } else {
            is_separated = true;
        }
    }
    return part;
}

/// The identifier of item `index` of a kind, for the names of its macros. `taken` are the
/// identifiers of the kind so far.
std::string take_part(const std::string& name, std::size_t index, std::set<std::string>& taken) {
    const std::string number = std::to_string(index);
    std::string part = identifier_part(name);
    if (part.empty()) {
        part = number;
    }
    while (!taken.insert(part).second) {
        part += "_" + number;
    }
    return part;
}

void append_character(std::string& out, char c) {
    const bool is_plain = c >= ' ' && c < 0x7f;
    if (!is_plain) {
        char escape[sizeof "\\377"];  // three digits end the escape, whatever follows
        std::snprintf(escape, sizeof escape, "\\%03o", static_cast<unsigned>(c) & 0xffU);
        out += escape;
    } else {
        // A question mark can begin a trigraph.
        out += std::string("\"'\\?").find(c) == std::string::npos ? "" : "\\";
        out += c;
    }
}

std::string number_text(std::size_t number) { return std::to_string(number) + "u"; }

std::string hex_text(std::uint64_t number) {
    char text[sizeof "0x0123456789abcdefu"];
    std::snprintf(text, sizeof text, "0x%08" PRIx64 "u", number);
    return text;
}

/// Collects the lines of the header.
class Header {
public:
    void add_line(const std::string& line) { m_text += line + "\n"; }

    void add_section(const char* comment) {
        add_line("");
        add_line(std::string("/* ") + comment + " */");
    }

    void define(const std::string& macro, const std::string& value) {
        add_line("#define " + macro + " " + value);
    }

    void define_text(const std::string& name, std::string_view text) {
        constexpr std::size_t MAX_LITERAL_SIZE = 4095;  // what every compiler must support
        const bool is_literal = text.size() <= MAX_LITERAL_SIZE;
        m_text += is_literal ? "#define " + name + " \"" : "static const char " + name + "[] = {";
        for (const char c : text) {
            m_text += is_literal ? "" : "'";
            append_character(m_text, c);
            m_text += is_literal ? "" : "', ";
        }
        m_text += is_literal ? "\"\n" : "0};\n";
    }

    /// The macros for all `items` of a kind, whose names `name_of` gives. `define_item` adds those
    /// for an item that begin with a prefix, behind its index and its name. (None of these ends in
    /// "_" and another, so that the macros of different items are different.)
    template <typename Item, typename NameOf, typename DefineItem>
    void define_all(const std::string& kind, const std::string& plural,
                    const std::vector<Item>& items, NameOf name_of, DefineItem define_item) {
        std::set<std::string> taken;
        std::string list;
        define("VEMO_NUM_" + plural, number_text(items.size()));
        for (std::size_t i = 0; i < items.size(); ++i) {
            const std::string part = take_part(name_of(items[i]), i, taken);
            std::string prefix = "VEMO_" + kind + "_";
            prefix.append(part).append("_");
            define(prefix + "INDEX", number_text(i));
            define_text(prefix + "NAME", name_of(items[i]));
            define_item(prefix, items[i]);
            list += " \\\n    X(" + part + ")";
        }
        add_line("#define VEMO_FOR_EACH_" + kind + "(X)" + list);
    }

    const std::string& text() const { return m_text; }

private:
    std::string m_text;
};

void define_memories(Header& header, const board::BoardSpec& spec) {
    header.add_section(
        "Global memories, the default one first: lowest byte address, size of all\n"
        " * interfaces in bytes, data width in bits.");
    header.define_all(
        "MEMORY", "MEMORIES", spec.get_global_mem_configs(),
        [](const auto* memory) { return memory->name; },
        [&header](const std::string& prefix, const board::GlobalMemConfig* memory) {
            std::uint64_t base = memory->get_min_byte_address();
            std::uint64_t size = 0;
            unsigned width = 0;
            for (const board::Interface* intf : memory->get_interfaces()) {
                base = std::min<std::uint64_t>(base, intf->address);
                size += intf->get_size();
                width = intf->get_data_width();  // the same for all
            }
            header.define_text(prefix + "TYPE", board::MEMORY_TYPE_WORDS[memory->get_type()]);
            header.define(prefix + "BASE", hex_text(base));
            header.define(prefix + "SIZE", hex_text(size));
            header.define(prefix + "WIDTH", number_text(width));
        });
}

void define_channels(Header& header, const board::BoardSpec& spec) {
    header.add_section("Streaming channels, by chan_id: data width in bits.");
    header.define_all(
        "CHANNEL", "CHANNELS",
        spec.has_channel_config() ? spec.get_channel_config().get_interfaces()
                                  : std::vector<board::Interface*>(),
        [](const auto* intf) { return intf->chan_id; },
        [&header](const std::string& prefix, const board::Interface* intf) {
            header.define_text(prefix + "TYPE", board::INTERFACE_TYPE_WORDS[intf->type]);
            header.define(prefix + "WIDTH", number_text(intf->get_data_width()));
        });
}

void define_flows(Header& header, const AnswerSources& sources) {
    header.add_section("Compile flows, the default one first.");
    header.define_all(
        "FLOW", "FLOWS", sources_of_flows(sources),
        [](const AnswerSources& flow) { return flow.flow->name; },
        [&header](const std::string& prefix, const AnswerSources& flow) {
            for (const std::string command : COMPILE_FLOW_COMMANDS) {
                const std::string macro = prefix + identifier_part(command);
                const std::string answer = *find_answer(command, flow);
                if (command == "generic_kernel") {
                    header.define(macro, answer);
                } else {
                    header.define_text(macro, answer);
                }
            }
        });
}

}  // namespace

std::string c_dump(const AnswerSources& sources) {
    const board::BoardSpec& spec = *sources.spec;
    const std::string part = identifier_part(spec.name);
    const std::string guard = "VEMO_BOARD_" + (part.empty() ? "" : part + "_") + "H";
    Header header;
    header.add_line("/* Generated by vemo-boardspec-dump. */");
    header.add_line("#ifndef " + guard);
    header.add_line("#define " + guard);
    header.add_section("The board, and the version of its file format.");
    header.define_text("VEMO_BOARD_NAME", spec.name);
    header.define_text("VEMO_BOARD_VERSION", to_string(spec.version));
    header.add_section("The host's window on the kernel: byte address, size in bytes.");
    const board::HostConfig& host = spec.get_host_config();
    header.define("VEMO_KERNEL_CONFIG_START", hex_text(host.kernel_config_start));
    header.define("VEMO_KERNEL_CONFIG_SIZE", hex_text(host.get_kernel_config_size()));
    define_memories(header, spec);
    define_channels(header, spec);
    define_flows(header, sources);
    header.add_line("\n#endif");
    return header.text();
}

}  // namespace vemo::dump
