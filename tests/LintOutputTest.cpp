#include <nlohmann/json.hpp>

#include "BoardLint/GithubOutput.h"
#include "BoardLint/JsonOutput.h"
#include "BoardLint/SarifOutput.h"
#include "BoardLint/TextOutput.h"
#include "Testing.h"

using vemo::lint::Finding;
using vemo::lint::Location;

static Finding finding_at(const Location& location) {
    Finding finding;
    finding.id = "unknown-attribute";
    finding.location = location;
    finding.message = "Unexpected attribute 'x'.";
    return finding;
}

/// A source line, the place in it, and what is shown below the message.
static std::string excerpt(const std::string& line, unsigned column, unsigned length) {
    vemo::lint::Sources sources;
    sources.add("b.xml", "\n\n\n\n\n\n" + line + "\n");
    const std::string text =
        vemo::lint::text_output({finding_at({"b.xml", 7, column, length})}, sources, {});
    return text.substr(text.find('\n') + 1);
}

TEST(LintText, MarksThePlaceInTheSourceLine) {
    const std::string long_line = std::string(150, 'a') + "X" + std::string(150, 'b');
    const std::tuple<std::string, unsigned, unsigned, std::string> cases[] = {
        {"<host a=\"1\"/>", 7, 1, "    7 | <host a=\"1\"/>\n      |       ^\n"},
        {"\t<a\tb/>", 5, 3, "    7 |         <a      b/>\n      |                 ^~~\n"},
        {"<é 日本 x/>", 4, 2, "    7 | <é 日本 x/>\n      |    ^~~~\n"},
        {"<e\xcc\x81 x/>", 5, 1, "    7 | <e\xcc\x81 x/>\n      |    ^\n"},
        {"<\xff\x1b[2J x/>", 8, 1, "    7 | <\\xff\\x1b[2J x/>\n      |              ^\n"},
        {"<a", 9, 4, "    7 | <a\n      |   ^\n"},
        {"<a/>", 0, 0, "    7 | <a/>\n"},
        {"", 0, 0, ""},
        {long_line, 151, 3,
         "    7 | ..." + std::string(40, 'a') + "X" + std::string(56, 'b') + "...\n      | "
             + std::string(43, ' ') + "^~~\n"},
        {long_line, 1, 200,
         "    7 | " + std::string(100, 'a') + "...\n      | ^" + std::string(99, '~') + "\n"},
    };
    for (const auto& [line, column, length, expected] : cases) {
        EXPECT_EQ(excerpt(line, column, length), expected) << line;
    }
}

TEST(LintText, ShowsNotesAndSuggestions) {
    Finding finding = finding_at({"b.xml", 36, 4, 2});
    finding.suggestion = "y";
    const Location other_place = {"c.xml", 2, 1, 1};
    finding.notes.push_back({other_place, "the other one is here"});
    finding.notes.emplace_back().text = "allowed here: y, z";
    Finding other = finding_at({"b.xml", 0, 0, 0});
    other.severity = vemo::lint::Severity::Warning;
    other.suggestion = "y";
    vemo::lint::Sources sources;
    sources.add("b.xml", std::string(35, '\n') + "<a x=\"\"/>");
    sources.add("c.xml", "\n<b/>\n");
    EXPECT_EQ(vemo::lint::text_output({finding, other}, sources, {}),
              R"(b.xml:36:4: error: Unexpected attribute 'x'. [unknown-attribute]
   36 | <a x=""/>
      |    ^~ did you mean 'y'?
c.xml:2:1: note: the other one is here
    2 | <b/>
      | ^
      = note: allowed here: y, z
b.xml: warning: Unexpected attribute 'x'. [unknown-attribute]
      = did you mean 'y'?
)");
    const std::string colored = vemo::lint::text_output({other}, sources, {true});
    EXPECT_EQ(fill(colored, {{"\x1b[1;35m", ""}, {"\x1b[1m", ""}, {"\x1b[0m", ""}}),
              vemo::lint::text_output({other}, sources, {}));
}

TEST(LintGithub, EscapesNames) {
    EXPECT_EQ(vemo::lint::github_output({finding_at({"a,b:c%.xml", 3, 4, 5})}),
              "::error file=a%2Cb%3Ac%25.xml,line=3,col=4,endColumn=8,title=unknown-attribute::"
              "Unexpected attribute 'x'.\n");
}

TEST(LintJson, HoldsEveryFinding) {
    Finding finding = finding_at({"b\xff.xml", 36, 4, 2});
    finding.notes.emplace_back().text = "allowed";
    const auto object = nlohmann::json::parse(vemo::lint::json_output({finding}));
    EXPECT_EQ(object, nlohmann::json::parse(R"({"findings": [{
        "severity": "error", "id": "unknown-attribute", "file": "b\ufffd.xml",
        "line": 36, "column": 4, "length": 2, "message": "Unexpected attribute 'x'.",
        "suggestion": null, "notes": [{"file": null, "line": null, "column": null,
        "length": null, "message": "allowed"}]}]})"));
}

TEST(LintSarif, NamesFilesByUri) {
    const std::pair<std::string, std::string> cases[] = {
        {"a b%:\xff.xml", R"({"uri": "a%20b%25%3A%FF.xml", "uriBaseId": "%SRCROOT%"})"},
        {"./x/y.xml", R"({"uri": "x/y.xml", "uriBaseId": "%SRCROOT%"})"},
        {"/work/here/x/y.xml", R"({"uri": "x/y.xml", "uriBaseId": "%SRCROOT%"})"},
        {"../y.xml", R"({"uri": "file:///work/y.xml"})"},
        {"/work/here too/y.xml", R"({"uri": "file:///work/here%20too/y.xml"})"},
    };
    for (const auto& [file, artifact] : cases) {
        const auto log = nlohmann::json::parse(
            vemo::lint::sarif_output({finding_at({file, 3, 4, 5})}, "/work/here"));
        const auto& run = log["runs"][0];
        const auto& place = run["results"][0]["locations"][0]["physicalLocation"];
        EXPECT_EQ(place["artifactLocation"], nlohmann::json::parse(artifact)) << file;
        EXPECT_EQ(place["region"],
                  nlohmann::json::parse(R"({"startLine": 3, "startColumn": 4, "endColumn": 9})"));
        EXPECT_EQ(run["originalUriBaseIds"]["%SRCROOT%"]["uri"], "file:///work/here/");
        const unsigned index = run["results"][0]["ruleIndex"];
        EXPECT_EQ(run["tool"]["driver"]["rules"][index]["id"], "unknown-attribute");
    }
}
