// SPDX-License-Identifier: MIT
// The font of drawings: texts set to the house's own widths, so that they stay texts and fit.
#pragma once

#include <QFont>
#include <QString>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace prancheta {

/// A text as it is to be drawn: codes (%%c %%d %%p %%nnn %%%) replaced, and the stretches that %%u
/// and %%o underline and overline.
struct Lettering {
    struct Stroke {
        double from, to;  ///< pixels of the font from the left end
        bool above;       ///< overline
    };
    QString text;
    double width = 0.0;  ///< advance in pixels of the font
    std::vector<Stroke> strokes;
};

/// One font size for all texts; they are scaled when drawn. Needs a QGuiApplication.
class LetteringFont {
public:
    LetteringFont();
    const QFont& font() const { return m_font; }
    /// Height of capitals in pixels of the font.
    double capHeight() const { return m_capHeight; }
    Lettering lettering(std::wstring_view text);

private:
    double advance(char32_t letter);

    QFont m_font;
    double m_capHeight = 0.0;
    std::unordered_map<char32_t, double> m_advances;
};

}  // namespace prancheta
