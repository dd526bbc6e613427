#include <filesystem>
#include <regex>
#include <set>

#include "BoardLint/FindingText.h"
#include "BoardLint/Rules.h"
#include "LintPackage.h"
#include "Testing.h"

using vemo::lint::Rule;

static bool has_finding(const LintPackage& package, const std::string& id) {
    for (const vemo::lint::Finding& finding : package.findings()) {
        if (finding.id == id) {
            return true;
        }
    }
    return false;
}

TEST(LintRules, HaveExamplesThatShowThem) {
    for (const Rule& rule : vemo::lint::rules()) {
        EXPECT_TRUE(has_finding(LintPackage().replace(rule.wrong), rule.id)) << rule.id;
        const LintPackage right = LintPackage().replace(rule.right);
        EXPECT_FALSE(has_finding(right, rule.id)) << rule.id;
        EXPECT_EQ(right.errors(), "") << rule.id;
    }
}

TEST(LintRules, AreThoseOfTheReaders) {
    // Literals of words joined with "-": nothing else in the readers has that form.
    const std::regex id_literal(R"re("([a-z]+(-[a-z0-9.]+)+)")re");
    // What a report has without an id of its own. Each has one.
    const std::set<std::string> fallbacks = {"invalid-attribute", "invalid-document",
                                             "invalid-element"};
    std::set<std::string> ids;
    const std::filesystem::path src = VEMO_SOURCE_DIR "/src";
    for (const auto& entry : std::filesystem::recursive_directory_iterator(src)) {
        const std::string path = entry.path().lexically_relative(src).string();
        if (!std::regex_search(path, std::regex("^(BaseVisitor/|.*Xml.*\\.(cpp|h)$)"))) {
            continue;
        }
        const std::string text = read_file(entry.path().string());
        for (std::sregex_iterator match(text.begin(), text.end(), id_literal), end; match != end;
             ++match) {
            ids.insert((*match)[1]);
        }
    }
    EXPECT_GT(ids.size(), 20u);
    for (const std::string& id : ids) {
        EXPECT_EQ(vemo::lint::find_rule(id) == nullptr, fallbacks.count(id) == 1) << id;
    }
}

/// `text` as mdoc, one sentence a line.
static std::string mdoc(const std::string& text) {
    return std::regex_replace(fill(text, {{"\\", "\\e"}, {"-", "\\-"}}),
                              std::regex("\\. (?=[A-Z]|vemo)"), ".\n");
}

static std::string mdoc_example(const char* title, const char* example) {
    return std::string(".Pp\n") + title + "\n.Bd -literal -offset indent -compact\n" + mdoc(example)
           + "\n.Ed\n";
}

TEST(LintRules, AreInTheManual) {
    const std::string page = read_file(VEMO_SOURCE_DIR "/man/vemo-boardspec-lint.1");
    std::string entries;
    for (const Rule& rule : vemo::lint::rules()) {
        entries += ".It Ic " + mdoc(rule.id) + " Pq " + severity_name(rule.severity) + "\n"
                   + mdoc(rule.summary) + ".\n" + mdoc(rule.explanation) + "\n"
                   + mdoc_example("Wrong:", rule.wrong) + mdoc_example("Right:", rule.right);
    }
    EXPECT_NE(page.find(entries), std::string::npos) << "the rules of the manual should read:\n"
                                                     << entries;
}
