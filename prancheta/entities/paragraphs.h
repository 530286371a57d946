// SPDX-License-Identifier: MIT
// Paragraphs of formatted text: what their codes mean, where their lines break and stand.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "acgi.h"
#include "prancheta/graphics/picture.h"

namespace prancheta {

/// How letters look that no code says otherwise about. Lengths in drawing units, angles in radians.
struct ParagraphStyle {
    double height = 2.5;
    double widthFactor = 1.0;
    double oblique = 0.0;
    double width = 0.0;    ///< at which lines break; 0 breaks none
    double spacing = 1.0;  ///< of 5/3 of the height
    bool evenLines = false;
    int column = 0;  ///< lines stand left, centred, right in the frame: 0, 1, 2
};

/// Letters of one kind in one line, or a stroke. In the frame's plane: x from its left edge, y from
/// its top.
struct SetLetters {
    std::wstring text;
    double x, y;  ///< left end of the baseline
    double height, widthFactor, oblique;
    std::optional<int> color;
    bool bold = false;
};
struct SetStroke {
    double x1, y1, x2, y2;
    std::optional<int> color;
};

/// Paragraphs as they stand in a frame.
struct SetParagraphs {
    std::vector<SetLetters> letters;  ///< line by line, from left to right
    std::vector<SetStroke> strokes;
    double frame = 0.0;   ///< width by which the lines are aligned
    double width = 0.0;   ///< of the longest line
    double height = 0.0;  ///< from the top of the first line to the foot of the last
};
SetParagraphs setParagraphs(const std::wstring& contents, const ParagraphStyle& style);

/// Draws them through `to` with the frame's top left corner at `corner`; the colour of `own` where
/// no code says another one.
void drawParagraphs(const SetParagraphs& set, const AcGePoint3d& corner, const AcGeVector3d& along,
                    const AcGeVector3d& normal, const PictureTraits& own, AcGiWorldDraw& to);

/// Without formatting, one element each; fractions as "a/b".
std::vector<std::wstring> plainParagraphs(const std::wstring& contents);
/// Where in the contents the letters stand that are shown, those of fractions left out.
std::vector<std::size_t> letterPlaces(const std::wstring& contents);
/// Contents that show this text: what would be a code in it is none.
std::wstring withoutCodes(const std::wstring& text);

}  // namespace prancheta
