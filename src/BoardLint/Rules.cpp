#include "BoardLint/Rules.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "BoardLint/FindingText.h"

namespace vemo::lint {
namespace {

constexpr std::size_t LINE_WIDTH = 79;

constexpr Rule RULES[] = {
    // Errors in names.
    {"unknown-attribute", Severity::Error, "An element has an attribute that it cannot have",
     "The file formats define the attributes of each element. Any other attribute is an error, so "
     "that a misspelt name cannot be overlooked. Names are case-sensitive.",
     R"(<kernel_config start="0x0" size="0x100000" Size="1"/>)",
     R"(<kernel_config start="0x0" size="0x100000"/>)"},
    {"missing-attribute", Severity::Error, "An element lacks a required attribute",
     "Some attributes are required only in certain places: the interface of a global memory needs "
     "an address, a kernel interface does not. A flow needs a name from format 17.0 on.",
     R"(<kernel_config size="0x100000"/>)", R"(<kernel_config start="0x0" size="0x100000"/>)"},
    {"unexpected-element", Severity::Error, "An element is unknown or in the wrong place",
     "Each element of a format has one place, and names are case-sensitive. Interfaces of kernels "
     "and channels have no port elements: they name their port with the attribute port.",
     R"(<host>
  <kernel_window start="0x0" size="0x100000"/>
</host>)",
     R"(<host>
  <kernel_config start="0x0" size="0x100000"/>
</host>)"},
    {"missing-element", Severity::Error, "A required element is missing",
     "vemo-boardspec reports a missing element at its parent, and in some cases for the file as a "
     "whole. A flow of format 17.0 or later without generate, synthesize or auto_migrate makes it "
     "abort.",
     R"(<host/>)",
     R"(<host>
  <kernel_config start="0x0" size="0x100000"/>
</host>)"},
    {"repeated-element", Severity::Error, "An element occurs too often",
     "The element can occur only once in its parent. A flow of format 17.0 or later in which "
     "generate, synthesize or auto_migrate is repeated makes vemo-boardspec abort.",
     R"(<host>
  <kernel_config start="0x0" size="0x100000"/>
  <kernel_config start="0x100000" size="0x100000"/>
</host>)",
     R"(<host>
  <kernel_config start="0x0" size="0x200000"/>
</host>)"},

    // Errors in values.
    {"wrong-type", Severity::Error, "A value does not have the type of its attribute",
     "Counts consist of decimal digits only. Addresses and sizes can also be hexadecimal with the "
     "prefix 0x, or octal with the prefix 0. They can be preceded but not followed by spaces.",
     R"(<kernel_config start="0x0" size="1 MiB"/>)",
     R"(<kernel_config start="0x0" size="0x100000"/>)"},
    {"unknown-word", Severity::Error, "A value is not one of the words that are allowed",
     "Words are case-sensitive, and spaces around them count.",
     R"(<auto_migrate platform_type="Auto"/>)", R"(<auto_migrate platform_type="auto"/>)"},
    {"out-of-range", Severity::Error, "A number is outside its range",
     "Widths, bursts, sizes and clock frequencies must be above 0, bandwidths and fmax figures "
     "must not be negative. vemo-boardspec aborts on the size of an interface that is a multiple "
     "of 4 GiB, and on most floats that are not a number (nan).",
     R"(<fmax expected="0" min="150"/>)", R"(<fmax expected="240" min="150"/>)"},
    {"empty-value", Severity::Error, "The name of a file is empty",
     "A device model must name its target model, and a target model its style models.",
     R"(<style_model file=""/>)", R"(<style_model file="peltrab_style.xml"/>)"},
    {"unsupported-version", Severity::Error, "The version of the file format is not supported",
     "Board files have version 0.9, or 14.1 or later. Device models and target models have version "
     "0.9, spelled exactly like that.",
     R"(<board version="13.0" name="teasel"> ... </board>)",
     R"(<board version="17.1" name="teasel"> ... </board>)"},

    // Errors in the combination of elements.
    {"compile-before-14.1", Severity::Error, "A board file of version 0.9 has compile flows",
     "Compile flows exist from version 14.1 on. A board of version 0.9 has one built-in flow.",
     R"(<board version="0.9" name="teasel"> ... </board>)",
     R"(<board version="17.1" name="teasel"> ... </board>)"},
    {"missing-port", Severity::Error, "An interface has no port",
     "An interface names its port with the attribute port. The interface of a global memory can "
     "have port elements instead, for example one for reading and one for writing.",
     R"(<interfaces>
  <interface name="shell" type="irq" width="1"/>
  <kernel_clk_reset clk="kclk" reset="kreset"/>
</interfaces>)",
     R"(<interfaces>
  <interface name="shell" port="done" type="irq" width="1"/>
  <kernel_clk_reset clk="kclk" reset="kreset"/>
</interfaces>)"},
    {"wrong-interface-type", Severity::Error, "The type of an interface does not fit its place",
     "Interfaces of global memories are slaves. Channels are of type streamsource or streamsink.",
     R"(<channels>
  <interface name="net" port="rx" type="master" width="256" chan_id="in"/>
</channels>)",
     R"(<channels>
  <interface name="net" port="rx" type="streamsource" width="256" chan_id="in"/>
