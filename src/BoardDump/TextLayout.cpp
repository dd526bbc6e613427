#include "BoardDump/TextLayout.h"

#include <algorithm>
#include <cstddef>

namespace vemo::dump {
namespace {

bool is_control(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7f;
}

bool begins_character(char c) {
    return (static_cast<unsigned char>(c) & 0xc0) != 0x80;  // no byte that continues one
}

/// Columns that `text` takes on a terminal: one for each character of UTF-8.
std::size_t width(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), begins_character));
}

}  // namespace

std::string printable(std::string_view text, std::string_view keep) {
    constexpr const char* DIGITS = "0123456789abcdef";
    std::string out;
    for (const char c : text) {
        if (is_control(c) && keep.find(c) == std::string_view::npos) {
            const auto byte = static_cast<unsigned char>(c);
            out += {'\\', 'x', DIGITS[byte >> 4], DIGITS[byte & 0xf]};
        } else {
            out += c;
        }
    }
    return out;
}

std::string shortened(const std::string& text) {
    constexpr std::size_t MAX_SIZE = 64;
    if (text.size() <= MAX_SIZE) {
        return text;
    }
    std::size_t end = MAX_SIZE;
    while (end > 0 && !begins_character(text[end])) {
        --end;
    }
    return text.substr(0, end) + "...";
}

std::string name_text(const std::string& name) { return name.empty() ? "(unnamed)" : name; }

TextTable::TextTable(std::string_view alignment, std::initializer_list<std::string> titles)
    : m_alignment(alignment), m_is_used(alignment.size()) {
    if (titles.size() > 0) {
        m_rows.emplace_back(titles);
    }
}

void TextTable::add_row(std::initializer_list<std::string> cells) {
    std::vector<std::string>& row = m_rows.emplace_back();
    for (const std::string& cell : cells) {
        if (!cell.empty()) {
            m_is_used[row.size()] = true;
        }
        row.push_back(printable(cell));
    }
}

std::string TextTable::text(std::string_view indent) const {
    std::vector<std::size_t> widths(m_alignment.size());
    for (const auto& row : m_rows) {
        for (std::size_t column = 0; column + 1 < row.size(); ++column) {
            widths[column] = std::max(widths[column], width(row[column]));
        }
    }
    std::string out;
    for (const auto& row : m_rows) {
        std::string blanks(indent);  // before the next cell; none end a line
        for (std::size_t column = 0; column < row.size(); ++column) {
            if (!m_is_used[column]) {
                continue;
            }
            const std::string& cell = row[column];
            const std::string padding(widths[column] - std::min(widths[column], width(cell)), ' ');
            const bool is_right_aligned = m_alignment[column] == 'r';
            if (is_right_aligned) {
                blanks += padding;
            }
            if (!cell.empty()) {
                out += blanks + cell;
                blanks.clear();
            }
            blanks += is_right_aligned ? "" : padding;
            blanks += "  ";
        }
        out += '\n';
    }
    return out;
}

}  // namespace vemo::dump
