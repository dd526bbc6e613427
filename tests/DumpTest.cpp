#include <nlohmann/json.hpp>

#include "BoardDump/CHeaderDump.h"
#include "BoardDump/JsonDump.h"
#include "BoardDump/TextDump.h"
#include "BoardPackage/BoardPackage.h"
#include "BoardSpec/Dump.h"
#include "TargetModel/Dump.h"
#include "Testing.h"
#include "Xml.h"

namespace {

/// A board with a command of all bytes, those that mean something to a reader among them.
std::string hostile_board() {
    std::string text;
    for (int byte = 1; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        const bool is_plain = std::string("&<>\"\t\n\r").find(c) == std::string::npos;
        text += is_plain ? std::string(1, c) : "&#" + std::to_string(byte) + ";";
    }
    return edit(BOARD, "syn1 ", text + "\xe2\x82");
}

struct Dump : ShellTest {
    Dump() : ShellTest("dump", "VEMO_DUMP", VEMO_DUMP) {}

    vemo::BoardPackage load() const { return vemo::BoardPackage(dir / "board_spec.xml"); }
    std::string text() const { return vemo::dump::text_dump(load().sources()); }
    nlohmann::json json() const {
        return nlohmann::json::parse(vemo::dump::json_dump(load().sources()));
    }
};

}  // namespace

TEST_F(Dump, MapsAddresses) {
    std::string board =
        edit(BOARD, "address=\"0x0\" size=\"0x1000\"", "address=\"0xfffff000\" size=\"0x2000\"");
    board = edit(board, "address=\"0x1000\" size", "address=\"0x1800\" size");
    dir.write("board_spec.xml", edit(board, "size=\"0x800\"", "size=\"0x2001\""));
    EXPECT_EQ(edit(edit(text(), "...Global memories:\n", ""), "\nPorts:...AR\n", ""),
              R"(  name  type             max bandwidth  interleaving  config addr  addresses
  DDR   shared physical          100.5  1 KiB x 2     0x00000018   0xfffff000-0x000027ff
  QDR   device private               0                             0x00002000-0x00004000

Address map:
      0x00000000-0x00000fff       4 KiB  DDR  d0.d0_r/d0_w (wrapped)
  --  0x00001000-0x000017ff       2 KiB  gap
      0x00001800-0x000027ff       4 KiB  DDR  d1.d1_p
      0x00002000-0x00004000  ~8.001 KiB  QDR  q.q_p
  !!  0x00002000-0x000027ff       2 KiB  overlap with DDR d1.d1_p
  --  0x00004001-0xffffefff      ~4 GiB  gap
      0xfffff000-0xffffffff       4 KiB  DDR  d0.d0_r/d0_w (wraps)
)");
}

TEST_F(Dump, ShortensNamesThatStandInManyRows) {
    const std::string beginning(63, 'n');
    dir.write("board_spec.xml", edit(BOARD, "\"QDR", "\"" + beginning + "\xc3\xa9nn"));
    const std::string tables = edit(text(), "Board specification...AR\n", "");
    EXPECT_EQ(split(tables, "  " + beginning + "...  ").size(), 4u) << tables;
}

TEST_F(Dump, TellsModelsInText) {
    EXPECT_EQ(fill(text(), {{dir.path + "/", ""}}), read_data("dump.txt"));
    const std::string board = edit(edit(BOARD, "\"0x800\"", "\"0xffffe000\""), "QDR", "QDRé");
    dir.write("board_spec.xml", edit(edit(board, "\"zeta\"", "\"\""), "\"acme\"", "\"\""));
    EXPECT_EQ(text().find("Board: (unnamed)\n\nDefault compile flow: (unnamed)\n"), 0U);
    EXPECT_EQ(split(split(text(), "Address map:\n").at(1), "\nPorts:").at(0),
              R"(  0x00000000-0x00000fff   4 KiB  DDR   d0.d0_r/d0_w
  0x00001000-0x00001fff   4 KiB  DDR   d1.d1_p
  0x00002000-0xffffffff  ~4 GiB  QDRé  q.q_p
)");
}

