#include "Xml.h"

namespace {

struct CommandLine : ShellTest {
    CommandLine() : ShellTest("tool", "VEMO_TOOL", VEMO_TOOL) {}

    /// Standard output of a command, and its exit status in brackets.
    std::string output(const std::string& command) const {
        const int status = run(command);
        return dir.read("out") + "[" + std::to_string(status) + "]";
    }

    /// Runs cases of the form `arguments => output` in turn; "\n" stands for a line break.
    void expect_outputs(const std::string& start, const std::string& cases) const {
        for (const std::string& line : split(cases, "\n")) {
            const std::vector<std::string> parts = split(line, " => ");
            if (parts.size() == 2) {
                EXPECT_EQ(output(start + parts[0]), fill(parts[1], {{"\\n", "\n"}})) << line;
            }
        }
    }
};

}  // namespace

TEST_F(CommandLine, AnswersEveryCommand) {
    expect_outputs("./tool board_spec.xml ", R"(
name => acme[0]
version => 17.1[0]
devicemodel => dev.xml[0]
targetmodel => tm.xml[0]
resolved_devicemodel => dev.xml[0]
resolved_targetmodel => tm.xml[0]
project => top1[0]
revision => rev1[0]
lomb_file => sys1.lomb[0]
generic_kernel => 1[0]
generate_cmd => gen1[0]
synthesize_cmd => syn1 &&  echo "x"[0]
automigrate_type => auto[0]
automigrate_include => in1[0]
automigrate_exclude => ex1[0]
numglobalmems => 2[0]
numcompileflows => 2[0]
compileflownames => alpha, zeta[0]
has_snoop => 0[0]
globalmemnames => DDR, QDR[0]
channelnames => eth_in, eth_out[0]
defaultname => zeta[0]
project:alpha => top2[0]
generic_kernel:alpha => 0[0]
automigrate_exclude:alpha => [0]
synthesize_cmd::alpha:zeta => syn2[0]
name:zeta => acme[0]
: => Error: Could not find the BSP  in board_spec.xml!\n[1]
name: => Error: Could not find the BSP  in board_spec.xml!\n[1]
:zeta => Error: Could not find the BSP  in board_spec.xml!\n[1]
name:Zeta => Error: Could not find the BSP Zeta in board_spec.xml!\n[1]
bogus:nosuch:zeta => Error: Could not find the BSP nosuch in board_spec.xml!\n[1]
)");
    expect_outputs("./tool ", R"(
 => Error: Usage: vemo-boardspec <path-to-board_spec.xml> <command>\n[1]
board_spec.xml => Error: Usage: vemo-boardspec <path-to-board_spec.xml> <command>\n[1]
board_spec.xml name name => Error: Usage: vemo-boardspec <path-to-board_spec.xml> <command>\n[1]
)");
    const std::string silent = edit(BOARD, "<channels>...</channels>", "");
    dir.write("board_spec.xml", edit(silent, "\"irq\"", "\"streamsource\""));
    expect_outputs("./tool board_spec.xml ", "channelnames => [0]\nhas_snoop => 1[0]");
    dir.write("board_spec.xml", BOARD_09);
    expect_outputs("./tool board_spec.xml ", R"(
version => 0.9[0]
defaultname => default[0]
project => top[0]
revision => top[0]
lomb_file => system.lomb[0]
generic_kernel => 0[0]
synthesize_cmd => fendra_sh --flow compile top[0]
automigrate_type => auto[0]
automigrate_include => [0]
automigrate_exclude => [0]
)");
    EXPECT_EQ(output("./tool board_spec.xml generate_cmd"),
              "kitforge --component-file=system.lomb --file-set=FENDRA_SYNTH "
              "--output-directory=system/synthesis "
              "--report-file=zrk:system/synthesis/system.zrk --jvm-max-heap-size=3G[0]");
}

TEST_F(CommandLine, ListsCommandsOnUnknownOne) {
    const std::string listing = fill(
        " - Unknown command. Use one of the following commands:|"
        "automigrate_exclude|automigrate_include|automigrate_type|channelnames|compileflownames|"
        "defaultname|devicemodel|generate_cmd|generic_kernel|globalmemnames|has_snoop|lomb_file|"
        "name|numcompileflows|numglobalmems|project|resolved_devicemodel|resolved_targetmodel|"
        "revision|synthesize_cmd|targetmodel|version|project=|revision=|lomb_file=|generic_kernel=|"
        "generate_cmd=|synthesize_cmd=|automigrate_type=|automigrate_include=|automigrate_exclude="
        "|",
        {{"=", ":<compile-flow-name>"}, {"|", "\n"}});
    EXPECT_EQ(output("./tool board_spec.xml bogus:alpha"), "Error: bogus" + listing + "\n[1]");
    EXPECT_EQ(output("./tool board_spec.xml ''"), "Error: " + listing + "\n[1]");
}

TEST_F(CommandLine, ReportsFilesThatFail) {
    dir.write("silent.xml", edit(BOARD, "encoding=\"7\"", "encoding=\"8\""));
    dir.write("size.xml", edit(BOARD, "0x100002000", "0x100000000"));
    const std::string cases = R"(
./tool none.xml name | cut -d, -f1 => <FILE_NOT_FOUND>{none.xml}[0]
echo "<a></b>" >bad.xml; ./tool bad.xml name | cut -d, -f1 => <MISMATCHED_ELEMENT>{bad.xml}[0]
./tool bad.xml name >/dev/null => [1]
mkfifo pipe; timeout 9 ./tool pipe name >/dev/null => [1]
echo "<x/>" >bad.xml; ./tool bad.xml name => x in 'bad.xml'{bad.xml}[1]
./tool silent.xml name => {silent.xml}[1]
./tool size.xml name => [134]
mkdir p; mv board_spec.xml dev.xml tm.xml p => [0]
./tool p/board_spec.xml resolved_targetmodel => p/tm.xml[0]
echo "<x/>" >p/tm.xml; ./tool p/board_spec.xml name => x in 'p/tm.xml'{tm.xml}[1]
echo "<x/>" >p/dev.xml; ./tool p/board_spec.xml name => x in 'p/dev.xml'{dev.xml}[1]
rm p/dev.xml; ./tool p/board_spec.xml name | cut -d, -f1 => <FILE_NOT_FOUND>{dev.xml}[0]
)";
    // What `cut` takes away is the XML library's.
    expect_outputs(
        "",
        fill(cases, {{"=> <FILE", "=> ERROR FOUND: XML_ERROR_FILE_NOT_FOUND\\nXML error: <FILE"},
                     {"=> <MIS", "=> ERROR FOUND: XML_ERROR_MISMATCHED_ELEMENT\\nXML error: <MIS"},
                     {": <", ": XML_ERROR_"},
                     {">{", "\\n{"},
                     {"x in '", "Error in '"},
                     {"'{", "', line 1\\nUnexpected element 'x'.\\n{"},
                     {"{", "Error: Failed to load xml file: "},
                     {"}",
                      "\\nMake sure the Board Package is compatible with the current "
                      "edition\\n"}}));
}
