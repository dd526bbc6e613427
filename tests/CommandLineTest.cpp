#include <cstdlib>

#include <sys/wait.h>
#include <tinyxml2.h>

#include "Testing.h"
#include "Xml.h"

namespace {

/// Runs the tool in a directory that holds a board package.
struct CommandLine : ::testing::Test {
    CommandLine() {
        dir.write("board_spec.xml", BOARD);
        dir.write("dev.xml", DEVICE_MODEL);
        dir.write("tm.xml", TARGET_MODEL);
    }

    /// Standard output of a shell command, in which $TOOL is the tool, and in brackets its status.
    std::string run(const std::string& command) const {
        const int status = std::system(("unset VEMOSDKROOT; TOOL=" VEMO_TOOL "; cd " + dir.path
                                        + " && ( " + command + " ) >out 2>err")
                                           .c_str());
        return dir.read("out") + "[" + std::to_string(WEXITSTATUS(status)) + "]";
    }

    TempDir dir;
};

const std::string ABORTED = "[134]";

/// The end of the output of a failed load.
std::string failed(const std::string& file) {
    return "Error: Failed to load xml file: " + file
           + "\nMake sure the Board Package is compatible with the current edition\n[1]";
}

}  // namespace

TEST_F(CommandLine, AnswersEveryCommand) {
    for (const std::string& line : split(R"(name = acme
version = 17.1
devicemodel = dev.xml
targetmodel = tm.xml
resolved_devicemodel = ./dev.xml
resolved_targetmodel = ./tm.xml
project = top1
revision = rev1
lomb_file = sys1.lomb
generic_kernel = 1
generate_cmd = gen1
synthesize_cmd = syn1 &&  echo "x"
automigrate_type = auto
automigrate_include = in1
automigrate_exclude = ex1
numglobalmems = 2
numcompileflows = 2
compileflownames = alpha, zeta
has_snoop = 0
globalmemnames = DDR, QDR
channelnames = eth_in, eth_out
defaultname = zeta
project:alpha = top2
generic_kernel:alpha = 0
automigrate_exclude:alpha = 
synthesize_cmd::alpha:zeta = syn2
name:zeta = acme)",
                                         "\n")) {
        const std::vector<std::string> parts = split(line, " = ");
        EXPECT_EQ(run("cd /; $TOOL " + dir.path + "/board_spec.xml " + parts[0]),
                  fill(parts[1], {{"./", dir.path + "/"}}) + "[0]")
            << line;
    }
    dir.write("board_spec.xml",
              edit(edit(BOARD, "<channels>...</channels>", ""), "\"irq\"", "\"streamsource\""));
    EXPECT_EQ(run("$TOOL board_spec.xml channelnames"), "[0]");
    EXPECT_EQ(run("$TOOL board_spec.xml has_snoop"), "1[0]");
    dir.write("board_spec.xml", BOARD_09);
    EXPECT_EQ(run("$TOOL board_spec.xml version"), "0.9[0]");
    EXPECT_EQ(run("$TOOL board_spec.xml resolved_devicemodel"), "dev.xml[0]");
}

TEST_F(CommandLine, RefusesOtherCommands) {
    for (const char* command :
         {"$TOOL", "$TOOL board_spec.xml", "$TOOL board_spec.xml name name"}) {
        EXPECT_EQ(run(command),
                  "Error: Usage: vemo-boardspec <path-to-board_spec.xml> <command>\n[1]");
    }
    for (const char* suffix : {":", "::", "name:", ":zeta", "name:Zeta", "name:zeta2"}) {
        const std::vector<std::string> pieces = split(suffix, "name:");
        const std::string flow = pieces.back() == suffix ? "" : pieces.back();
        EXPECT_EQ(run(std::string("$TOOL board_spec.xml ") + suffix),
                  "Error: Could not find the BSP " + flow + " in board_spec.xml!\n[1]");
    }
    const std::string listing = fill(
        " - Unknown command. Use one of the following commands:|"
        "automigrate_exclude|automigrate_include|automigrate_type|channelnames|compileflownames|"
        "defaultname|devicemodel|generate_cmd|generic_kernel|globalmemnames|has_snoop|lomb_file|"
        "name|numcompileflows|numglobalmems|project|resolved_devicemodel|resolved_targetmodel|"
        "revision|synthesize_cmd|targetmodel|version|"
        "project=|revision=|lomb_file=|generic_kernel=|generate_cmd=|synthesize_cmd=|automigrate_"
        "type=|automigrate_include=|automigrate_exclude=|",
        {{"=", ":<compile-flow-name>"}, {"|", "\n"}});
    EXPECT_EQ(run("$TOOL board_spec.xml bogus:alpha"), "Error: bogus" + listing + "\n[1]");
    EXPECT_EQ(run("$TOOL board_spec.xml ''"), "Error: " + listing + "\n[1]");
    EXPECT_EQ(run("$TOOL board_spec.xml Name"), "Error: Name" + listing + "\n[1]");
}

