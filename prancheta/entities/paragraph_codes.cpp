// SPDX-License-Identifier: MIT
// Reads the codes inside paragraphs of text.
#include "prancheta/entities/paragraph_codes.h"

#include <algorithm>
#include <cmath>
#include <cwctype>

#include "prancheta/base/text.h"
#include "prancheta/geometry/angles.h"

namespace prancheta {

namespace {

constexpr double kItalicSlant = 15.0 * kPi / 180.0;

/// Number at the head of a text, 0 when there is none; `rest` is what follows it.
double leadingNumber(std::wstring_view text, std::wstring_view& rest) {
    std::size_t end = 0;
    while (end < text.size() && std::wstring_view(L"+-.0123456789").find(text[end]) != rest.npos)
        ++end;
    double value = 0.0;
    if (!parseNumber(text.substr(0, end), value)) value = 0.0;
    rest = text.substr(end);
    return value;
}

class Reader {
public:
    Reader(const std::wstring& contents, const ParagraphStyle& style)
        : m_text(contents), m_scale(style.height) {
        m_now.height = style.height;
        m_now.widthFactor = style.widthFactor;
        m_now.oblique = style.oblique;
        m_paragraphs.emplace_back();
    }

    /// The letters' places while they are read.
    std::vector<std::size_t> places;

    std::vector<Paragraph> read() {
        while (m_at < m_text.size()) step(m_text[m_at]);
        last().format = m_now;
        return std::move(m_paragraphs);
    }

private:
    Paragraph& last() { return m_paragraphs.back(); }

    void step(wchar_t c) {
        ++m_at;
        if (c == L'{') {
            m_outer.push_back(m_now);
        } else if (c == L'}') {
            if (m_outer.empty()) return;
            m_now = m_outer.back();
            m_outer.pop_back();
        } else if (c == L'\n') {
            endParagraph();
        } else if (c == L'\t') {
            last().atoms.push_back({Atom::Kind::Tab, shown(), {}, {}, 0});
        } else if (c == L'\\' && m_at < m_text.size()) {
            code(m_text[m_at++]);
        } else {
            add(c);
        }
    }

    LetterFormat shown() const {
        LetterFormat format = m_now;
        if (format.italic) format.oblique += kItalicSlant;
        return format;
    }

    void add(wchar_t c) { add(c, c == L' ' ? Atom::Kind::Blanks : Atom::Kind::Letters); }

    void add(wchar_t c, Atom::Kind kind) {
        places.push_back(m_at - 1);
        const LetterFormat format = shown();
        std::vector<Atom>& atoms = last().atoms;
        if (atoms.empty() || atoms.back().kind != kind || atoms.back().format != format)
            atoms.push_back({kind, format, {}, {}, 0});
        atoms.back().text += c;
    }

    void endParagraph() {
        Paragraph next;
        last().format = m_now;
        next.column = last().column;
        next.firstIndent = last().firstIndent;
        next.indent = last().indent;
        next.tabs = last().tabs;
        m_paragraphs.push_back(std::move(next));
    }

    /// Up to the semicolon, which is passed.
    std::wstring argument() {
        const std::size_t end = std::min(m_text.find(L';', m_at), m_text.size());
        std::wstring text = m_text.substr(m_at, end - m_at);
        m_at = std::min(end + 1, m_text.size());
        return text;
    }

    void code(wchar_t letter) {
        switch (letter) {
            case L'P':
            case L'N':
                return endParagraph();
            case L'L':
            case L'l':
                m_now.under = letter == L'L';
                return;
            case L'O':
            case L'o':
                m_now.over = letter == L'O';
                return;
            case L'K':
            case L'k':
                m_now.through = letter == L'K';
                return;
            case L'~':
                return add(L' ', Atom::Kind::Letters);  // keeps its words together
            case L'S':
                return stack();
            case L'f':
            case L'F':
                return font(argument());
            case L'p':
                return paragraph(argument());
            case L'H':
            case L'W':
            case L'Q':
            case L'C':
            case L'c':
            case L'A':
            case L'T':
                return number(letter, argument());
            default:
                return add(letter);
        }
    }

