#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace vemo::dump {

/// `text`, or its first 64 bytes and "..." if it is longer. For names that a table has in several
/// rows: a long name must not multiply the size of the output.
std::string shortened(const std::string& text);

/// `name`, or "(unnamed)" if it is empty.
std::string name_text(const std::string& name);

/// A table whose columns are as wide as their widest cell, two spaces apart. Columns whose
/// cells are all empty are left out.
class TextTable {
public:
    /// One letter a column: 'l' for left-aligned, 'r' for right-aligned. The titles of the columns
    /// are the first row, if there are any.
    explicit TextTable(std::string_view alignment, std::initializer_list<std::string> titles = {});

    /// Adds a row. Its last cell takes the space it needs: it does not widen its column, which
    /// makes short rows notes that run across the table. Cells are printed as printable() gives
    /// them.
    void add_row(std::initializer_list<std::string> cells);

    /// The rows, each with `indent` before and a newline after it.
    std::string text(std::string_view indent) const;

private:
    std::string_view m_alignment;
    std::vector<std::vector<std::string>> m_rows;
    std::vector<bool> m_is_used;  // by column: whether a cell below the title is not empty
};

}  // namespace vemo::dump
