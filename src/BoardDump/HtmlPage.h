#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Base/ArrayView.h"
#include "BoardDump/Markup.h"

namespace vemo::dump {

/// A table with a heading for each column. The first cell of a row is its heading.
struct HtmlTable {
    struct Row {
        std::vector<std::string> cells;
        const char* style;  ///< Empty, or a class of the style sheet.
    };

    void add(std::vector<std::string> cells, const char* style = "") {
        rows.push_back({std::move(cells), style});
    }

    const char* id;
    const char* caption;
    std::string alignment;  ///< One letter a column: 'l' for left-aligned, 'r' for right-aligned.
    std::vector<std::string> columns;
    std::vector<Row> rows;
};

/// An HTML page of sections with texts, tables and facts. It contains no scripts and refers to no
/// other file.
class HtmlPage {
public:
    struct Link {
        const char* target;  ///< "#" and the id of a section.
        const char* name;
    };

    /// Writes the head, a heading, a line below it, and links to sections.
    HtmlPage(std::string_view title, std::string_view heading, std::string_view subtitle,
             ArrayView<Link> links);

    void open_section(const char* id, const char* heading);
    void close_section() { m_out.close(); }

    void paragraph(std::string_view text) { m_out.element("p", {}, text); }
    void subheading(std::string_view text) { m_out.element("h3", {}, text); }
    void alarm(std::string_view text) { m_out.element("p", {{"class", "alarm"}}, text); }
    void table(const HtmlTable& table);

    /// A part that scrolls by itself, also with the keyboard. `label_id` is the id of its title.
    void scrolling(const char* label_id, const Markup& contents);

    /// A table of names and values, and its rows.
    void open_facts(const char* caption);
    void fact(const char* name, std::string_view value);
    void close_facts();

    /// Ends the page, which then is complete.
    std::string finish();

private:
    void write_head(std::string_view title);
    void open_scroll(const char* label_id);

    Markup m_out;
};

}  // namespace vemo::dump