</channels>)"},
    {"interface-widths-differ", Severity::Error,
     "The interfaces of a global memory differ in data width",
     "All interfaces of one global memory must have the same width. Interfaces of different widths "
     "belong to different memories.",
     R"(<global_mem name="DDR" max_bandwidth="34128">
  <interface name="a" port="a" type="slave" width="512" address="0x0" size="0x1000"/>
  <interface name="b" port="b" type="slave" width="256" address="0x1000" size="0x1000"/>
</global_mem>)",
     R"(<global_mem name="DDR" max_bandwidth="34128">
  <interface name="a" port="a" type="slave" width="512" address="0x0" size="0x1000"/>
  <interface name="b" port="b" type="slave" width="512" address="0x1000" size="0x1000"/>
</global_mem>)"},
    {"interface-bursts-differ", Severity::Error,
     "The interfaces of a global memory differ in maximum burst count",
     "All interfaces of one global memory must have the same maxburst. It is 1 where the "
     "attribute is missing.",
     R"(<global_mem name="DDR" max_bandwidth="34128">
  <interface name="a" port="a" type="slave" width="64" maxburst="8" address="0x0" size="0x1000"/>
  <interface name="b" port="b" type="slave" width="64" address="0x1000" size="0x1000"/>
</global_mem>)",
     R"(<global_mem name="DDR" max_bandwidth="34128">
  <interface name="a" port="a" type="slave" width="64" maxburst="8" address="0x0" size="0x1000"/>
  <interface name="b" port="b" type="slave" width="64" maxburst="8" address="0x1000" size="0x1000"/>
</global_mem>)"},
    {"unnamed-memory", Severity::Error, "One of several global memories has no name",
     "A board with a single global memory need not name it. Of several, each needs a name that is "
     "not empty.",
     R"(<global_mem name="DDR" max_bandwidth="34128">
  <interface name="a" port="a" type="slave" width="512" address="0x0" size="0x1000"/>
</global_mem>
<global_mem max_bandwidth="8532">
  <interface name="b" port="b" type="slave" width="128" address="0x1000" size="0x1000"/>
</global_mem>)",
     R"(<global_mem name="DDR" max_bandwidth="34128">
  <interface name="a" port="a" type="slave" width="512" address="0x0" size="0x1000"/>
</global_mem>
<global_mem name="SRAM" max_bandwidth="8532">
  <interface name="b" port="b" type="slave" width="128" address="0x1000" size="0x1000"/>
</global_mem>)"},
    {"memory-overlap", Severity::Error, "The address ranges of two global memories overlap",
     "The range of a memory extends from the address of its first interface in the file to the "
     "highest last byte of all its interfaces, modulo 4 GiB. One shared boundary byte is accepted.",
     R"(<global_mem name="DDR" max_bandwidth="34128">
  <interface name="a" port="a" type="slave" width="512" address="0x0" size="0x2000"/>
</global_mem>
<global_mem name="SRAM" max_bandwidth="8532">
  <interface name="b" port="b" type="slave" width="128" address="0x1000" size="0x1000"/>
</global_mem>)",
     R"(<global_mem name="DDR" max_bandwidth="34128">
  <interface name="a" port="a" type="slave" width="512" address="0x0" size="0x1000"/>
</global_mem>
<global_mem name="SRAM" max_bandwidth="8532">
  <interface name="b" port="b" type="slave" width="128" address="0x1000" size="0x1000"/>
</global_mem>)"},
    {"empty-channel-id", Severity::Error, "The identifier of a channel is empty",
     "Kernels refer to a channel by its chan_id.",
     R"(<channels>
  <interface name="net" port="rx" type="streamsource" width="256" chan_id=""/>
</channels>)",
     R"(<channels>
  <interface name="net" port="rx" type="streamsource" width="256" chan_id="in"/>
