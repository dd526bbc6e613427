#include "BoardDump/HtmlPage.h"

#include <algorithm>
#include <cstddef>

namespace vemo::dump {
namespace {

constexpr const char* STYLE = R"(<style>
:root{color-scheme:light dark;--ground:#ffffff;--text:#1f2328;--muted:#57606a;--line:#d0d7de;
--band:#f6f8fa;--link:#0757b5;--alarm:#b3141f}
@media (prefers-color-scheme:dark){
:root{--ground:#0d1117;--text:#e6edf3;--muted:#9da7b3;--line:#30363d;--band:#161b22;--link:#79b8ff;
--alarm:#ff8b82}
}
*{box-sizing:border-box}
html{background:var(--ground);color:var(--text);font:1rem/1.5 system-ui,sans-serif;
-webkit-text-size-adjust:100%;text-size-adjust:100%}
body{max-width:78rem;margin:0 auto;padding:1rem}
h1,h2,h3,p,td,th,caption,li{overflow-wrap:anywhere}
h1{font-size:1.75rem;margin:.5rem 0 0}
h2{font-size:1.3rem;margin:2rem 0 .5rem;border-bottom:1px solid var(--line)}
h3{font-size:1.05rem;margin:1.25rem 0 0}
h1,h3,td,.long{white-space:pre-wrap}
a{color:var(--link)}
nav ul{display:flex;flex-wrap:wrap;gap:.25rem 1.25rem;list-style:none;margin:.5rem 0;padding:0}
nav a{display:inline-block;padding:.25rem 0}
.skip{position:absolute;left:-100rem}
.skip:focus{position:static}
:focus-visible{outline:3px solid var(--link);outline-offset:2px}
.scroll{overflow-x:auto}
.scroll svg{display:block;min-width:44rem;max-width:100%;height:auto}
table{border-collapse:collapse;margin:.5rem 0;font-size:.9rem}
caption{text-align:left;color:var(--muted);padding:.25rem 0}
th,td{border:1px solid var(--line);padding:.25rem .6rem;text-align:left;vertical-align:top}
.short,.number{white-space:pre}
.long{min-width:18rem}
.number{text-align:right}
thead th{background:var(--band)}
tbody th{font-weight:normal}
h3,td,.scroll tbody th{font-family:'DejaVu Sans Mono',Menlo,Consolas,'Liberation Mono',monospace}
td,.scroll tbody th{font-size:.85rem}
.gap{color:var(--muted);font-style:italic}
.overlap,.alarm{color:var(--alarm);font-weight:bold}
@media print{
:root{--ground:#ffffff;--text:#000000;--muted:#444444;--line:#999999;--band:#eeeeee;--link:#000000;
--alarm:#a00000}
body{max-width:none;padding:0}
nav,.skip{display:none}
.scroll{overflow:visible}
.scroll svg{min-width:0;width:100%}
.long{min-width:10rem}
.scroll thead th{white-space:normal}
table,td,.scroll tbody th{font-size:.65rem}
th,td{padding:.15rem .3rem}
thead{display:table-header-group}
tr,svg{break-inside:avoid}
h2,h3,caption{break-after:avoid}
}
</style>
)";

constexpr const char* POLICY =
    "default-src 'none'; style-src 'unsafe-inline'; base-uri 'none'; form-action 'none'";

/// The class of a column: long texts wrap, so that they do not widen the table; short ones do not,
/// so that a narrow window does not break them.
const char* column_style(const HtmlTable& table, std::size_t column) {
    constexpr std::size_t MAX_SHORT = 24;  // bytes
    if (table.alignment[column] == 'r') {
        return "number";
    }
    const bool is_short = std::all_of(
        table.rows.begin(), table.rows.end(),
        [column](const HtmlTable::Row& row) { return row.cells[column].size() <= MAX_SHORT; });
    return is_short ? "short" : "long";
}

}  // namespace

HtmlPage::HtmlPage(std::string_view title, std::string_view heading, std::string_view subtitle,
                   ArrayView<Link> links) {
    m_out.constant("<!DOCTYPE html>\n");
    m_out.open("html", {{"lang", "en"}, {"xmlns", "http://www.w3.org/1999/xhtml"}});
    write_head(title);
    m_out.open("body");
    m_out.element("a", {{"class", "skip"}, {"href", "#contents"}}, "Skip to the contents");
    m_out.open("header");
    m_out.element("h1", {}, heading);
    m_out.element("p", {}, subtitle);
    m_out.open("nav", {{"aria-label", "Sections"}});
    m_out.open("ul");
    for (const Link& link : links) {
        m_out.open("li");
        m_out.element("a", {{"href", link.target}}, link.name);
        m_out.close();
    }
    m_out.close();
    m_out.close();
    m_out.close();
    m_out.open("main", {{"id", "contents"}});
}

void HtmlPage::write_head(std::string_view title) {
    m_out.open("head");
    m_out.empty("meta", {{"charset", "utf-8"}});
    m_out.empty("meta", {{"http-equiv", "Content-Security-Policy"}, {"content", POLICY}});
    m_out.empty("meta", {{"name", "viewport"}, {"content", "width=device-width, initial-scale=1"}});
    m_out.empty("meta", {{"name", "referrer"}, {"content", "no-referrer"}});
    m_out.element("title", {}, title);
    m_out.constant(STYLE);
    m_out.close();
}

std::string HtmlPage::finish() {
    m_out.close();
    m_out.close();
    m_out.close();
    return m_out.text();
}

void HtmlPage::open_section(const char* id, const char* heading) {
    m_out.open("section", {{"aria-labelledby", id}});
    m_out.element("h2", {{"id", id}}, heading);
}

void HtmlPage::open_scroll(const char* label_id) {
    m_out.open("div", {{"class", "scroll"},
                       {"role", "region"},
                       {"tabindex", "0"},
                       {"aria-labelledby", label_id}});
}

void HtmlPage::scrolling(const char* label_id, const Markup& contents) {
    open_scroll(label_id);
    m_out.append(contents);
    m_out.close();
}

void HtmlPage::table(const HtmlTable& table) {
    open_scroll(table.id);
    m_out.open("table");
    m_out.element("caption", {{"id", table.id}}, table.caption);
    m_out.open("thead");
    m_out.open("tr");
    std::vector<const char*> styles;
    for (const std::string& column : table.columns) {
        styles.push_back(column_style(table, styles.size()));
        m_out.element("th", {{"scope", "col"}, {"class", styles.back()}}, column);
    }
    m_out.close();
    m_out.close();
    m_out.open("tbody");
    for (const HtmlTable::Row& row : table.rows) {
        m_out.open("tr", {{"class", row.style}});
        m_out.element("th", {{"scope", "row"}, {"class", styles[0]}}, row.cells[0]);
        for (std::size_t i = 1; i < row.cells.size(); ++i) {
            m_out.element("td", {{"class", styles[i]}}, row.cells[i]);
        }
        m_out.close();
    }
    m_out.close();
    m_out.close();
    m_out.close();
}

void HtmlPage::open_facts(const char* caption) {
    m_out.open("table");
    m_out.element("caption", {}, caption);
    m_out.open("tbody");
}

void HtmlPage::fact(const char* name, std::string_view value) {
    m_out.open("tr");
    m_out.element("th", {{"scope", "row"}}, name);
    m_out.element("td", {}, value);
    m_out.close();
}

void HtmlPage::close_facts() {
    m_out.close();
    m_out.close();
}

}  // namespace vemo::dump
