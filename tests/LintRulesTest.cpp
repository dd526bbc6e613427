#include <algorithm>
#include <regex>

#include "BoardLint/FindingText.h"
#include "BoardLint/Rules.h"
#include "LintPackage.h"
#include "Testing.h"

using vemo::lint::Rule;

static bool has_finding(const LintPackage& package, const std::string& id) {
    const auto findings = package.findings();
    return std::any_of(findings.begin(), findings.end(),
                       [&](const auto& finding) { return finding.id == id; });
}

TEST(LintRules, HaveExamplesThatShowThem) {
    for (const Rule& rule : vemo::lint::rules()) {
        EXPECT_TRUE(has_finding(LintPackage().replace(rule.wrong), rule.id)) << rule.id;
        const LintPackage right = LintPackage().replace(rule.right);
        EXPECT_FALSE(has_finding(right, rule.id)) << rule.id;
        EXPECT_EQ(right.errors(), "") << rule.id;
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
        const std::string entry = ".It Ic " + mdoc(rule.id) + " Pq " + severity_name(rule.severity)
                                  + "\n" + mdoc(rule.summary) + ".\n" + mdoc(rule.explanation)
                                  + "\n" + mdoc_example("Wrong:", rule.wrong)
                                  + mdoc_example("Right:", rule.right);
        EXPECT_NE(page.find(entry), std::string::npos) << "the manual lacks this entry:\n" << entry;
        entries += entry;
    }
    EXPECT_NE(page.find(entries), std::string::npos)
        << "entries are missing or in another order than in Rules.cpp";
}
