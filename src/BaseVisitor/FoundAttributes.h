#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include <tinyxml2.h>

#include "Base/Assert.h"

namespace vemo::xml {

/// Whether two names are the same. Nothing is done more often in a run.
inline bool equal_names(const char* a, const char* b) {
    return a == b || (*a == *b && std::strcmp(a, b) == 0);
}

/// An attribute of the schema, and where an element has it: null when it has not.
struct FoundAttribute {
    const char* name;
    const tinyxml2::XMLAttribute* attribute;
};

/// The attributes of an element that are in a table of names, or of rows with a `name` each, found
/// by one pass over the element. The table must live as long.
template <typename Row, std::size_t N>
class FoundAttributes {
public:
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): clearing m_attributes takes time
    FoundAttributes(const tinyxml2::XMLElement& elem, const Row (&table)[N]) : m_table(table) {
        // Files have attributes in much the same order as tables, so the search for one goes on
        // where the last one ended.
        std::size_t row = 0;
        for (const tinyxml2::XMLAttribute* attribute = elem.FirstAttribute(); attribute != nullptr;
             attribute = attribute->Next()) {
            row = find(attribute->Name(), row);
            if (row < N) {
                m_is_found |= bit(row);
                m_attributes[row] = attribute;
                row = after(row);
            } else {
                m_has_others = true;
                row = 0;
            }
        }
    }

    /// The attribute of a row.
    FoundAttribute operator[](std::size_t row) const {
        VEMO_ASSERT(row < N);
        return {name_of(m_table[row]), has(row) ? m_attributes[row] : nullptr};
    }

    /// The attribute of that name, which must be in the table.
    FoundAttribute operator[](const char* name) const { return (*this)[find(name, 0)]; }

    /// Whether the element has the attribute of a row.
    bool has(std::size_t row) const { return (m_is_found & bit(row)) != 0; }

    /// Whether the element has an attribute that is not in the table.
    bool has_others() const { return m_has_others; }

    /// All names of the table.
    std::vector<const char*> names() const {
        std::vector<const char*> names(N);
        std::transform(m_table, m_table + N, names.begin(),
                       [](const Row& row) { return name_of(row); });
        return names;
    }

    /// Whether the table has an attribute of that name.
    bool is_in_table(const char* name) const { return find(name, 0) < N; }

private:
    static const char* name_of(const char* name) { return name; }
    template <typename R>
    static const char* name_of(const R& row) {
        return row.name;
    }

    static constexpr std::uint32_t bit(std::size_t row) { return std::uint32_t{1} << row; }

    /// The next row, the first one after the last.
    static constexpr std::size_t after(std::size_t row) { return row + 1 < N ? row + 1 : 0; }

    /// Row of that name, the search beginning at `row`; N when there is none.
    std::size_t find(const char* name, std::size_t row) const {
        for (std::size_t tries = 0; tries < N; ++tries) {
            if (equal_names(name_of(m_table[row]), name)) {
                return row;
            }
            row = after(row);
        }
        return N;
    }

    static_assert(N <= 32);
    const Row* m_table;
    std::uint32_t m_is_found = 0;  // a bit for each row
    bool m_has_others = false;
    const tinyxml2::XMLAttribute* m_attributes[N];  // of the rows found
};

}  // namespace vemo::xml
