#pragma once

#include <string>

namespace vemo::xml {

/// What a walk over a document reports to. A loader is one; a program that runs a visitor itself
/// may bring its own.
class VisitorCallbacks {
public:
    virtual ~VisitorCallbacks() = default;

    /// Records one finished diagnostic: it names its source and ends in a newline.
    virtual void report_error(const std::string& text) = 0;
    virtual void report_warning(const std::string& text) = 0;

    /// Name of the document being read, as every diagnostic quotes it. Null reads as empty.
    virtual const char* get_source_name() const = 0;

    /// Receives trace output; `text` holds its own newlines.
    virtual void debug(const std::string& text) = 0;
};

}  // namespace vemo::xml
