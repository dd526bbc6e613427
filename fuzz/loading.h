#pragma once

#include <memory>
#include <sstream>
#include <string>

#include <tinyxml2.h>

#include "expected_invariants.h"

namespace vemo::fuzz {

/// Called with every text that a reader reports, unless it is null.
extern void (*watch_report)(const std::string& text);

/// Aborts: the same input has led to two results.
[[noreturn]] void fail(const std::string& what, const std::string& a, const std::string& b);

/// Aborts unless each line of `text`, which is written for people, shows all its characters.
void check_printable(const std::string& text);

/// Takes the next document off `input`, the documents of a package with "%%" between them.
std::string take_document(std::string& input);

/// The path of a file in memory that holds `text`. There is one such file.
const char* write_memory_file(const std::string& text);

template <typename Loader>
class QuietLoader : public Loader {
public:
    using Loader::Loader;
    void debug(const std::string&) override {}
    void report_error(const std::string& text) override {
        if (watch_report != nullptr) {
            watch_report(text);
        }
        Loader::report_error(text);
    }
};

/// `text` with the first name of a source, if it has one, replaced by that of the other source.
std::string with_source_name(std::string text, const std::string& from, const std::string& to);

/// The model that is loaded from `xml` by a Loader(debug, flags...), or null. Aborts unless debug
/// mode and the kind of source, file or memory, make no difference to model and reports.
template <typename Loader, typename Owner, typename Model, typename... Flags>
Owner load_in_every_way(Model* (Loader::*load)(tinyxml2::XMLDocument*), const std::string& xml,
                        Flags... flags) {
    const std::string text = xml.substr(0, xml.find('\0'));
    Owner first;
    std::string expected;
    for (const bool from_file : {false, true}) {
        for (const bool debug : {false, true}) {
            QuietLoader<Loader> loader(debug, flags...);
            Owner model;
            std::ostringstream result;
            const char* path = from_file ? write_memory_file(text) : "[mem]";
            result << until_invariant([&] {
                model.reset((loader.*load)(from_file ? loader.parse_file_quietly(path)
                                                     : loader.parse_xml(text.c_str())));
            });
            for (unsigned i = 0; i < loader.get_num_errors(); ++i) {
                result << with_source_name(loader.get_error(i), path, "[mem]");
            }
            if (model != nullptr) {
                result << until_invariant([&] { result << *model; });
            }
            if (!from_file && !debug) {
                first = std::move(model);
                expected = result.str();
            } else if (result.str() != expected) {
                fail(std::string(path) + (debug ? " in debug mode" : ""), result.str(), expected);
            }
        }
    }
    return first;
}

}  // namespace vemo::fuzz
