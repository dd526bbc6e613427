#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include <tinyxml2.h>

#include "BoardLint/Finding.h"

namespace vemo::lint {

/// The text of a file and the places of its elements and attributes, of which the XML library knows
/// only the line.
class SourceText {
public:
    /// `file` is the file name in locations.
    SourceText(std::string file, std::string bytes);

    const std::string& file() const { return m_file; }
    const std::string& bytes() const { return m_bytes; }

    /// Line `number`, which counts from 1, without its line end; empty beyond the last line.
    std::string_view line(unsigned number) const;

    /// Finds the elements of `doc`, which must have been parsed from these bytes and not been
    /// changed since. Takes over the user data of its elements. The first call of `locate` does
    /// that, too, unless it has been done: needed only for a document that is to be changed.
    void attach(const tinyxml2::XMLDocument& doc) const;

    // Places. If the element does not belong to the attached document, or if the text is not as
    // expected, the location has only the line, as far as the XML library knows it.

    /// The file as a whole, or a line of it.
    Location whole(unsigned line = 0) const { return {m_file, line, 0, 0}; }

    /// The beginning of the start tag, up to the name.
    Location locate(const tinyxml2::XMLElement& elem) const;

    /// How much of an attribute a location covers.
    enum class Extent { Name, NameAndValue };

    /// The attribute that the file calls `attribute`; the element when it has none of that name.
    Location locate(const tinyxml2::XMLElement& elem, std::string_view attribute,
                    Extent extent = Extent::Name) const;

private:
    struct Tag {
        std::size_t offset;  // of its "<"
        unsigned line;
    };

    /// Fills m_tags with the start tags, in the order of the text.
    void find_tags() const;

    /// The tag of an element; null if it is not known.
    const Tag* tag_of(const tinyxml2::XMLElement& elem) const;

    /// The characters from `begin` to `end`, or to the end of the line `line`, which contains
    /// `begin`.
    Location location(unsigned line, std::size_t begin, std::size_t end) const;

    std::string m_file;
    std::string m_bytes;
    mutable bool m_is_attached = false;
    mutable std::vector<Tag> m_tags;  // user data of elements points here
    mutable std::vector<std::size_t>
        m_line_offsets;  // of the beginnings of lines; made when needed
};

/// The texts of all files of a run, by name.
class Sources {
public:
    /// Adds a file, or returns the one that has that name already. The reference stays valid.
    SourceText& add(const std::string& file, std::string bytes);

    /// Null when there is no such file.
    const SourceText* find(std::string_view file) const;

    /// The number of files added before; that of all files when there is no such file.
    std::size_t position(std::string_view file) const;

    /// SourceText::line of a file; empty when there is no such file.
    std::string_view line(std::string_view file, unsigned number) const;

private:
    std::deque<SourceText> m_texts;
};

}  // namespace vemo::lint
