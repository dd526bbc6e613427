#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <tinyxml2.h>

#include "BoardLint/Draft.h"
#include "BoardLint/Finding.h"
#include "BoardLint/Moment.h"
#include "BoardLint/SourceText.h"
#include "BoardLint/Walk.h"

namespace vemo::lint {

/// A file name that one file of a package gives for another.
struct Reference {
    bool is_known = false;  ///< False when the file has no name of its author's there.
    std::string name;
};

/// Finds every mistake in one document. It asks the reader for the first, repairs it in memory and
/// asks again, until the document loads. Reports about the repairs are dropped.
class FileCheck {
public:
    /// `doc` has been parsed from `text`, and will be changed unless it loads. Both must outlive
    /// the check.
    FileCheck(tinyxml2::XMLDocument* doc, Format format, SourceText* text);

    /// Looks for mistakes until there are `max_findings` of them.
    void run(std::size_t max_findings);

    /// Whether the document loads as it is. If not, there are findings.
    bool loads() const { return m_loads; }

    const std::vector<Finding>& findings() const { return m_findings; }

    /// Whether `run` has reached the end of the document.
    bool is_complete() const { return m_is_complete; }

    /// The model that was read, if the document loads.
    const Models& models() const { return m_outcome.models; }

    /// The numbers of the document, if it loads.
    const std::vector<ReadNumber>& numbers() const { return m_outcome.numbers; }

    /// The name of the model that a board or a device model refers to.
    Reference reference() const;

    /// The place of that name. The document must load, or its check be over.
    Location locate_reference() const;

private:
    using XMLElement = tinyxml2::XMLElement;

    /// The element and attribute that refer to a model; null when there is none.
    std::pair<const XMLElement*, const char*> referrer() const;

    using Edit = std::function<void()>;
    using Test = std::function<bool(const Mistake& next)>;

    static bool is_any(const Mistake& /*next*/) { return true; }

    void read();

    /// Makes an edit and reads the document again. The edit is kept if the next mistake comes after
    /// `start`, differs from the current one, and passes the test. Otherwise it is undone.
    bool attempt(const Moment& start, const Edit& edit, const Test& is_good = is_any);

    /// The same with `start` right before the element of the current mistake.
    bool attempt(const Edit& edit, const Test& is_good = is_any);

    /// Repairs the current mistake. False when that is impossible.
    bool repair();
    bool repair_by_rule();
    bool repair_unknown_attribute();
    bool repair_missing_attribute();
    bool repair_value();
    bool repair_board_version();
    bool repair_unexpected_element();
    bool repair_repeated_element();
    bool repair_missing_element();
    bool repair_flows_before_14_1();
    bool repair_differing_interfaces();
    bool repair_identifiers();
    bool repair_overlaps();
    bool repair_hazards();
    bool repair_encoding();
    bool remove_element();

    /// Whether the reader knows an element of that name below the root.
    bool is_section(const std::string& name) const;

    /// Values that may pass for an attribute, the likeliest first.
    std::vector<std::string> values_for(const XMLElement& elem, const std::string& attribute) const;
    std::string fresh_name();

    /// Whether the current mistake is the author's.
    bool is_authors() const;

    /// Adds a finding about the current mistake, if it is the author's.
    void add_finding();
    void add_note(const Location& location, const std::string& text);
    void suggest(const std::string& name);

    Location locate(const XMLElement& elem, const std::string& attribute,
                    SourceText::Extent extent = SourceText::Extent::NameAndValue) const;

    tinyxml2::XMLDocument* m_doc;
    Format m_format;
    SourceText* m_text;
    std::size_t m_max_findings = 0;
    bool m_loads = false;
    bool m_is_complete = false;
    std::vector<Finding> m_findings;
    std::unique_ptr<FileCheck> m_other_version;  // with another version, has found the rest
    std::unique_ptr<tinyxml2::XMLDocument> m_other_doc;

    Draft m_draft;
    Outcome m_outcome;                   // of the last reading
    Mistake m_mistake;                   // the current one
    std::vector<Mistake> m_found_along;  // with the current one
    bool m_has_finding = false;          // whether the last finding is about the current mistake
    board::Overlap m_overlap = board::Overlap::Refuse;
    std::vector<XMLElement*> m_inventions;
    std::vector<XMLElement*> m_misplaced;  // set aside, and perhaps missing elsewhere
    // Attributes added because they were missing, with the index of the finding, if there is one.
    std::map<std::pair<const XMLElement*, std::string>, std::size_t> m_added;
    std::size_t m_work = 0;  // what the readings took
    unsigned m_num_fresh = 0;
};

}  // namespace vemo::lint