TEST_F(CommandLine, ReportsFilesThatFail) {
    const std::pair<const char*, std::string> files[] = {
        {"board_spec.xml", "./board_spec.xml"}, {"dev.xml", "dev.xml"}, {"tm.xml", "tm.xml"}};
    for (const auto& [file, name] : files) {
        const std::string path =
            std::string("../") + dir.path.substr(dir.path.rfind('/') + 1) + "/";
        const std::string good = dir.read(file);
        const std::string command = "$TOOL " + path + "board_spec.xml name";
        const std::string shown = file == std::string("board_spec.xml") ? path + file : file;
        const std::string source = file == std::string("board_spec.xml") ? path + file : file;
        dir.write(file, "<x/>");
        EXPECT_EQ(run(command),
                  "Error in '" + source + "', line 1\nUnexpected element 'x'.\n" + failed(shown));
        dir.write(file, "<a></b>");
        tinyxml2::XMLDocument doc;
        doc.LoadFile((dir / file).c_str());
        const std::string parse_error = std::string("ERROR FOUND: ") + doc.ErrorName()
                                        + "\nXML error: " + doc.ErrorName() + ", " + doc.ErrorStr()
                                        + "\n";
        EXPECT_EQ(run(command), parse_error + failed(shown));
        EXPECT_EQ(run(command + " | cat"), edit(parse_error + failed(shown), "[1]", "[0]"));
        std::remove((dir / file).c_str());
        EXPECT_EQ(run(command).substr(0, 40), "ERROR FOUND: XML_ERROR_FILE_NOT_FOUND\nXM");
        dir.write(file, good);
    }
    dir.write("board_spec.xml", edit(BOARD, "encoding=\"7\"", "encoding=\"8\""));
    EXPECT_EQ(run("$TOOL board_spec.xml name"), failed("board_spec.xml"));
    dir.write("board_spec.xml", edit(BOARD, "0x100002000", "0x100000000"));
    EXPECT_EQ(run("$TOOL board_spec.xml name"), ABORTED);
    EXPECT_NE(dir.read("err").find("size > 0"), std::string::npos);
}

TEST_F(CommandLine, TellsOutputThatCannotBeWritten) {
    for (const char* command :
         {"$TOOL board_spec.xml name >/dev/full", "$TOOL board_spec.xml name >&-",
          "$TOOL none.xml name >/dev/full", "$TOOL >/dev/full"}) {
        EXPECT_EQ(run(command), "[1]") << command;
        const std::vector<std::string> lines = split(dir.read("err"), "\n");
        EXPECT_EQ(lines.size(), 2u) << dir.read("err");
        EXPECT_EQ(lines[0].rfind("vemo-boardspec: cannot write to standard output", 0), 0u)
            << lines[0];
    }
}

TEST_F(CommandLine, FindsModelsOfExamples) {
    for (const char* answers :
         {"teasel 17.1 pb3180.xml", "sedge 14.1 sdk/share/models/dm/pa2300.xml",
          "marl 0.9 sdk/share/models/dm/oc1800.xml"}) {
        const std::vector<std::string> parts = split(answers, " ");
        const std::string tool =
            "cd " VEMO_EXAMPLES "; export VEMOSDKROOT=sdk; $TOOL " + parts[0] + "/board_spec.xml ";
        EXPECT_EQ(run(tool + "version"), parts[1] + "[0]");
        EXPECT_EQ(run(tool + "resolved_devicemodel"),
                  (parts[0] == "teasel" ? "teasel/" : "") + parts[2] + "[0]");
    }
}
