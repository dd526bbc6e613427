#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <tinyxml2.h>

#include "BaseVisitor/VisitorCallbacks.h"

namespace vemo::xml {

/// What a loader writes beyond its reports.
enum class Debug {
    Off,  ///< Nothing.
    On,   ///< Each document and a trace of its walk, to standard error.
};

/// Base of the three model loaders: parses a file or a text into a document, and collects the
/// errors and warnings that the parser and the visitors of the document report. A loader may be
/// used for any number of loads, by one thread at a time. Loaders share nothing.
class BaseXmlLoader : public VisitorCallbacks {
public:
    /// Both lists are empty, and there is no source name.
    BaseXmlLoader() = default;

    /// Parses the file `filename` and returns its document, owned by the caller. If that fails,
    /// prints the line "ERROR FOUND: <name of the error>" on standard output, reports one error and
    /// returns null. `filename` must not be null. It becomes the source name and is not copied: it
    /// must outlive the load.
    tinyxml2::XMLDocument* parse_file(const char* filename);

    /// The same for the NUL-terminated text `xml`, whose source name is "[mem]". Nothing is
    /// printed.
    tinyxml2::XMLDocument* parse_xml(const char* xml);

    /// parse_file for programs that need standard output for themselves: nothing is printed.
    tinyxml2::XMLDocument* parse_file_quietly(const char* filename);

    /// Appends `text` as it is to the list of errors.
    void report_error(const std::string& text) override;

    /// Appends `text` as it is to the list of warnings. A warning does not make a load fail.
    void report_warning(const std::string& text) override;

    /// The file name of the last parse as it was passed, or "[mem]"; null before the first parse.
    const char* get_source_name() const override;

    /// Writes `text` to standard error as it is, without adding a newline.
    void debug(const std::string& text) override;

    /// Empties both lists. Each parse does so before it starts.
    void reset_errors();

    /// Number of errors reported since the last parse started.
    unsigned get_num_errors() const;

    /// Number of warnings reported since the last parse started.
    unsigned get_num_warnings() const;

    /// The error reported as number `index`, which counts from 0 and must be below the number of
    /// errors: a finished text of one or more lines. The reference is valid until the next report.
    const std::string& get_error(unsigned index) const;

    /// The same for warnings.
    const std::string& get_warning(unsigned index) const;

    /// Reports the parse error of `doc`, which must not be null: "XML error: ", the name of the
    /// error and the library's description. Neither source name nor line are added.
    void set_last_error(tinyxml2::XMLDocument* doc);

    /// The document as text, indented by two spaces per level. `doc` must not be null.
    static std::string doc_to_string(tinyxml2::XMLDocument* doc);

protected:
    /// What a loader keeps of its debug switch: doc_to_string when it is on, null when it is off.
    /// The tool, where the switch is always off, is thereby linked without the printer, whose many
    /// virtual functions would cost each run more than reading a device model does.
    using Echo = std::string (*)(tinyxml2::XMLDocument*);

    /// `debug` must be a constant of the program for the printer to be left out.
    static constexpr Echo echo_if(bool debug) { return debug ? doc_to_string : nullptr; }

    /// The load step that all loaders share: lets a new `Visitor` fill a new `Model` from `doc`,
    /// echoing the document first if there is an `echo`. Takes ownership of `doc`, which may be
    /// null (the parse failed and was reported). Returns the model, owned by the caller. When an
    /// error was reported, returns null and destroys the model with `Deleter`.
    template <typename Model, typename Visitor, typename Deleter = std::default_delete<Model>,
              typename... Flags>
    Model* load_document(tinyxml2::XMLDocument* doc, Echo echo, Flags... flags) {
        const std::unique_ptr<tinyxml2::XMLDocument> owned_doc(doc);
        if (doc == nullptr) {
            return nullptr;
        }
        if (echo != nullptr) {
            debug(echo(doc));
        }
        std::unique_ptr<Model, Deleter> model(new Model);
        Visitor visitor(model.get(), this, echo != nullptr, flags...);
        return walk(*doc, &visitor) ? model.release() : nullptr;
    }

private:
    /// The result of doc.Accept(visitor). Numbers are read as in the "C" locale.
    static bool walk(const tinyxml2::XMLDocument& doc, tinyxml2::XMLVisitor* visitor);

    /// The document of a file, or one that holds the error.
    std::unique_ptr<tinyxml2::XMLDocument> read_file(const char* filename);

    /// The document, owned by the caller; null when it holds an error, which is reported.
    tinyxml2::XMLDocument* release_unless_failed(std::unique_ptr<tinyxml2::XMLDocument> doc);

    const char* m_source_name = nullptr;  // not owned
    std::vector<std::string> m_errors;
    std::vector<std::string> m_warnings;
};

/// Prints a document into memory, indented by two spaces per level.
class PrettyPrinter : public tinyxml2::XMLPrinter {
public:
    /// Has the signature of the library's printer but ignores its arguments: the output always
    /// goes to memory, is not compact and starts at depth 0.
    explicit PrettyPrinter(std::FILE* file = nullptr, bool compact = false, int depth = 0);

protected:
    void PrintSpace(int depth) override;
};

}  // namespace vemo::xml