</channels>)"},
    {"duplicate-channel-id", Severity::Error, "Two channels have the same identifier",
     "Kernels refer to a channel by its chan_id. Identifiers are case-sensitive.",
     R"(<channels>
  <interface name="net" port="rx" type="streamsource" width="256" chan_id="net"/>
  <interface name="net" port="tx" type="streamsink" width="256" chan_id="net"/>
</channels>)",
     R"(<channels>
  <interface name="net" port="rx" type="streamsource" width="256" chan_id="net_in"/>
  <interface name="net" port="tx" type="streamsink" width="256" chan_id="net_out"/>
</channels>)"},
    {"attributes-need-hazards", Severity::Error,
     "A port has an attribute_width without hazard_free_attributes=\"false\"",
     "A port whose attributes are free of hazards, which is the default, cannot have additional "
     "attribute bits.",
     R"(<global_mem max_bandwidth="8532">
  <interface name="a" type="slave" width="128" address="0x0" size="0x1000">
    <port name="p" direction="rw" attribute_width="2"/>
  </interface>
</global_mem>)",
     R"(<global_mem max_bandwidth="8532">
  <interface name="a" type="slave" width="128" address="0x0" size="0x1000">
    <port name="p" direction="rw" hazard_free_attributes="false" attribute_width="2"/>
  </interface>
</global_mem>)"},
    {"encoding-too-wide", Severity::Error,
     "The encoding of an attribute does not fit the attribute_width of its port",
     "An encoding must be less than 2 to the power of attribute_width. If attribute_width is 32 or "
     "more, every encoding is refused. vemo-boardspec fails without a message.",
     R"(<global_mem max_bandwidth="8532">
  <interface name="a" type="slave" width="128" address="0x0" size="0x1000">
    <port name="p" direction="rw" hazard_free_attributes="false" attribute_width="2">
      <attribute name="posted" encoding="4"/>
    </port>
  </interface>
</global_mem>)",
     R"(<global_mem max_bandwidth="8532">
  <interface name="a" type="slave" width="128" address="0x0" size="0x1000">
    <port name="p" direction="rw" hazard_free_attributes="false" attribute_width="2">
      <attribute name="posted" encoding="3"/>
    </port>
  </interface>
</global_mem>)"},

    // Errors of whole files.
    {"malformed-xml", Severity::Error, "A file is not XML",
     "Elements must be closed in the order in which they were opened, values must be quoted, and "
     "the characters & and < must be written as &amp; and &lt;. The file is not checked further.",
     R"(<kernel_config start="0x0" size=0x100000/>)",
     R"(<kernel_config start="0x0" size="0x100000"/>)"},
    {"model-not-found", Severity::Error, "A model file does not exist or cannot be read",
     "A model whose name does not begin with a slash is searched for in the working directory, "
     "beside the file that names it, and in share/models/dm (device models) or share/models/tm "
     "(target models) below the directory that VEMOSDKROOT names.",
     R"(<device device_model="nosuch.xml"> ... </device>)",
     R"(<device device_model="pb3180.xml"> ... </device>)"},

    // Warnings about values.
    {"dropped-bits", Severity::Warning, "An address or size above 32 bits loses its upper bits",
     "Addresses and sizes are read with 64 bits, but only the low 32 bits are kept.",
     R"(<global_mem max_bandwidth="34128">
  <interface name="a" port="a" type="slave" width="512" address="0x100000000" size="0x1000"/>
</global_mem>)",
     R"(<global_mem max_bandwidth="34128">
  <interface name="a" port="a" type="slave" width="512" address="0x80000000" size="0x1000"/>
</global_mem>)"},
    {"number-too-large", Severity::Warning, "A number is too large and replaced by the largest one",
     "Counts and the window of the host have 32 bits: larger numbers are read as 4294967295. "
     "Addresses and sizes above 64 bits are read as 2^64 - 1.",
     R"(<kernel_config start="0x0" size="0x100000000"/>)",
     R"(<kernel_config start="0x0" size="0xffffffff"/>)"},
    {"partly-read-number", Severity::Warning, "Text after a number is ignored",
     "Floats, the version of a board file and generic_kernel are read as far as they are numbers. "
     "Units have no effect, and neither has what follows a comma.",
     R"(<fmax expected="0.24 GHz" min="150"/>)", R"(<fmax expected="240" min="150"/>)"},
    {"wrapping-alms", Severity::Warning, "A number of ALMs is too large to be doubled",
     "An ALM counts as two logic elements, of which there can be up to 4294967295.",
     R"(<alms num="2147483648"/>)", R"(<alms num="46200"/>)"},
    {"too-many-resources", Severity::Warning, "The board uses more resources than the device has",
     "The used_resources of the board file are part of the resources in the device model. Logic is "
     "compared in logic elements, two for each ALM.",
     R"(<used_resources>
  <alms num="46200"/> <ffs num="98700"/> <dsps num="0"/> <rams num="2441"/>
</used_resources>)",
     R"(<used_resources>
  <alms num="46200"/> <ffs num="98700"/> <dsps num="0"/> <rams num="538"/>
