#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <tinyxml2.h>

#include "BaseVisitor/VisitorCallbacks.h"

namespace vemo::xml {

/// Parses a file or a text into a document, and collects what the parser and the visitors of that
/// document report. Base of the three model loaders; one loader may do any number of loads.
class BaseXmlLoader : public VisitorCallbacks {
public:
    BaseXmlLoader() = default;

    /// The parsed file, owned by the caller; or null, the failure recorded as the only error and
    /// announced on standard output. `filename` must not be null and must stay alive for as long
    /// as this loader reports about the document.
    tinyxml2::XMLDocument* parse_file(const char* filename);

    /// The same for a NUL-terminated text, which diagnostics call "[mem]". Standard output is left
    /// alone.
    tinyxml2::XMLDocument* parse_xml(const char* xml);

    /// parse_file for programs that keep standard output for what they were asked: nothing is
    /// announced there.
    tinyxml2::XMLDocument* parse_file_quietly(const char* filename);

    void report_error(const std::string& text) override;
    void report_warning(const std::string& text) override;
    const char* get_source_name() const override;  // null before the first parse

    /// Writes `text` to standard error as it is; no newline is added.
    void debug(const std::string& text) override;

    /// Empties both lists; each parse does so before it starts.
    void reset_errors();

    /// The texts reported since the last parse began, in order. An index must be below the number.
    unsigned get_num_errors() const;
    unsigned get_num_warnings() const;
    const std::string& get_error(unsigned index) const;
    const std::string& get_warning(unsigned index) const;

    /// Reports the parse error that `doc` holds. The text carries no source name and no line.
    void set_last_error(tinyxml2::XMLDocument* doc);

    /// The document as text, two blanks of indentation a level. `doc` must not be null.
    static std::string doc_to_string(tinyxml2::XMLDocument* doc);

protected:
    /// What a loader keeps of its debug switch: doc_to_string when it is on, null when it is off.
    /// The tool, where the switch is always off, is thereby linked without the printer, whose many
    /// virtual functions would cost each run more than reading a device model does.
    using Echo = std::string (*)(tinyxml2::XMLDocument*);
    static constexpr Echo echo_if(bool debug) { return debug ? doc_to_string : nullptr; }

    /// The load step that all loaders share: lets a new `Visitor` fill a new `Model` from `doc`,
    /// echoing the document first if there is an `echo`. Takes ownership of `doc`, which may be
    /// null (the parse has failed and was reported). Returns the model, owned by the caller, or
    /// null when an error was reported.
    template <typename Model, typename Visitor, typename... Flags>
    Model* load_document(tinyxml2::XMLDocument* doc, Echo echo, Flags... flags) {
        const std::unique_ptr<tinyxml2::XMLDocument> owned_doc(doc);
        if (doc == nullptr) {
            return nullptr;
        }
        if (echo != nullptr) {
            debug(echo(doc));
        }
        auto model = std::make_unique<Model>();
        Visitor visitor(model.get(), this, echo != nullptr, flags...);
        return doc->Accept(&visitor) ? model.release() : nullptr;
    }

private:
    /// The document of a file, or one that holds the error that has been recorded.
    std::unique_ptr<tinyxml2::XMLDocument> read_file(const char* filename);

    const char* m_source_name = nullptr;  // not owned
    std::vector<std::string> m_errors;
    std::vector<std::string> m_warnings;
};

/// Prints a document into memory with two blanks of indentation a level.
class PrettyPrinter : public tinyxml2::XMLPrinter {
public:
    /// Has the signature of the library's printer, but heeds none of its arguments: the output
    /// always goes to memory, is not compact, and starts at depth 0.
    explicit PrettyPrinter(std::FILE* file = nullptr, bool compact = false, int depth = 0);

protected:
    void PrintSpace(int depth) override;
};

}  // namespace vemo::xml
