#include <nlohmann/json.hpp>

#include "BoardDump/CHeaderDump.h"
#include "BoardDump/Depfile.h"
#include "BoardDump/JsonDump.h"
#include "BoardDump/TextDump.h"
#include "BoardPackage/BoardPackage.h"
#include "Testing.h"
#include "Xml.h"
#include "vemo-boardspec-version.h"

namespace {

struct Dump : ShellTest {
    Dump() : ShellTest("dump", "VEMO_DUMP", VEMO_DUMP) {}

    vemo::BoardPackage load() const { return vemo::BoardPackage(dir / "board_spec.xml"); }
    std::string text() const { return vemo::dump::text_dump(load().sources()); }
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
    for (const auto& [name, shown] : {std::pair(beginning + "n", beginning + "n"),
                                      std::pair(beginning + "\xc3\xa9", beginning + "...")}) {
        dir.write("board_spec.xml", edit(BOARD, "\"QDR", "\"" + name));
        const std::string tables = edit(text(), "Board specification...AR\n", "");
        EXPECT_EQ(split(tables, "  " + shown + "  ").size(), 4u) << tables;
    }
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

TEST_F(Dump, TellsModelsInJson) {  // every field has a value of its own
    EXPECT_EQ(run("./dump --format=json board_spec.xml"), 0);
    EXPECT_EQ(fill(dir.read("out"), {{VEMO_BOARDSPEC_VERSION, "VERSION"}}), read_data("dump.json"));
    dir.write("board_spec.xml",
              edit(BOARD_14, "<compile", R"(<compile project="p" revision="r" lomb_file="l"
                                             generic_kernel="1"/><compile)"));
    dir.write("tm.xml", edit(TARGET_MODEL, "<global_interconnect>...</global_interconnect>", ""));
    const auto other = nlohmann::json::parse(vemo::dump::json_dump(load().sources()));
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

TEST_F(Dump, WritesFilesCompletelyOrNotAtAll) {
    const char* cases[] = {
        "(umask 027; $dump --output=new) && cmp text new && [ $(stat -c %a new) = 640 ]",
        "touch -d @9 new && $dump --output=none --output=new && [ $(stat -c %Y new) = 9 ]",
        "mkdir d && echo >d/old && chmod 604 d/old && ln -s d/old link && ln -s link links",
        "$dump --output=links && [ -L links ] && cmp text d/old && [ $(stat -c %a d/old) = 604 ]",
        "ln -s d/new dangling && $dump --output=dangling && cmp text d/new",
        "head -c 999 text >d/old && $dump --output=d/old && cmp text d/old",
        "! (ulimit -f 600; ./dump --output=d/old long.xml) && cmp text d/old",
        "[ $(ls -A d | wc -l) = 2 ]",
        "mkfifo pipe && { cat pipe >got & $dump --output=pipe; } && wait && cmp text got",
        "echo first >log && $dump --output=/dev/stdout >>log && (echo first; cat text) | cmp - log",
        "! $dump --output=/dev/full && grep \"Cannot write '/dev/full': No space left\" err",
        "! $dump --output=d && ! $dump --output=no/x && ! $dump --output=text/x",
        "! $dump --depfile=no/x --output=x && ! [ -e x ]",
        "! $dump --depfile=x && ! $dump --depfile-target=x && ! [ -e x ]",
        "[ \"$($dump --candidates)\" = \"$(printf 'dev.xml\\ntm.xml')\" ]",
    };
    dir.write("long.xml", edit(BOARD, "\"acme\"", "\"" + std::string(400000, 'x') + "\""));
    for (const char* commands : cases) {
        EXPECT_EQ(run(std::string("dump='./dump board_spec.xml'; $dump >text && ") + commands), 0)
            << commands << dir.read("err");
    }
}

TEST(Depfile, EscapesNames) {
    using vemo::dump::depfile_text;
    EXPECT_EQ(depfile_text("o %", {"a #", "/$b:c|\\d", "e\\ \\"}),
              "o\\ \\%: a\\ \\# /$$b\\:c\\|\\d e\\\\\\ \\\\\n"
              "a\\ \\#:\n/$$b\\:c|\\d:\ne\\\\\\ \\\\:\n");
    EXPECT_EQ(depfile_text("o", {"a=b", "100%"}), "o: /dev/null a=b 100%\n");
    for (const char* name : {"a\nb", "a;b"}) {
        EXPECT_THROW(depfile_text("o", {name}), std::runtime_error);
    }
}
