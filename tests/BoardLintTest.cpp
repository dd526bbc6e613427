#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "BoardLint/PackageCheck.h"
#include "BoardPackage/BoardPackage.h"
#include "LintPackage.h"
#include "Testing.h"
#include "Xml.h"

namespace {

using vemo::lint::Finding;
using vemo::lint::PackageCheck;
using vemo::lint::Severity;

using Edits = std::vector<std::pair<std::string, std::string>>;

LintPackage package_with(const Edits& edits) {
    LintPackage package;
    for (const auto& [from, to] : edits) {
        package.change(from, to);
    }
    return package;
}

/// The errors, each as "file:line:column id" and the suggestion, if there is one, in a line.
std::string places(const std::vector<Finding>& findings) {
    std::string lines;
    for (const Finding& finding : findings) {
        if (finding.severity == Severity::Error) {
            const auto& place = finding.location;
            lines += place.file.substr(place.file.rfind('/') + 1) + ":" + std::to_string(place.line)
                     + ":" + std::to_string(place.column) + " " + finding.id
                     + (finding.suggestion.empty() ? "" : " " + finding.suggestion) + "\n";
        }
    }
    return lines;
}

struct Mistakes {
    Edits edits;
    std::string places;
};

void expect_places(const std::vector<Mistakes>& cases) {
    for (const auto& [edits, expected] : cases) {
        EXPECT_EQ(places(package_with(edits).findings()), expected) << edits[0].second;
    }
}

const std::string SYNTHESIZE =
    R"(<synthesize cmd="fendra_sh --flow compile teasel --revision=teasel_all"/>)";

TEST(BoardLint, NamesEachKindOfMistake) {
    expect_places({
        {{{"max_bandwidth=\"34", "max_bandwith=\"34"}},
         "board_spec.xml:35:48 unknown-attribute max_bandwidth\n"},
        {{{"<alms num", "<alms color=\"1\" num"}}, "board_spec.xml:8:13 unknown-attribute\n"},
        {{{"<alms num=\"46200\"", "<alms"}}, "board_spec.xml:8:7 missing-attribute\n"},
        // An absence that is noticed before the misspelt name, which is in another line here.
        {{{"address=\"0x4", "adress=\"0x4"}}, "board_spec.xml:39:5 missing-attribute address\n"},
        {{{"num=\"46200\"", "num=\"many\""}}, "board_spec.xml:8:13 wrong-type\n"},
        {{{"\"fixed\"", "\"Fixed\""}}, "board_spec.xml:47:68 unknown-word fixed\n"},
        {{{"\"slave\" width=\"128\"", "\"irq\" width=\"128\""}},
         "board_spec.xml:46:29 wrong-interface-type\n"},
        {{{"<host>", "<hots>"}, {"</host>", "</hots>"}},
         "board_spec.xml:58:3 unexpected-element host\n"},
        {{{"<host>", "<notes><x/></notes><host>"}}, "board_spec.xml:58:3 unexpected-element\n"},
        {{{"<ffs num=\"98700\"/>", ""}}, "board_spec.xml:7:5 missing-element\n"},
        {{{"<ffs num=\"1272000\"/>", ""}}, "pb3180.xml:2:1 missing-element\n"},
        {{{"<dsps num=\"0\"/>", "<dsps num=\"0\"/><dsps num=\"1\"/>"}},
         "board_spec.xml:10:22 repeated-element\n"},
        {{{"<fmax_degradation>", "<fmax_degredation>"},
          {"</fmax_degradation>", "</fmax_degredation>"}},
         "peltrab.xml:13:5 unexpected-element fmax_degradation\n"},
        {{{"<host>", "<hidden><host>"}, {"</host>", "</host></hidden>"}},
         "board_spec.xml:58:3 unexpected-element\n"},
        {{{"</board>", "</board><boart/>"}}, "board_spec.xml:77:9 unexpected-element\n"},
        {{{"version=\"17.1\"", "version=\"1.1\""}}, "board_spec.xml:3:8 unsupported-version\n"},
        {{{"version=\"17.1\"", ""}}, "board_spec.xml:3:1 missing-attribute\n"},
        {{{"version=\"17.1\"", "version=\"2\""},  // 14.1 is meant: the flows have no names
          {"compile name=\"incremental\"", "compile"},
          {"compile name=\"full\"", "compile"}},
         "board_spec.xml:3:8 unsupported-version\n"},
        {{{"\"peltrab\"", "\"peltrax\""}}, "peltrab.xml:2:29 unknown-word peltraa\n"},
        {{{"pb3180.xml", "absent.xml"}}, "board_spec.xml:6:11 model-not-found\n"},
        {{{"<host>", "<!-- > <host b=\"\"> --><host a=\"1\">"}},
         "board_spec.xml:58:31 unknown-attribute\n"},
        {{{"<host>", "<global_mem name=\"new\" max_bandwidth=\"1\"/><host>"}},
         "board_spec.xml:58:3 missing-element\n"},
        // A width for the first interface cannot make the others the same.
        {{{"ddr_a\" type=\"slave\" width=\"512\"", "ddr_a\" type=\"slave\""},
          {"</global_mem>",
           "<interface name=\"c\" port=\"p\" type=\"slave\" width=\"64\" maxburst=\"16\" "
           "address=\"1\" size=\"1\"/></global_mem>"}},
         "board_spec.xml:37:5 missing-attribute\nboard_spec.xml:35:3 interface-widths-differ\n"},
        // The model beside the board is checked in place of one that it does not lead to.
        {{{"peltrab.xml", "absent.xml"}, {"family=\"", "family=\"x"}},
         "pb3180.xml:2:29 model-not-found\npeltrab.xml:2:29 unknown-word peltrab\n"},
        {{{"target_model=\"peltrab.xml\"", ""}, {"family=\"", "family=\"x"}},
         "pb3180.xml:2:1 missing-attribute\npeltrab.xml:2:29 unknown-word peltrab\n"},
        {{{"device_model=\"pb3180.xml\"", ""}, {"expected=\"", "expected=\"x"}},  // there are two
         "board_spec.xml:6:3 missing-attribute\n"},
        // A board, by its name.
        {{{"<board", "<device_model"}, {"</board>", "</device_model>"}},
         "board_spec.xml:3:1 unexpected-element\n"},
        {{{"<host>", "<host"}}, "board_spec.xml:58:0 malformed-xml\n"},
    });
}

TEST(BoardLint, NamesMistakesOnWhichTheToolAborts) {
    expect_places({
        {{{SYNTHESIZE, ""}}, "board_spec.xml:26:3 missing-element\n"},
        {{{SYNTHESIZE, SYNTHESIZE + SYNTHESIZE}}, "board_spec.xml:30:78 repeated-element\n"},
        {{{"size=\"0x01000000\"", "size=\"0x100000000\""}}, "board_spec.xml:47:37 out-of-range\n"},
        {{{"\"8532.5\"", "\"nan\""}}, "board_spec.xml:45:27 out-of-range\n"},
        {{{"\"62.5\"", "\"nan\""}}, "peltrab.xml:14:27 out-of-range\n"},
        {{{"encoding=\"3\"", "encoding=\"4\""}}, "board_spec.xml:53:34 encoding-too-wide\n"},
        {{{"attribute_width=\"2\"", "attribute_width=\"32\""}},
         "board_spec.xml:50:76 encoding-too-wide\n"},
    });
    const Finding finding = package_with({{SYNTHESIZE, ""}}).findings().at(0);
    EXPECT_EQ(finding.message, "A compile flow needs <synthesize>.");
    EXPECT_NE(finding.notes.at(0).text.find("aborts"), std::string::npos);
}

TEST(BoardLint, ShowsBothPlacesOfRulesOnTwoElements) {
    struct Case {
        Edits edits;
        std::string place;
        std::vector<std::pair<unsigned, std::string>> notes;
    };
    const Case cases[] = {
        {{{"0x80000000", "0x7f800000"}},
         "board_spec.xml:47:16 memory-overlap\n",
         {{0, "this range is 0x7f800000-0x807fffff"},
          {40, "the other range is here: 0x40000000-0x7fffffff"}}},
        // Between the two interfaces of DDR.
        {{{"size=\"0x40000000\"", "size=\"0x1000\""}, {"0x80000000", "0x2000"}},
         "board_spec.xml:47:16 memory-overlap\n",
         {{0, "this range is 0x2000-0x1001fff"}, {38, "the other range is here: 0x0-0xfff"}}},
        {{{"\"lane1_in\"", "\"lane0_in\""}},
         "board_spec.xml:62:3 duplicate-channel-id\n",
         {{65, "this is 'lane0_in'"}, {63, "the other one is here"}}},
        {{{"ddr_b\" type=\"slave\" width=\"512\"", "ddr_b\" type=\"slave\" width=\"256\""}},
         "board_spec.xml:35:3 interface-widths-differ\n",
         {{37, "the first interface has 512"}, {39, "this one has 256"}}},
        {{{"name=\"DDR\" ", ""}},
         "board_spec.xml:45:15 unnamed-memory\n",
         {{35, "this one has none"}}},
    };
    for (const Case& c : cases) {
        const std::vector<Finding> findings = package_with(c.edits).findings();
        EXPECT_EQ(places(findings), c.place);
        std::vector<std::pair<unsigned, std::string>> notes;
        for (const auto& note : findings.at(0).notes) {
            notes.emplace_back(note.location.line, note.text);
        }
        EXPECT_EQ(notes, c.notes) << c.place;
    }
}

TEST(BoardLint, FindsAllMistakesInOneRun) {
    expect_places({
        {{{"<alms num", "<alms nmu"},
          {SYNTHESIZE, ""},
          {"address=\"0x40000000\"", "address=\"high\""},
          {"\"fixed\"", "\"fixd\""},
          {"<attribute name=\"posted\" encoding=\"1\"/>", "<atribute name=\"posted\"/>"},
          {"<kernel_config start=\"0x00000000\"", "<kernel_config"},
          {"chan_id=\"lane1_in\"", "chan_id=\"\""},
          {"min=\"140\"", "min=\"0\""},
          {"<delay_model>", "<delay_modell>"},
          {"</delay_model>", "</delay_modell>"}},
         "board_spec.xml:8:13 unknown-attribute num\n"
         "board_spec.xml:26:3 missing-element\n"
         "board_spec.xml:40:16 wrong-type\n"
         "board_spec.xml:52:9 unexpected-element attribute\n"
         "board_spec.xml:52:9 missing-attribute\n"
         "board_spec.xml:47:68 unknown-word fixed\n"
         "board_spec.xml:59:5 missing-attribute\n"
         "board_spec.xml:62:3 empty-channel-id\n"
         "pb3180.xml:3:24 out-of-range\n"
         "peltrab.xml:31:3 unexpected-element delay_model\n"},
    });
}

TEST(BoardLint, KeepsMisplacedElementsAndTheirMistakes) {
    const std::string host =
        "<host>\n    <kernel_config start=\"0x00000000\" size=\"0x00100000\"/>"
        "\n  </host>";
    expect_places({
        {{{host, ""}, {"<interfaces>", "<interfaces><host><kernel_config start=\"0\"/></host>"}},
         "board_spec.xml:67:15 unexpected-element\nboard_spec.xml:67:21 missing-attribute\n"},
        {{{"</board>", ""}, {"<host>", "</board><host>"}, {"\"lane1_in\"", "\"lane0_in\""}},
         "board_spec.xml:58:11 unexpected-element\nboard_spec.xml:62:3 unexpected-element\n"
         "board_spec.xml:62:3 duplicate-channel-id\nboard_spec.xml:69:3 unexpected-element\n"},
        {{{"<ffs num=\"98700\"/>", ""}, {"<used_resources>", "<ffs/><used_resources>"}},
         "board_spec.xml:7:5 unexpected-element\nboard_spec.xml:7:5 missing-attribute\n"},
        {{{"<ffs num=\"98700\"/>", ""}, {"<host>", "<host><ffs/>"}},
         "board_spec.xml:7:5 missing-element\nboard_spec.xml:58:9 unexpected-element\n"
         "board_spec.xml:58:9 missing-attribute\n"},
    });
}

TEST(BoardLint, ListsThePlacesInWhichAModelWasSearched) {
    const std::vector<Finding> findings = package_with({{"pb3180.xml", "absent.xml"}}).findings();
    ASSERT_EQ(findings.size(), 1u);
    std::vector<std::string> tried;
    for (const auto& note : findings[0].notes) {
        tried.push_back(note.text);
    }
    tried.resize(2);
    EXPECT_EQ(tried, (std::vector<std::string>{"tried 'absent.xml'", "tried 'teasel/absent.xml'"}));
}

TEST(BoardLint, StopsAtTheLimit) {
    std::string flows;
    for (int i = 0; i < 10000; ++i) {
        flows += "<flow/>";
    }
    const TempDir dir;
    dir.write("board_spec.xml", package_with({{"<host>", flows + "<host>"}}).files[0]);
    PackageCheck check(7);
    EXPECT_TRUE(check.check(dir / "board_spec.xml"));
    EXPECT_EQ(check.findings().size(), 7u);
    EXPECT_FALSE(check.check(dir / "absent.xml"));
}

TEST(BoardLint, FindsMistakesFarDownInLargeFiles) {
    std::string channels;
    for (int i = 0; i < 1500; ++i) {
        channels += "<interface name=\"c\" port=\"p\" type=\"streamsink\" width=\"8\" chan_id=\"c"
                    + std::to_string(i == 1400 ? 0 : i) + (i < 1498 ? "\"/>" : "\" x=\"1\"/>");
    }
    channels += "<notes/>";
    const LintPackage package = package_with({{"<channels>", "<channels>" + channels}});
    EXPECT_EQ(package.errors(),
              "unknown-attribute unknown-attribute unexpected-element duplicate-channel-id ");
    const auto notes = package.findings().back().notes;  // on the later channel, then on the first
    EXPECT_GT(notes.at(0).location.column, notes.at(1).location.column);
}

struct LintProgram : ShellTest {
    LintProgram() : ShellTest("lint", "VEMO_LINT", VEMO_LINT) {}
};

TEST_F(LintProgram, ReportsByStatusAndOutput) {
    dir.write("good.xml", BOARD_14);
    dir.write("warned.xml", edit(BOARD_14, "bandwidth=\"1\"", "bandwidth=\"1 MB\""));
    dir.write("bad.xml", edit(BOARD_14, "<ffs num=\"2\"/>", ""));
    dir.write("lost.xml", edit(BOARD_14, "device_model", "model"));
    dir.write("empty.xml", "");
    struct Case {
        std::string arguments;
        int status;
        std::string printed;  // somewhere, on either output
    };
    const Case cases[] = {
        {"good.xml", 0, ""},
        {"dev.xml tm.xml", 0, ""},
        {"warned.xml", 0, "partly-read-number"},
        {"--strict warned.xml", 1, "partly-read-number"},
        {"--strict --no-warn=partly-read-number warned.xml", 0, ""},
        {"good.xml bad.xml", 1, "bad.xml:2:32: error: "},
        {"--color=always bad.xml", 1, "\x1b["},
        {"--format=json bad.xml", 1, R"("id": "missing-element")"},
        {"--format=sarif bad.xml", 1, R"("ruleId": "missing-element")"},
        {"--format=github bad.xml", 1, "::error file=bad.xml,line=2,"},
        {"--max-findings=1 bad.xml empty.xml", 1, "stopped after 1 findings"},
        {"lost.xml", 1, "leads to no device model; 'dev.xml' was checked"},
        {"empty.xml", 1, "malformed-xml"},
        {".", 1, "malformed-xml"},
        {"'no\nsuch' bad.xml", 2, "cannot open 'no\\x0asuch'"},
        {"", 2, "no FILE given\nRun "},
        {"--no-warn=wrong-type good.xml", 2, "no such warning: 'wrong-type'"},
        {"--max-findings=0 good.xml", 2, "--max-findings"},
        {"--format=xml good.xml", 2, "--format"},
        {"--explain=wrong-type", 0, "\nRight:\n"},
        {"--explain=list", 0, "\nwrong-type\terror\t"},
        {"--explain=nothing", 2, "no such id: 'nothing'"},
        {"--help", 0, "Exit status"},
        {"--version", 0, "vemo-boardspec-lint "},
        {"bad.xml >/dev/full", 2, "cannot write"},
    };
    for (const auto& [arguments, status, printed] : cases) {
        const int result = run("./lint " + arguments);
        const std::string output = dir.read("out") + dir.read("err");
        EXPECT_EQ(result, status) << arguments << output;
        EXPECT_NE(output.find(printed), std::string::npos) << arguments << output;
        EXPECT_EQ(output.empty(), printed.empty()) << arguments << output;
    }
}

}  // namespace
