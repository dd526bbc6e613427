#include "BoardDump/SvgCanvas.h"

#include <string>

namespace vemo::dump {
namespace {

// Monospaced fonts, so that the width of a text is known without the font. No variables and no
// nested rules, which not every SVG renderer supports.
constexpr const char* STYLE = R"(<style>
svg{max-width:100%;height:auto}
.p-ground{fill:#ffffff;stroke:#d0d7de}
.p-box{fill:#f6f8fa;stroke:#8c959f}
.p-track{fill:#d8dee4}
.p-used{fill:#0969da}
.p-over{fill:#cf222e}
.p-line{stroke:#57606a;fill:none}
.p-head{fill:#57606a}
.p-rule{stroke:#d0d7de;fill:none}
.p-gap{fill:none;stroke:#8c959f;stroke-dasharray:3 3}
.p-m0{fill:#c8e1ff;stroke:#0969da}
.p-m1{fill:#c6efce;stroke:#1a7f37}
.p-m2{fill:#fff0b3;stroke:#9a6700}
.p-m3{fill:#ffd6e8;stroke:#bf3989}
.p-m4{fill:#e6d9ff;stroke:#8250df}
.p-m5{fill:#ffdcc2;stroke:#bc4c00}
text{font-family:'DejaVu Sans Mono',Menlo,Consolas,'Liberation Mono',monospace;white-space:pre}
.p-title{font-size:20px;font-weight:bold;fill:#1f2328}
.p-heading{font-size:13px;font-weight:bold;fill:#1f2328}
.p-name{font-size:12px;fill:#1f2328}
.p-figure{font-size:11px;fill:#57606a}
.p-label{font-size:10px;fill:#57606a}
.p-alarm{font-size:11px;font-weight:bold;fill:#cf222e}
@media (prefers-color-scheme:dark){
.p-ground{fill:#0d1117;stroke:#30363d}
.p-box{fill:#161b22;stroke:#6e7681}
.p-track{fill:#30363d}
.p-used{fill:#388bfd}
.p-over{fill:#f85149}
.p-line{stroke:#9198a1}
.p-head{fill:#9198a1}
.p-rule{stroke:#30363d}
.p-gap{stroke:#6e7681}
.p-m0{fill:#0c2d6b;stroke:#58a6ff}
.p-m1{fill:#033a16;stroke:#3fb950}
.p-m2{fill:#4b2900;stroke:#d29922}
.p-m3{fill:#5e103e;stroke:#f778ba}
.p-m4{fill:#3c1e70;stroke:#a371f7}
.p-m5{fill:#5a1e02;stroke:#f0883e}
.p-title,.p-heading,.p-name{fill:#e6edf3}
.p-figure,.p-label{fill:#9da7b3}
.p-alarm{fill:#ff7b72}
}
</style>
)";

std::string number(int n) { return std::to_string(n); }

}  // namespace

void SvgCanvas::text(int x, int y, const char* style, std::string_view text, Anchor anchor) {
    if (text.empty()) {
        return;
    }
    if (anchor == Anchor::Start) {
        m_body.element("text", {{"x", x}, {"y", y}, {"class", style}}, text);
    } else {
        const char* word = anchor == Anchor::End ? "end" : "middle";
        m_body.element("text", {{"x", x}, {"y", y}, {"class", style}, {"text-anchor", word}}, text);
    }
}

void SvgCanvas::rect(int x, int y, int width, int height, const char* style, int radius) {
    m_body.empty("rect", {{"x", x},
                          {"y", y},
                          {"width", width},
                          {"height", height},
                          {"rx", radius},
                          {"class", style}});
}

void SvgCanvas::path(std::initializer_list<std::string_view> steps, const char* style) {
    std::string data;
    for (const std::string_view step : steps) {
        data += step;
    }
    m_body.empty("path", {{"d", data}, {"class", style}});
}

void SvgCanvas::rule(int left, int right, int y) {
    path({"M", number(left), " ", number(y), "H", number(right)}, "p-rule");
}

void SvgCanvas::arrow(int left, int right, int y, Arrow heads, std::string_view label) {
    const auto head = [this, y](int tip, int back) {
        path({"M", number(tip), " ", number(y), "L", number(back), " ", number(y - 4), "V",
              number(y + 4), "Z"},
             "p-head");
    };
    path({"M", number(left + 4), " ", number(y), "H", number(right - 4)}, "p-line");
    constexpr int LENGTH = 8;  // of a head
    if (heads != Arrow::ToRight) {
        head(left + 2, left + 2 + LENGTH);
    }
    if (heads != Arrow::ToLeft) {
        head(right - 2, right - 2 - LENGTH);
    }
    text((left + right) / 2, y - 5, "p-label", label, Anchor::Middle);
}

void SvgCanvas::begin_group(std::string_view tooltip) {
    m_body.open("g");
    m_body.element("title", {}, tooltip);
}

void SvgCanvas::end_group() { m_body.close(); }

Markup SvgCanvas::svg(int width, int height, std::string_view title,
                      std::string_view description) const {
    Markup whole;
    whole.open("svg", {{"xmlns", "http://www.w3.org/2000/svg"},
                       {"viewBox", "0 0 " + number(width) + " " + number(height)},
                       {"width", width},
                       {"height", height},
                       {"role", "img"},
                       {"aria-labelledby", "picture-title picture-description"}});
    whole.element("title", {{"id", "picture-title"}}, title);
    whole.element("desc", {{"id", "picture-description"}}, description);
    whole.constant(STYLE);
    whole.empty("rect", {{"width", width}, {"height", height}, {"rx", 6}, {"class", "p-ground"}});
    whole.append(m_body);
    whole.close();
    return whole;
}

}  // namespace vemo::dump
