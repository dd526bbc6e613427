#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <tinyxml2.h>

#include "BaseVisitor/Report.h"
#include "BoardSpec/BoardSpec.h"
#include "BoardSpec/DestroyWithPorts.h"
#include "BoardSpecXml/BoardSpecXmlLoader.h"
#include "DeviceModel.h"
#include "TargetModel/TargetModel.h"

namespace vemo::lint {

/// The formats of files.
enum class Format { Board, DeviceModel, TargetModel };

/// The name of the root element of a file.
const char* root_name(Format format);

/// What a file was read into: the one that belongs to its format, or none.
struct Models {
    std::unique_ptr<board::BoardSpec, board::DestroyWithPorts> spec;
    std::unique_ptr<dmodel::DeviceModel> dm;
    std::unique_ptr<tmodel::TargetModel> tm;
};

/// A mistake that prevents a document from loading, as its reader reports it.
struct Mistake {
    std::string rule;
    std::string message;                         ///< The reader's text.
    const tinyxml2::XMLElement* elem = nullptr;  ///< Null for a document without elements.
    std::string attribute;                   ///< Empty when the element as a whole is concerned.
    bool is_at_attribute = false;            ///< See Report.
    bool is_on_leaving = false;              ///< Found only when all children had been read.
    std::vector<std::string> accepted;       ///< See ReportDetails.
    std::string parent;                      ///< See ReportDetails.
    std::string child;                       ///< See ReportDetails.
    std::vector<xml::ElementPair> pairs;     ///< See ReportDetails.
    const char* broken_condition = nullptr;  ///< Of the assertion on which the tool aborts.

    /// Whether `elem` is unknown in its place, or one too many.
    bool is_unexpected_element() const {
        return rule == "unexpected-element" || rule == "repeated-element";
    }
};

/// An attribute that was read as a number.
struct ReadNumber {
    const tinyxml2::XMLElement* elem;
    std::string_view attribute;
    xml::Syntax syntax;
};

/// The outcome of reading a document.
struct Outcome {
    bool loads = false;
    Models models;                    ///< If it loads.
    std::vector<ReadNumber> numbers;  ///< If it loads: all its numbers, in the order of reading.
    std::vector<Mistake> mistakes;    ///< If not: the first one, with what was found along with it.
    std::size_t num_entered = 0;      ///< How many elements were read, some of them several times.
};

/// Reads a document as the tool does.
Outcome read_document(const tinyxml2::XMLDocument& doc, Format format, board::Overlap overlap);

}  // namespace vemo::lint