TEST_F(Dump, AssignsVariables) {
    dir.write("board_spec.xml", edit(BOARD, "syn2", " '\\#&quot;$[@&#13;&#10;\xff\\"));
    const std::pair<const char*, const char*> cases[] = {
        {"sh", "cmd=' '\\''\\#\"$[@\r\n\xff\\'\n"},
        {"make", "cmd := $(vemo_empty) '\\\\\\#\"$$[@\r$(vemo_newline)\xff\\$(vemo_empty)\n"},
        {"cmake", "cmd \" '\\\\#\\\"\\$[\\@\\r\\n\xff\\\\\")\n"},
        {"tcl", "cmd \" '\\\\#\\\"\\$\\[@\\r\\n\\ufffd\\\\\"\n"},
    };
    for (const auto& [format, line] : cases) {
        EXPECT_EQ(run(std::string("./dump --format=") + format + " board_spec.xml"), 0);
        const std::string text = dir.read("out");
        const std::size_t begin = text.find("flow_1_synthesize_");
        EXPECT_EQ(text.substr(begin + 18, std::string(line).size()), line);
        EXPECT_NE(text.find("channel_1_port_0_name"), std::string::npos);
    }
}

TEST_F(Dump, DefinesMacrosOfLegalNames) {
    std::string board = edit(edit(BOARD, "QDR", "ddr"), "\"alpha\"", "\"é\"");
    board = edit(board, "\"zeta\"", "\"-z__e?1-" + std::string(32, 'a') + "\"");
    dir.write("board_spec.xml", edit(board, "rev2", std::string(4096, 'x')));
    const std::string text = vemo::dump::c_dump(load().sources());
    for (const char* part : {
             "\n#define VEMO_MEMORY_DDR_NAME \"DDR\"\n",
             "\n#define VEMO_MEMORY_DDR_TYPE \"shared physical\"\n",
             "\n#define VEMO_MEMORY_DDR_BASE 0x00000000u\n",
             "\n#define VEMO_MEMORY_DDR_SIZE 0x00002000u\n",
             "\n#define VEMO_MEMORY_DDR_1_NAME \"ddr\"\n",
             "\n#define VEMO_CHANNEL_ETH_OUT_TYPE \"streamsink\"\n",
             "\n#define VEMO_FLOW_Z_E_1_AAAAAAAAAAAAAAAAAAAAAAAAAA_NAME \"-z__e\\?1-aaa",
             "\n#define VEMO_FLOW_1_NAME \"\\303\\251\"\n",
             "\nstatic const char VEMO_FLOW_1_REVISION[] = {'x', 'x', 'x'",
             "A) \\\n    X(1)\n",
         }) {
        EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
    }
    dir.write("board_spec.xml", BOARD_14);
    EXPECT_NE(vemo::dump::c_dump(load().sources()).find("VEMO_FOR_EACH_CHANNEL(X)\n"),
              std::string::npos);
}

TEST_F(Dump, IsCleanWhateverFilesContain) {
    dir.write("board_spec.xml", edit(hostile_board(), "\"100.5\"", "\"inf\""));
    const auto whole = json();
    const std::string command = whole["answers"]["synthesize_cmd"];
    EXPECT_EQ(command.substr(0, 10), "\1\2\3\4\5\6\a\b\t\n");
    EXPECT_EQ(command.find("\x7f\xef\xbf\xbd"), 0x7eU);
    EXPECT_EQ(whole["board"]["global_mem"][0]["max_bandwidth"], nullptr);
    EXPECT_EQ(text().find_first_of("\x1b\r\x7f"), std::string::npos);
}

