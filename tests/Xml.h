#pragma once

#include "Testing.h"

// Documents that load, in which every field has a value of its own. Test cases edit them.
extern const std::string BOARD;         // 17.1; two memories, two flows
extern const std::string BOARD_14;      // 14.1; one flow
extern const std::string BOARD_09;      // 0.9; no flow
extern const std::string DEVICE_MODEL;  // the device model that the boards name
extern const std::string TARGET_MODEL;  // the target model that DEVICE_MODEL names

/// `text` with the first `from`, which must be in it, replaced by `to`. A "..." in `from` stands
/// for everything up to the text behind it.
std::string edit(std::string text, const std::string& from, const std::string& to);

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

/// An edit of a document, and the outcome of loading the result.
struct Case {
    std::string from;
    std::string to;
    std::string outcome;
};

/// Cases as lines of the form `from => to => outcome`, where "\n" stands for a line break; with
/// " || " between, there are several texts to edit, or to put there. An outcome is "loaded",
/// "silent" or reports with " + " between: `line: message`, or the message alone where no line is
/// given.
std::vector<Case> parse_cases(const std::string& lines);

template <typename Loader, typename... Flags>
void expect_outcomes(const std::string& document, const std::string& cases, Flags... flags) {
    for (const Case& c : parse_cases(cases)) {
        EXPECT_EQ(load_outcome<Loader>(edit(document, c.from, c.to), flags...), c.outcome)
            << c.from << " => " << c.to;
    }
}
