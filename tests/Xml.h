#pragma once

#include "Testing.h"

// The documents of data/ that load, in which every field has a value of its own.
extern const std::string BOARD;         // board_spec.xml: 17.1; two memories, two flows
extern const std::string BOARD_14;      // board_14.1.xml: the least that a board must have
extern const std::string BOARD_09;      // board_0.9.xml: the same, without a flow
extern const std::string DEVICE_MODEL;  // dev.xml, which the boards name
extern const std::string TARGET_MODEL;  // tm.xml, which dev.xml names

/// `text` with the first `from`, which must be in it, replaced by `to`. A "..." in `from` stands
/// for everything up to the text behind it.
std::string edit(std::string text, const std::string& from, const std::string& to);

/// Runs shell commands in a directory that holds a board package, BOARD, and links to programs.
struct ShellTest : ::testing::Test {
    /// The program `link` is the one that an environment variable names, or else `program`.
    ShellTest(const char* link, const char* variable, const char* program);

    /// Exit status, 134 when a program aborts. What is written goes to the files out and err.
    int run(const std::string& command) const;

    TempDir dir;
};

/// What a reader reports about a document in memory: at a line, or about all of it (line 0).
std::string at(int line, const std::string& message);

/// "loaded", or what the loader reports. Takes ownership of the model.
template <typename Loader, typename Model>
std::string outcome_of(const Loader& loader, const Model* model) {
    std::string outcome = model == nullptr ? "" : "loaded";
    delete model;
    for (unsigned i = 0; i < loader.get_num_errors(); ++i) {
        outcome += loader.get_error(i);
    }
    return outcome;
}

template <typename Loader, typename... Flags>
std::string load_outcome(const std::string& xml, Flags... flags) {
    Loader loader(flags...);
    return outcome_of(loader, loader.load_xml(xml.c_str()));
}

/// A changed document, and what comes of loading it.
struct Case {
    std::string name;
    std::string document;
    std::string outcome;  // of load_outcome
    std::string abort;    // or the condition that does not hold
};

/// The cases of lines that data/board.cases describes.
std::vector<Case> parse_cases(const std::string& document, const std::string& lines);

/// The part of data/dump.txt that begins with `title`.
std::string dumped_model(const std::string& title);

/// The groups of cases in a file of data/, by name.
std::map<std::string, std::vector<Case>> read_cases(const std::string& file);
std::vector<std::string> read_group_names(const std::string& file);

template <typename Loader, typename... Flags>
void expect_outcomes(const std::vector<Case>& cases, Flags... flags) {
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        if (!c.abort.empty()) {
            expect_aborts({{c.abort, [&] { load_outcome<Loader>(c.document, flags...); }}});
        } else {
            EXPECT_EQ(load_outcome<Loader>(c.document, flags...), c.outcome);
        }
    }
}

template <typename Loader, typename... Flags>
void expect_outcomes(const std::string& document, const std::string& lines, Flags... flags) {
    expect_outcomes<Loader>(parse_cases(document, lines), flags...);
}
