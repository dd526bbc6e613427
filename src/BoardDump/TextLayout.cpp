#include "BoardDump/TextLayout.h"

#include <algorithm>
#include <cstddef>

#include "Base/Characters.h"

namespace vemo::dump {
std::string shortened(const std::string& text) {
    constexpr std::size_t MAX_SIZE = 64;
    std::size_t size = 0;
    for (std::string_view rest = text; !rest.empty();) {
        const std::size_t next = size + take_character(rest).bytes.size();
        if (next > MAX_SIZE) {
            return text.substr(0, size) + "...";
        }
        size = next;
    }
    return text;
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
            widths[column] = std::max(widths[column], display_width(row[column]));
        }
    }
    std::string out;
    for (const auto& row : m_rows) {
        std::string spaces(indent);  // before the next cell, so that none end a line
        for (std::size_t column = 0; column < row.size(); ++column) {
            if (!m_is_used[column]) {
                continue;
            }
            const std::string& cell = row[column];
            const std::string padding(
                widths[column] - std::min(widths[column], display_width(cell)), ' ');
            const bool is_right_aligned = m_alignment[column] == 'r';
            if (is_right_aligned) {
                spaces += padding;
            }
            if (!cell.empty()) {
                out += spaces + cell;
                spaces.clear();
            }
            spaces += is_right_aligned ? "" : padding;
            spaces += "  ";
        }
        out += '\n';
    }
    return out;
}

}  // namespace vemo::dump
