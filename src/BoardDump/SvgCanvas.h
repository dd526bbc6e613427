#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "BoardDump/Markup.h"

namespace vemo::dump {

/// The elements of a picture, with coordinates in pixels. Styles are classes of its style sheet:
/// "p-name" and others for texts, "p-box" and others for shapes.
class SvgCanvas {
public:
    enum class Anchor { Start, Middle, End };
    enum class Arrow { ToLeft, ToRight, Both };

    static constexpr int LINE = 19;  ///< Height of a line of text.

    /// A text whose baseline is at `y`. Nothing is drawn for an empty one.
    void text(int x, int y, const char* style, std::string_view text,
              Anchor anchor = Anchor::Start);

    /// A rectangle, whose corners are rounded with `radius`.
    void rect(int x, int y, int width, int height, const char* style, int radius = 0);

    /// A thin horizontal line.
    void rule(int left, int right, int y);

    /// A horizontal arrow with a label above it.
    void arrow(int left, int right, int y, Arrow heads, std::string_view label);

    /// Begins a group of elements that have a tooltip.
    void begin_group(std::string_view tooltip);
    void end_group();

    /// Puts the elements of `other` on top.
    void append(const SvgCanvas& other) { m_body.append(other.m_body); }

    /// The picture as an element `svg`. Its ids begin with "picture-".
    Markup svg(int width, int height, std::string_view title, std::string_view description) const;

private:
    void path(std::initializer_list<std::string_view> steps, const char* style);

    Markup m_body;
};

}  // namespace vemo::dump