</used_resources>)"},

    // Warnings about memories.
    {"duplicate-memory", Severity::Warning, "Two global memories have the same name",
     "A lookup by name finds the last one only.",
     R"(<global_mem name="DDR" max_bandwidth="34128">
  <interface name="a" port="a" type="slave" width="512" address="0x0" size="0x1000"/>
</global_mem>
<global_mem name="DDR" max_bandwidth="34128">
  <interface name="b" port="b" type="slave" width="512" address="0x1000" size="0x1000"/>
</global_mem>)",
     R"(<global_mem name="DDR1" max_bandwidth="34128">
  <interface name="a" port="a" type="slave" width="512" address="0x0" size="0x1000"/>
</global_mem>
<global_mem name="DDR2" max_bandwidth="34128">
  <interface name="b" port="b" type="slave" width="512" address="0x1000" size="0x1000"/>
</global_mem>)"},
    {"nested-memory", Severity::Warning, "A global memory is inside another one",
     "It becomes a memory of its own, to which all interfaces that follow belong, also those of "
     "the outer one.",
     R"(<global_mem name="DDR" max_bandwidth="34128">
  <interface name="a" port="a" type="slave" width="512" address="0x0" size="0x1000"/>
  <global_mem name="SRAM" max_bandwidth="8532">
    <interface name="b" port="b" type="slave" width="512" address="0x1000" size="0x1000"/>
  </global_mem>
</global_mem>)",
     R"(<global_mem name="DDR" max_bandwidth="34128">
  <interface name="a" port="a" type="slave" width="512" address="0x0" size="0x1000"/>
</global_mem>
<global_mem name="SRAM" max_bandwidth="8532">
  <interface name="b" port="b" type="slave" width="512" address="0x1000" size="0x1000"/>
</global_mem>)"},
    {"wrapping-range", Severity::Warning, "The address range of a memory interface exceeds 4 GiB",
     "Addresses have 32 bits, so the range continues at address 0, and overlaps of memories are "
     "not always detected.",
     R"(<global_mem max_bandwidth="34128">
  <interface name="a" port="a" type="slave" width="512" address="0xc0000000" size="0x80000000"/>
</global_mem>)",
     R"(<global_mem max_bandwidth="34128">
  <interface name="a" port="a" type="slave" width="512" address="0x80000000" size="0x80000000"/>
</global_mem>)"},
    {"unused-interleaving", Severity::Warning, "The interleaved_bytes of a memory have no effect",
     "Only a memory with several interfaces is interleaved.",
     R"(<global_mem max_bandwidth="34128" interleaved_bytes="1024">
  <interface name="a" port="a" type="slave" width="512" address="0x0" size="0x1000"/>
</global_mem>)",
     R"(<global_mem max_bandwidth="34128" interleaved_bytes="1024">
  <interface name="a" port="a" type="slave" width="512" address="0x0" size="0x1000"/>
  <interface name="b" port="b" type="slave" width="512" address="0x1000" size="0x1000"/>
</global_mem>)"},

    // Warnings about flows.
    {"duplicate-flow", Severity::Warning, "Two compile flows have the same name",
     "The last one replaces the others. Before format 17.0, all flows have the name default.",
     R"(<compile name="full" project="p" revision="a" lomb_file="a.lomb" generic_kernel="0">
  <generate cmd="generate"/> <synthesize cmd="run"/> <auto_migrate platform_type="none"/>
</compile>
<compile name="full" project="p" revision="b" lomb_file="b.lomb" generic_kernel="0">
  <generate cmd="generate"/> <synthesize cmd="run"/> <auto_migrate platform_type="none"/>
</compile>)",
     R"(<compile name="full" project="p" revision="a" lomb_file="a.lomb" generic_kernel="0">
  <generate cmd="generate"/> <synthesize cmd="run"/> <auto_migrate platform_type="none"/>
</compile>
<compile name="debug" project="p" revision="b" lomb_file="b.lomb" generic_kernel="0">
  <generate cmd="generate"/> <synthesize cmd="run"/> <auto_migrate platform_type="none"/>