    void number(wchar_t letter, const std::wstring& text) {
        std::wstring_view rest;
        const double value = leadingNumber(text, rest);
        const bool times = !rest.empty() && (rest[0] == L'x' || rest[0] == L'X');
        if (letter == L'H' && value > 0.0) m_now.height = times ? m_now.height * value : value;
        if (letter == L'W' && value > 0.0)
            m_now.widthFactor = times ? m_now.widthFactor * value : value;
        if (letter == L'Q' && std::abs(value) < 85.0) m_now.oblique = value * kPi / 180.0;
        if (letter == L'C' && value >= 0.0 && value <= 256.0) m_now.color = static_cast<int>(value);
        if (letter == L'A') m_now.stackPlace = std::clamp(static_cast<int>(value), 0, 2);
    }

    /// "Arial|b1|i0|c0|p34".
    void font(const std::wstring& text) {
        m_now.bold = text.find(L"|b1") != std::wstring::npos;
        m_now.italic = text.find(L"|i1") != std::wstring::npos;
    }

    /// "i-3,l3,t3,6,qc;": indents and tabs in heights of the text.
    void paragraph(const std::wstring& text) {
        if (text.empty()) return;
        wchar_t what = 0;
        for (std::wstring_view part, left = text; !left.empty();) {
            const std::size_t comma = std::min(left.find(L','), left.size());
            part = left.substr(0, comma);
            left.remove_prefix(std::min(comma + 1, left.size()));
            while (!part.empty() && std::iswalpha(static_cast<wint_t>(part[0])) != 0 &&
                   what != L'q') {
                what = part[0];
                if (what == L't') last().tabs.clear();
                part.remove_prefix(1);
            }
            if (what == L'q' && !part.empty()) {
                const std::size_t column = std::wstring_view(L"lcr").find(part[0]);
                last().column.reset();
                if (column < 3) last().column = static_cast<int>(column);
                if (part[0] == L'j' || part[0] == L'd') last().column = 0;
                what = 0;
                continue;
            }
            std::wstring_view rest;
            const double value = leadingNumber(part, rest) * m_scale;
            if (what == L'i') last().firstIndent = value;
            if (what == L'l') last().indent = value;
            if (what == L't') last().tabs.push_back(value);
        }
    }

    void stack() {
        Atom atom{Atom::Kind::Stack, shown(), {}, {}, 0};
        std::wstring* part = &atom.text;
        for (; m_at < m_text.size() && m_text[m_at] != L';'; ++m_at) {
            const wchar_t c = m_text[m_at];
            if (c == L'\\' && m_at + 1 < m_text.size()) {
                *part += m_text[++m_at];
            } else if (atom.rule == 0 && (c == L'/' || c == L'^' || c == L'#')) {
                atom.rule = c;
                part = &atom.below;
            } else {
                *part += c;
            }
        }
        m_at = std::min(m_at + 1, m_text.size());
        const auto trimmed = [](std::wstring& s) { s = std::wstring(trim(std::wstring_view(s))); };
        if (atom.rule == 0) {
            const std::size_t known = places.size();
            for (const wchar_t c : atom.text) add(c);
            places.resize(known);
            return;
        }
        trimmed(atom.text);
        trimmed(atom.below);
        last().atoms.push_back(std::move(atom));
    }

    const std::wstring& m_text;
    double m_scale;
    std::size_t m_at = 0;
    LetterFormat m_now;
    std::vector<LetterFormat> m_outer;
    std::vector<Paragraph> m_paragraphs;
};

}  // namespace

std::vector<Paragraph> readParagraphs(const std::wstring& contents, const ParagraphStyle& style) {
    return Reader(contents, style).read();
}

std::vector<std::wstring> plainParagraphs(const std::wstring& contents) {
    std::vector<std::wstring> lines;
    for (const Paragraph& paragraph : readParagraphs(contents, {})) {
        std::wstring line;
        for (const Atom& atom : paragraph.atoms) {
            line += atom.kind == Atom::Kind::Tab ? L" " : atom.text;
            if (atom.kind == Atom::Kind::Stack) line += L"/" + atom.below;
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

std::vector<std::size_t> letterPlaces(const std::wstring& contents) {
    const ParagraphStyle style;
    Reader reader(contents, style);
    (void)reader.read();
    return std::move(reader.places);
}

std::wstring withoutCodes(const std::wstring& text) {
    std::wstring contents;
    for (const wchar_t c : text) {
        if (c == L'\\' || c == L'{' || c == L'}') contents += L'\\';
        contents += c;
    }
    return contents;
}

}  // namespace prancheta
