#include "BoardLint/TextOutput.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "Base/Characters.h"
#include "BoardLint/FindingText.h"

namespace vemo::lint {
namespace {

// A longer source line is cut to this many columns; at most MARGIN characters of them precede the
// place.
constexpr std::size_t MAX_WIDTH = 100;
constexpr std::size_t MARGIN = 40;
constexpr std::size_t TAB_WIDTH = 8;
constexpr std::size_t NUMBER_WIDTH = 5;
constexpr const char* CUT = "...";

struct Style {
    const char* begin;
    const char* end;
};

struct Styles {
    Style place;
    Style error;
    Style warning;
    Style note;
    Style mark;
};

constexpr Style PLAIN = {"", ""};
constexpr const char* RESET = "\x1b[0m";
constexpr Styles WITHOUT_COLOR = {PLAIN, PLAIN, PLAIN, PLAIN, PLAIN};
constexpr Styles WITH_COLOR = {{"\x1b[1m", RESET},
                               {"\x1b[1;31m", RESET},
                               {"\x1b[1;35m", RESET},
                               {"\x1b[1;36m", RESET},
                               {"\x1b[1;32m", RESET}};

std::string styled(const Style& style, const std::string& text) {
    return style.begin + text + style.end;
}

/// A source line as a terminal shows it.
struct Excerpt {
    std::string text;
    std::size_t mark_begin = 0;  // columns of the terminal before the place
    std::size_t mark_width = 0;  // 0 when there is no place within the line
};

/// A character as a terminal shows it in column `column`.
std::string cell(const Character& character, std::size_t column) {
    return character.bytes == "\t" ? std::string(TAB_WIDTH - column % TAB_WIDTH, ' ')
                                   : printable(character);
}

Excerpt cut_out(std::string_view line, const Location& place) {
    Excerpt excerpt;
    const std::size_t first = place.column == 0 ? 0 : place.column - 1;
    const std::size_t last = first + std::max(place.length, 1U);
    std::size_t index = 0;
    if (line.size() > MAX_WIDTH && first > MARGIN) {
        for (; !line.empty() && index < first - MARGIN; ++index) {
            take_character(line);
        }
        excerpt.text = CUT;
    }
    std::size_t width = excerpt.text.size();
    for (; !line.empty() && width < MAX_WIDTH; ++index) {
        const std::string text = cell(take_character(line), width);
        if (index == first) {
            excerpt.mark_begin = width;
        }
        excerpt.text += text;
        width += display_width(text);
        if (first <= index && index < last) {
            excerpt.mark_width = width - excerpt.mark_begin;
        }
    }
    if (index <= first) {
        excerpt.mark_begin = width;  // behind the end of the line
    }
    excerpt.mark_width = place.column == 0 ? 0 : std::max<std::size_t>(excerpt.mark_width, 1);
    if (!line.empty()) {
        excerpt.text += CUT;
    }
    return excerpt;
}

class TextWriter {
public:
    TextWriter(const Sources& sources, const Styles& styles)
        : m_sources(sources), m_styles(styles) {}

    void write(const Finding& finding) {
        const bool is_error = finding.severity == Severity::Error;
        write_head(finding.location, is_error ? m_styles.error : m_styles.warning,
                   severity_name(finding.severity), finding.message + " [" + finding.id + "]");
        write_source(finding.location, printable(question(finding)));
        for (const Note& note : finding.notes) {
            if (note.location.line > 0) {
                write_head(note.location, m_styles.note, "note", note.text);
                write_source(note.location, "");
            } else {
                write_margin("");
                m_out += "= " + styled(m_styles.note, "note:") + " " + printable(note.text) + "\n";
            }
        }
    }

    std::string take() { return std::move(m_out); }

private:
    void write_head(const Location& location, const Style& style, const char* kind,
                    const std::string& message) {
        std::string place = printable(location.file) + ":";
        for (const unsigned number : {location.line, location.column}) {
            if (number == 0) {
                break;
            }
            place += std::to_string(number) + ":";
        }
        m_out += styled(m_styles.place, place) + " " + styled(style, std::string(kind) + ":") + " "
                 + printable(message) + "\n";
    }

    void write_source(const Location& location, const std::string& suggestion) {
        const std::string_view line =
            location.line == 0 ? std::string_view() : m_sources.line(location.file, location.line);
        Excerpt excerpt;
        if (!line.empty()) {
            excerpt = cut_out(line, location);
            write_margin(std::to_string(location.line));
            m_out += "| " + excerpt.text + "\n";
        }
        if (excerpt.mark_width > 0) {
            write_margin("");
            m_out += "| " + std::string(excerpt.mark_begin, ' ')
                     + styled(m_styles.mark, "^" + std::string(excerpt.mark_width - 1, '~'))
                     + (suggestion.empty() ? "" : " ") + suggestion + "\n";
        } else if (!suggestion.empty()) {
            write_margin("");
            m_out += "= " + suggestion + "\n";
        }
    }

    /// The part of a line before its bar.
    void write_margin(const std::string& number) {
        m_out +=
            std::string(NUMBER_WIDTH - std::min(NUMBER_WIDTH, number.size()), ' ') + number + " ";
    }

    const Sources& m_sources;
    const Styles& m_styles;
    std::string m_out;
};

}  // namespace

std::string text_output(const std::vector<Finding>& findings, const Sources& sources,
                        const TextOptions& options) {
    TextWriter writer(sources, options.has_color ? WITH_COLOR : WITHOUT_COLOR);
    for (const Finding& finding : findings) {
        writer.write(finding);
    }
    return writer.take();
}

}  // namespace vemo::lint
