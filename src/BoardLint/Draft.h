#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <tinyxml2.h>

namespace vemo::lint {

/// A document that is repaired in memory. Edits can be undone, and the draft knows which parts of
/// the document are the author's.
class Draft {
public:
    using XMLElement = tinyxml2::XMLElement;

    /// `doc` must outlive the draft.
    explicit Draft(tinyxml2::XMLDocument* doc);

    // Edits. Elements must belong to the document.

    /// Sets an attribute to a value that is not the author's.
    void write(XMLElement* elem, const std::string& name, const std::string& value);

    void rename_attribute(XMLElement* elem, const std::string& from, const std::string& to);
    void remove_attribute(XMLElement* elem, const std::string& name);

    void rename(XMLElement* elem, const std::string& name);

    /// Moves an element to the end of `parent`.
    void move(XMLElement* elem, XMLElement* parent);

    /// Puts the children of an element in its place, and the element aside.
    void unwrap(XMLElement* elem);

    /// Takes an element out of the document, and keeps it.
    void set_aside(XMLElement* elem);

    /// Adds an element that is not the author's at the end of `parent`: a copy of `model`, or
    /// one of that name without attributes.
    XMLElement* invent(XMLElement* parent, const XMLElement& model);
    XMLElement* invent(XMLElement* parent, const std::string& name);

    // Undoing.

    /// The number of edits made.
    std::size_t size() const { return m_undo.size(); }

    /// Undoes all edits except the first `size`.
    void roll_back(std::size_t size);

    /// Makes all edits so far permanent.
    void keep_edits() { m_undo.clear(); }

    // Large documents are read faster without elements that have been found good. Neither of the
    // two operations can be undone, and both make all earlier edits permanent.

    /// Takes out elements before `elem`: of several with a name in one parent, all but the first.
    void park_before(const XMLElement& elem);

    /// Puts them back in their places.
    void unpark();

    bool has_parked() const { return !m_parked.empty(); }

    /// Whether elements have been taken out of `elem`, or of those in it.
    bool has_parked_in(const XMLElement& elem) const;

    // What is the author's.

    /// Whether the element or one around it was invented.
    bool is_invented(const XMLElement& elem) const;

    /// Whether the value of an attribute was written by `write`, or its element was invented.
    bool is_written(const XMLElement& elem, const std::string& name) const;

    /// The name of an attribute before it was renamed.
    std::string original_name(const XMLElement& elem, const std::string& name) const;

    /// An element that was set aside, and its former parent.
    struct Aside {
        XMLElement* elem;
        XMLElement* parent;
    };

    /// Those that are set aside now, in the order in which they were.
    const std::vector<Aside>& asides() const { return m_asides; }

private:
    using Key = std::pair<const XMLElement*, std::string>;

    void set_attribute(XMLElement* elem, const std::string& name, const std::string& value);

    /// Moves an element into `parent`: after `previous`, or to the front if that is null.
    static void place(XMLElement* elem, tinyxml2::XMLNode* parent, tinyxml2::XMLNode* previous);

    /// Sets a note about an attribute, and remembers what it was.
    template <typename Value>
    void note(std::map<Key, Value>* notes, const Key& key, const Value& value);

    tinyxml2::XMLDocument* m_doc;
    XMLElement* m_shelf;  // holds what is set aside; no part of the tree
    std::vector<Aside> m_asides;
    std::set<const XMLElement*> m_invented;
    std::map<Key, bool> m_is_written;
    std::map<Key, std::string> m_original_names;
    std::vector<std::function<void()>> m_undo;

    /// An element that is parked, and its former place.
    struct Parked {
        XMLElement* elem;
        tinyxml2::XMLNode* parent;
        tinyxml2::XMLNode* previous;
    };
    XMLElement* m_parking;  // like m_shelf
    std::vector<Parked> m_parked;
};

}  // namespace vemo::lint
