#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace vemo::dump {

/// `text` with its control bytes, except those of `keep`, written as \x and two hexadecimal digits:
/// what a file contains shall not reach a terminal as a command.
std::string printable(std::string_view text, std::string_view keep = "");

/// For texts of a file that many lines repeat: the beginning of a long one, and "...".
std::string shortened(const std::string& text);

/// A table whose columns, one blank pair apart, are as wide as their widest cell, but not as an
/// uncommonly wide one, which moves the rest of its row.
class TextTable {
public:
    /// One letter a column: 'l' for left-aligned, 'r' for right-aligned.
    explicit TextTable(std::string_view alignment) : m_alignment(alignment) {}

    /// Adds a row. Its last cell takes the space it needs: it does not widen its column, which
    /// makes short rows notes that run across the table. Cells are printed as printable() gives
    /// them.
    void add_row(std::initializer_list<std::string> cells);

    /// The rows, each with `indent` before and a newline behind it.
    std::string text(std::string_view indent) const;

private:
    std::string_view m_alignment;
    std::vector<std::vector<std::string>> m_rows;
};

}  // namespace vemo::dump
