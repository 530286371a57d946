// SPDX-License-Identifier: MIT
// The codes inside paragraphs of text, read into letters and what they look like.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "prancheta/entities/paragraphs.h"

namespace prancheta {

/// What letters look like.
struct LetterFormat {
    double height = 2.5;
    double widthFactor = 1.0;
    double oblique = 0.0;
    std::optional<int> color;
    int stackPlace = 0;  ///< \A: fractions stand on the baseline, in the middle, under the top
    bool bold = false;
    bool italic = false;
    bool under = false;
    bool over = false;
    bool through = false;
    bool operator==(const LetterFormat&) const = default;
};

/// A stretch that does not break.
struct Atom {
    enum class Kind { Letters, Blanks, Tab, Stack };
    Kind kind;
    LetterFormat format;
    std::wstring text;   ///< of a stack what is above
    std::wstring below;  ///< of a stack
    wchar_t rule = 0;    ///< of a stack: '/' with a line between, '#' side by side, '^' without
};

struct Paragraph {
    std::vector<Atom> atoms;
    LetterFormat format;        ///< at its end: says how high a line without letters is
    std::optional<int> column;  ///< \pq: 0 left, 1 centre, 2 right
    double firstIndent = 0.0;   ///< drawing units, of the first line from the others
    double indent = 0.0;
    std::vector<double> tabs;
};

std::vector<Paragraph> readParagraphs(const std::wstring& contents, const ParagraphStyle& style);

}  // namespace prancheta
