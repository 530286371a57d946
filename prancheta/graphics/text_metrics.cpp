// SPDX-License-Identifier: MIT
// Estimated size of texts.
#include "prancheta/graphics/text_metrics.h"

#include <cmath>

#include "prancheta/base/code_point.h"

namespace prancheta {

namespace {

/// Advance of a character over the height of the text.
double advance(wchar_t c) {
    constexpr std::wstring_view kNarrow = L"iIl1jtf.,;:'!|()[] ";
    constexpr std::wstring_view kWide = L"mwMWOQGDHNU@%";
    if (kNarrow.find(c) != std::wstring_view::npos) return 0.5;
    return kWide.find(c) != std::wstring_view::npos ? 1.1 : 0.9;
}

}  // namespace

double textWidth(std::wstring_view text, double height, double widthFactor) {
    double total = 0.0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool code = text.compare(i, 2, L"%%") == 0 && i + 2 < text.size();
        const wchar_t letter = code ? text[i + 2] : text[i];
        // The second half of a character that does not fit 16 bits.
        if (kWideIsUtf16 && isLowSurrogate(static_cast<char32_t>(letter))) continue;
        const bool switchesLine =
            code && (letter == L'u' || letter == L'o' || letter == L'U' || letter == L'O');
        if (code) i += 2;
        if (!switchesLine) total += code ? 0.9 : advance(letter);
    }
    return total * height * widthFactor;
}

std::array<AcGePoint3d, 4> textBox(const PrimitiveView& text) {
    const AcGePoint3d p = text.position();
    const AcGeVector3d along =
        text.direction() * textWidth(text.text(), text.height(), text.widthFactor());
    const AcGeVector3d up = text.normal().crossProduct(text.direction()) * text.height();
    const AcGeVector3d slant = text.direction() * (text.height() * std::tan(text.oblique()));
    return {p, p + along, p + along + up + slant, p + up + slant};
}

}  // namespace prancheta