TEST_F(Dump, TellsModelsInJson) {
    // Every field has a value of its own.
    const auto whole = json();
    const std::pair<const char*, const char*> parts[] = {
        {"/flows/1",
         R"({"automigrate_exclude":"","automigrate_include":"","automigrate_type":"pb_net",)"
         R"("generate_cmd":"gen2","generic_kernel":"0","lomb_file":"sys2.lomb","name":"alpha",)"
         R"("project":"top2","revision":"rev2","synthesize_cmd":"syn2"})"},
        {"/board/compile/0/generate", R"({"additional_args":true,"cmd":"gen1"})"},
        {"/board/interfaces/interface/0",
         R"({"addpipe":0,"address":43776,"bsp_vnmm_write_ack":false,"chan_id":"cid","clock":"ck",)"
         R"("enable":"en","latency":240,"latency_type":"average","maxburst":8,"misc":7,)"
         R"("name":"ctl","port":[{"attribute":[],"attribute_width":0,"direction":"rw",)"
         R"("hazard_free_attributes":true,"name":"ctl_p"}],"sampling_rate":null,"size":8192,)"
         R"("type":"master","waitrequest":0,"waitrequest_allowance":0,"width":34})"},
        {"/board/interfaces/interface/1",
         R"({"addpipe":9,"address":0,"bsp_vnmm_write_ack":true,"chan_id":"","clock":"",)"
         R"("enable":"","latency":99,"latency_type":"fixed","maxburst":1,"misc":0,)"
         R"("name":"done","port":[{"attribute":[],"attribute_width":0,"direction":"rw",)"
         R"("hazard_free_attributes":true,"name":"irq_p"}],"sampling_rate":2.5,"size":null,)"
         R"("type":"irq","waitrequest":5,"waitrequest_allowance":6,"width":null})"},
        {"/board/global_mem/0/interface/0/port",
         R"([{"attribute":[],"attribute_width":0,"direction":"r","hazard_free_attributes":true,)"
         R"("name":"d0_r"},{"attribute":[{"encoding":7,"name":"burst"}],"attribute_width":3,)"
         R"("direction":"w","hazard_free_attributes":false,"name":"d0_w"}])"},
        {"/board/global_mem/0/type", R"("shared physical")"},
        {"/device_model/fmax", R"({"expected":240.5,"high":180.0,"min":150.0})"},
        {"/target_model/family", R"("peltrab")"},
        {"/target_model/family_info",
         R"({"alm_rom_name":"AR","bits_per_alm":81,"block_ram_name":"BR","lut_inputs":82,)"
         R"("mux_inputs":83,"preferred_dsp_dot_size":84})"},
    };
    for (const auto& [path, expected] : parts) {
        EXPECT_EQ(whole.at(nlohmann::json::json_pointer(path)).dump(), expected);
    }
    dir.write("board_spec.xml",
              edit(BOARD_14, "<compile", R"(<compile project="p" revision="r" lomb_file="l"
                                             generic_kernel="1"/><compile)"));
    dir.write("tm.xml", edit(TARGET_MODEL, "<global_interconnect>...</global_interconnect>", ""));
    const auto other = json();
    EXPECT_EQ(other["flows"].size(), 1u);
    EXPECT_EQ(other["flows"][0]["project"], "top");
    EXPECT_EQ(other["board"]["compile_names"].dump(), R"(["default","default"])");
    EXPECT_EQ(other["target_model"]["global_interconnect"], nullptr);
    EXPECT_EQ(text().find("Interconnect"), std::string::npos);
}

TEST_F(Dump, TellsErrorsOnStandardErrorAlone) {
    dir.write("board_spec.xml", edit(BOARD, "\"0x2000\"", "\"0x1800\""));
    dir.write("outer.xml", edit(edit(BOARD, "<global_mem",
                                     "<global_mem name=\"O\" max_bandwidth=\"1\"><global_mem"),
                                "</global_mem>\n<host", "</global_mem></global_mem>\n<host"));
    EXPECT_EQ(run("./dump --allow-overlap board_spec.xml"), 0);
    EXPECT_NE(dir.read("out").find("overlap: not a valid board\n"), std::string::npos);
    EXPECT_EQ(run("./dump --version && ./dump --help"), 0);
    EXPECT_EQ(dir.read("out").find("vemo-boardspec-dump "), 0u);
    EXPECT_NE(dir.read("out").find("Exit status: 0, or 1"), std::string::npos);
    const std::pair<const char*, std::string> cases[] = {
        {"./dump board_spec.xml",
         "Error in 'board_spec.xml':\nGlobal memory regions overlap.\nError: Failed to load xml "
         "file: board_spec.xml\nMake sure the Board Package is compatible with the current "
         "edition\n"
         "Global memories 'DDR' (0x00000000-0x00001fff) and 'QDR' (0x00001800-0x00001fff) "
         "overlap.\n"
         "Use --allow-overlap to dump the board nevertheless.\n"},
        {"./dump outer.xml", "Error: Global memory 'O' has no interface.\n"},
        {"./dump", "Error: "},
        {"./dump --format=xml board_spec.xml", "Error: "},
        {"mkdir p; mv *.xml p; echo '<x/>' >p/tm.xml; ./dump --allow-overlap p/board_spec.xml",
         "Error in 'p/tm.xml', line 1\nUnexpected element 'x'.\nError: Failed to load xml file: t"},
        {"echo '<x/>' >p/dev.xml; ./dump --allow-overlap p/board_spec.xml",
         "Error in 'p/dev.xml', line 1\nUnexpected element 'x'.\nError: Failed to load xml file: "
         "d"},
    };
    for (const auto& [command, error] : cases) {
        EXPECT_EQ(run(command), 1) << command;
        EXPECT_EQ(dir.read("out"), "") << command;
        EXPECT_EQ(dir.read("err").substr(0, error.size()), error) << command;
    }
}
