#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <tinyxml2.h>

namespace vemo::xml {

/// Two elements that break a rule together; the second is null for an element that breaks it alone.
struct ElementPair {
    const tinyxml2::XMLElement* first;
    const tinyxml2::XMLElement* second;
};

constexpr std::size_t MAX_PAIRS = 1000;

/// Details of an error beyond its text.
struct ReportDetails {
    /// Id of the broken rule, a literal in words: "unknown-word". Null for the rule of the report
    /// operation itself.
    const char* rule = nullptr;

    /// Names or values that pass in place of the one reported. For a number, an example.
    std::vector<std::string> accepted = {};

    /// Name of the child element that is missing or occurs too often; null when there is none.
    const char* child = nullptr;

    /// Name of the attribute that breaks the rule, where the operation is not given one.
    const char* attribute = nullptr;

    /// Of a rule on several elements: those that break it, MAX_PAIRS of them at most. Filled only
    /// where there is a sink.
    std::vector<ElementPair> pairs = {};

    /// Where the error belongs, for a text without a place.
    const tinyxml2::XMLElement* elem = nullptr;

    /// Name of the child of the element reported that lacks `child`; null when it is that element.
    const char* parent = nullptr;
};

/// An error as data, for programs that present errors in their own way or look for a repair.
struct Report {
    const char* rule;                   ///< Id of the broken rule; never null.
    std::string message;                ///< The text without source and line; may be empty.
    const tinyxml2::XMLElement* elem;   ///< Where it belongs; null for the document.
    std::string attribute;              ///< The attribute concerned, which may be absent.
    bool is_at_attribute;               ///< Whether the place is that of the attribute, if present.
    std::vector<std::string> accepted;  ///< See ReportDetails.
    std::string parent;                 ///< See ReportDetails; empty when there is none.
    std::string child;                  ///< See ReportDetails; empty when there is none.
    std::vector<ElementPair> pairs;     ///< See ReportDetails.
};

/// How the text of an attribute is read.
enum class Syntax {
    Text,      ///< Not as a number.
    Decimal,   ///< Decimal digits. 32 bits are kept.
    Prefixed,  ///< Decimal, octal or hexadecimal digits by their prefix. 32 bits are kept.
    Wide,      ///< The same with 64 bits.
    Float,     ///< A float as sscanf reads it; the rest is ignored.
    Version,   ///< A float as strtod reads it; the rest is ignored.
    Boolean,   ///< An integer, the rest after which is ignored, or a word.
};

/// Receives the errors of a walk as data, beside the finished texts that VisitorCallbacks receive.
class ReportSink {
public:
    virtual ~ReportSink() = default;

    /// Takes one error. Elements belong to the document being walked.
    virtual void report(const Report& report) = 0;

    /// An element is about to be read.
    virtual void enter(const tinyxml2::XMLElement& elem) = 0;

    /// A number has been read from the attribute `name`, a text that lives as long as the program.
    virtual void read_number(const tinyxml2::XMLElement& elem, const char* name, Syntax syntax) = 0;
};

}  // namespace vemo::xml
