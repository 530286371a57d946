// SPDX-License-Identifier: MIT
// Codes of texts, and the font's measures.
#include "prancheta/plot/lettering.h"

#include <QFontMetricsF>
#include <QStringList>
#include <optional>

namespace prancheta {
namespace {

/// Large enough that rounding of the font's own measures does not show.
constexpr int kPixels = 100;

std::optional<char32_t> letterOfCode(wchar_t code) {
    switch (code) {
        case L'c':
        case L'C':
            return U'\u00d8';
        case L'd':
        case L'D':
            return U'\u00b0';
        case L'p':
        case L'P':
            return U'\u00b1';
        case L'%':
            return U'%';
        default:
            return {};
    }
}

/// What a sheet can show of a character: files of every format hold text, and a control character
/// or half of a character is none.
char32_t shown(char32_t c) {
    if (c == U'\t' || c == U'\n' || c == U'\r') return U' ';
    const bool control = c < 0x20 || (c >= 0x7F && c < 0xA0);
    const bool none = (c >= 0xD800 && c < 0xE000) || (c & 0xFFFEU) == 0xFFFEU || c > 0x10FFFF;
    return control || none ? U'?' : c;
}

bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

/// Reads a text letter by letter.
struct CodeReader {
    std::wstring_view text;
    std::size_t at = 0;
    bool under = false;
    bool over = false;

    /// Nothing for a switch of lines.
    std::optional<char32_t> next() {
        const wchar_t c = text[at];
        if (c != L'%' || text.substr(at, 2) != L"%%" || at + 2 >= text.size()) {
            ++at;
            return shown(static_cast<char32_t>(c));
        }
        const wchar_t code = text[at + 2];
        if (isDigit(code) && at + 4 < text.size() && isDigit(text[at + 3]) &&
            isDigit(text[at + 4])) {
            const int number =
                (code - L'0') * 100 + (text[at + 3] - L'0') * 10 + text[at + 4] - L'0';
            at += 5;
            return shown(static_cast<char32_t>(number));
        }
        at += 3;
        if (code == L'u' || code == L'U') under = !under;
        if (code == L'o' || code == L'O') over = !over;
        return letterOfCode(code);
    }
};

}  // namespace

LetteringFont::LetteringFont() : m_font(QStringList{"DejaVu Sans", "Liberation Sans", "Arial"}) {
    m_font.setStyleHint(QFont::SansSerif);
    m_font.setPixelSize(kPixels);
    m_font.setKerning(false);
    m_font.setHintingPreference(QFont::PreferNoHinting);
    m_capHeight = QFontMetricsF(m_font).capHeight();
    if (!(m_capHeight > 0.0)) m_capHeight = 0.7 * kPixels;
}

double LetteringFont::advance(char32_t letter) {
    const auto [entry, isNew] = m_advances.try_emplace(letter, 0.0);
    if (isNew)
        entry->second = QFontMetricsF(m_font).horizontalAdvance(QString::fromUcs4(&letter, 1));
    return entry->second;
}

Lettering LetteringFont::lettering(std::wstring_view text) {
    Lettering out;
    CodeReader reader{text};
    double underFrom = 0.0;
    double overFrom = 0.0;
    const auto close = [&](bool was, bool is, double& from, bool above) {
        if (was && !is && out.width > from) out.strokes.push_back({from, out.width, above});
        if (!was && is) from = out.width;
    };
    while (reader.at < text.size()) {
        const bool under = reader.under;
        const bool over = reader.over;
        if (const auto letter = reader.next()) {
            if (*letter < 0x10000)
                out.text += QChar(static_cast<char16_t>(*letter));
            else
                out.text += QString::fromUcs4(&*letter, 1);
            out.width += advance(*letter);
        }
        close(under, reader.under, underFrom, false);
        close(over, reader.over, overFrom, true);
    }
    close(reader.under, false, underFrom, false);
    close(reader.over, false, overFrom, true);
    return out;
}

}  // namespace prancheta