</compile>)"},
    {"unusable-flow-name", Severity::Warning, "The name of a compile flow cannot be used",
     "Commands select a flow with a suffix, as in revision:full, so a name cannot be empty or "
     "contain a colon. Lists of flows separate the names with a comma and a space.",
     R"(<compile name="all, slow" project="p" revision="a" lomb_file="a.lomb" generic_kernel="0">
  <generate cmd="generate"/> <synthesize cmd="run"/> <auto_migrate platform_type="none"/>
</compile>)",
     R"(<compile name="all-slow" project="p" revision="a" lomb_file="a.lomb" generic_kernel="0">
  <generate cmd="generate"/> <synthesize cmd="run"/> <auto_migrate platform_type="none"/>
</compile>)"},

    // Warnings about what is not used.
    {"ignored-name", Severity::Warning, "The name of a compile flow is ignored before format 17.0",
     "Before format 17.0, every flow has the name default, regardless of its attribute name.",
     R"(<board version="14.1" name="teasel">
  <compile name="full" project="p" revision="a" lomb_file="a.lomb" generic_kernel="0"/>
  ...
</board>)",
     R"(<board version="17.1" name="teasel"> ... </board>)"},
    {"overridden-element", Severity::Warning, "An element is replaced by a later one",
     "Of several include or exclude elements, of generate or synthesize before format 17.0, and of "
     "alms and les, only the last one counts. The same holds for attributes of a port with the "
     "same name.",
     R"(<auto_migrate platform_type="auto">
  <include fixes="pin_swap"/>
  <include fixes="clock"/>
</auto_migrate>)",
     R"(<auto_migrate platform_type="auto">
  <include fixes="pin_swap clock"/>
</auto_migrate>)"},
    {"ignored-element", Severity::Warning, "An element has no effect in its position",
     "A port outside an interface, the attribute elements of a port without attribute_width, and "
     "interfaces in a port are ignored.",
     R"(<global_mem max_bandwidth="8532">
  <interface name="a" type="slave" width="128" address="0x0" size="0x1000">
    <port name="p" direction="rw"> <attribute name="posted" encoding="1"/> </port>
  </interface>
</global_mem>)",
     R"(<global_mem max_bandwidth="8532">
  <interface name="a" type="slave" width="128" address="0x0" size="0x1000">
    <port name="p" direction="rw" hazard_free_attributes="false" attribute_width="1">
      <attribute name="posted" encoding="1"/>
    </port>
  </interface>
</global_mem>)"},
    {"ignored-text", Severity::Warning, "Text between elements is ignored",
     "All data is in attributes. Put remarks into comments.",
     R"(<host>
  used by the driver
  <kernel_config start="0x0" size="0x100000"/>
</host>)",
     R"(<host>
  <!-- used by the driver -->
  <kernel_config start="0x0" size="0x100000"/>
</host>)"},
    {"shadowed-model", Severity::Warning,
     "A model in the working directory is used instead of the one beside the file",
     "Models are searched for in the working directory first, so the result depends on where a "
     "build runs. Give the models of a package names that no other package uses.",
     R"(<device device_model="model.xml"> ... </device>)",
     R"(<device device_model="pb3180.xml"> ... </device>)"},
};

/// Appends `text` in lines of at most LINE_WIDTH characters.
void append_wrapped(std::string_view text, std::string& out) {
    std::size_t column = 0;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(text.size(), word.size() + 1));
        if (column > 0) {
            const bool fits = column + 1 + word.size() <= LINE_WIDTH;
            out += fits ? ' ' : '\n';
            column = fits ? column + 1 : 0;
        }
        out += word;
        column += word.size();
    }
    out += '\n';
}

void append_indented(std::string_view lines, std::string& out) {
    while (!lines.empty()) {
        const std::string_view line = lines.substr(0, lines.find('\n'));
        lines.remove_prefix(std::min(lines.size(), line.size() + 1));
        out.append("    ").append(line) += '\n';
    }
}

}  // namespace

ArrayView<Rule> rules() { return RULES; }

const Rule* find_rule(std::string_view id) {
    const Rule* found = std::find_if(std::begin(RULES), std::end(RULES),
                                     [id](const Rule& rule) { return id == rule.id; });
    return found == std::end(RULES) ? nullptr : found;
}

std::string explain(const Rule& rule) {
    std::string out;
    append_wrapped(
        std::string(rule.id) + " (" + severity_name(rule.severity) + "): " + rule.summary + ".",
        out);
    out += '\n';
    append_wrapped(rule.explanation, out);
    out += "\nWrong:\n\n";
    append_indented(rule.wrong, out);
    out += "\nRight:\n\n";
    append_indented(rule.right, out);
    return out;
}

std::string list_rules() {
    std::string out;
    for (const Rule& rule : RULES) {
        out.append(rule.id).append("\t").append(severity_name(rule.severity));
        out.append("\t").append(rule.summary) += '\n';
    }
    return out;
}

}  // namespace vemo::lint
