// SPDX-License-Identifier: MIT
// Breaks paragraphs into lines and puts them where they stand.
#include "prancheta/entities/paragraphs.h"

#include <algorithm>
#include <cmath>

#include "prancheta/entities/paragraph_codes.h"
#include "prancheta/graphics/picture_recorder.h"
#include "prancheta/graphics/text_metrics.h"

namespace prancheta {

namespace {

constexpr double kLineStep = 5.0 / 3.0;  ///< of the height, from line to line
constexpr double kHalfGap = 0.25;        ///< of the height, between the parts of a fraction
constexpr double kTabStep = 4.0;         ///< of the height, where no tab is set
constexpr double kBoldShift = 0.05;      ///< of the height

struct Line {
    std::vector<Atom> atoms;
    std::vector<double> starts;  ///< one an atom, from the left edge
    double width = 0.0;          ///< without blanks at the end
    double letters = 0.0;        ///< height of the highest letters
    double above = 0.0;          ///< how far it reaches from the baseline
    double below = 0.0;
    int column = 0;
};

double stackHalf(const LetterFormat& f) { return f.height * (1.0 + kHalfGap); }

double widthOf(const Atom& atom) {
    const LetterFormat& f = atom.format;
    const double width = textWidth(atom.text, f.height, f.widthFactor);
    if (atom.kind != Atom::Kind::Stack) return width;
    const double below = textWidth(atom.below, f.height, f.widthFactor);
    return atom.rule == L'#' ? width + below + f.height / 2.0 : std::max(width, below);
}

/// Middle of a fraction above the baseline of a line with letters of this height.
double stackMiddle(const LetterFormat& f, double letters) {
    if (f.stackPlace == 0) return stackHalf(f);
    return f.stackPlace == 1 ? letters / 2.0 : letters - stackHalf(f);
}

/// Fills lines of one paragraph: words go on the next line when they do not fit.
class Filler {
public:
    Filler(const Paragraph& paragraph, const ParagraphStyle& style, std::vector<Line>& lines)
        : m_paragraph(paragraph), m_style(style), m_lines(lines) {}

    void fill() {
        begin(m_paragraph.indent + m_paragraph.firstIndent);
        const std::vector<Atom>& atoms = m_paragraph.atoms;
        for (std::size_t i = 0; i < atoms.size();) {
            if (isGap(atoms[i])) {
                put(atoms[i++]);
                continue;
            }
            std::size_t end = i;
            double width = 0.0;
            for (; end < atoms.size() && !isGap(atoms[end]); ++end) width += widthOf(atoms[end]);
            if (m_style.width > 0.0 && m_words && m_x + width > m_style.width * (1.0 + 1e-9)) {
                finish();
                begin(m_paragraph.indent);
            }
            for (; i < end; ++i) put(atoms[i]);
            m_words = true;
            m_line.width = m_x;
        }
        finish();
    }

private:
    static bool isGap(const Atom& atom) {
        return atom.kind == Atom::Kind::Blanks || atom.kind == Atom::Kind::Tab;
    }

    void begin(double x) {
        m_line = {};
        m_line.column = m_paragraph.column.value_or(m_style.column);
        m_x = std::max(x, 0.0);
        m_words = false;
    }

    void put(const Atom& atom) {
        m_line.atoms.push_back(atom);
        m_line.starts.push_back(m_x);
        m_x = atom.kind == Atom::Kind::Tab ? nextTab() : m_x + widthOf(atom);
    }

    double nextTab() const {
        for (const double tab : m_paragraph.tabs)
            if (tab > m_x + 1e-9) return tab;
        const double step = kTabStep * m_style.height;
        return (std::floor(m_x / step + 1e-9) + 1.0) * step;
    }

    void finish() {
        for (const Atom& atom : m_line.atoms)
            if (atom.kind == Atom::Kind::Letters)
                m_line.letters = std::max(m_line.letters, atom.format.height);
        if (m_line.letters == 0.0)
            m_line.letters =
                m_line.atoms.empty() ? m_paragraph.format.height : m_line.atoms[0].format.height;
        m_line.above = m_line.letters;
        for (const Atom& atom : m_line.atoms) {
            if (atom.kind != Atom::Kind::Stack) continue;
            const double middle = stackMiddle(atom.format, m_line.letters);
            m_line.above = std::max(m_line.above, middle + stackHalf(atom.format));
            m_line.below = std::max(m_line.below, stackHalf(atom.format) - middle);
        }
        m_lines.push_back(std::move(m_line));
    }

    const Paragraph& m_paragraph;
    const ParagraphStyle& m_style;
    std::vector<Line>& m_lines;
    Line m_line;
    double m_x = 0.0;
    bool m_words = false;
};

/// Puts the atoms of lines where they stand.
class Setter {
public:
    explicit Setter(SetParagraphs& out) : m_out(out) {}

    void set(const Line& line, double left, double baseline) {
        for (std::size_t i = 0; i < line.atoms.size(); ++i) {
            const Atom& atom = line.atoms[i];
            const double x = left + line.starts[i];
            if (atom.kind == Atom::Kind::Stack)
                stack(atom, x, baseline + stackMiddle(atom.format, line.letters));
            else if (atom.kind == Atom::Kind::Letters || isBetweenLike(line, i))
                letters(atom, atom.text, x, baseline, i > 0 && isBetweenLike(line, i - 1));
        }
    }

private:
    /// Blanks between letters of one kind belong to the text.
    static bool isBetweenLike(const Line& line, std::size_t i) {
        const std::vector<Atom>& atoms = line.atoms;
        return atoms[i].kind == Atom::Kind::Blanks && i > 0 && i + 1 < atoms.size() &&
               atoms[i - 1].kind == Atom::Kind::Letters &&
               atoms[i + 1].kind == Atom::Kind::Letters && atoms[i - 1].format == atoms[i].format &&
               atoms[i + 1].format == atoms[i].format;
    }

    void letters(const Atom& atom, const std::wstring& text, double x, double y, bool goesOn) {
        if (text.empty()) return;
        const LetterFormat& f = atom.format;
        const double width = textWidth(text, f.height, f.widthFactor);
        const double middle = y + f.height / 2.0;
        if (f.through) m_out.strokes.push_back({x, middle, x + width, middle, f.color});
        if (goesOn || atom.kind == Atom::Kind::Blanks) {
            // Before the code that ends its lines.
            m_out.letters.back().text.insert(m_out.letters.back().text.size() - m_tail, text);
            return;
        }
        std::wstring codes;
        if (f.under) codes += L"%%u";
        if (f.over) codes += L"%%o";
        m_tail = codes.size();
        m_out.letters.push_back(
            {codes + text + codes, x, y, f.height, f.widthFactor, f.oblique, f.color, f.bold});
    }

    void stack(const Atom& atom, double x, double middle) {
        const LetterFormat& f = atom.format;
        const double gap = f.height * kHalfGap;
        const double above = textWidth(atom.text, f.height, f.widthFactor);
        const double below = textWidth(atom.below, f.height, f.widthFactor);
        const double width = widthOf(atom);
        if (atom.rule == L'#') {
            letters(atom, atom.text, x, middle + gap / 2.0 - f.height / 4.0, false);
            letters(atom, atom.below, x + width - below, middle - gap / 2.0 - f.height * 0.75,
                    false);
            m_out.strokes.push_back({x + above, middle - f.height * 0.75,
                                     x + above + f.height / 2.0, middle + f.height * 0.75,
                                     f.color});
            return;
        }
        // Deviations stand flush left, fractions about their line.
        const double half = atom.rule == L'/' ? 0.5 : 0.0;
        letters(atom, atom.text, x + (width - above) * half, middle + gap, false);
        letters(atom, atom.below, x + (width - below) * half, middle - gap - f.height, false);
        if (atom.rule == L'/') m_out.strokes.push_back({x, middle, x + width, middle, f.color});
    }

    SetParagraphs& m_out;
    std::size_t m_tail = 0;
};

}  // namespace

SetParagraphs setParagraphs(const std::wstring& contents, const ParagraphStyle& style) {
    std::vector<Line> lines;
    for (const Paragraph& paragraph : readParagraphs(contents, style))
        Filler(paragraph, style, lines).fill();
    SetParagraphs set;
    for (const Line& line : lines) set.width = std::max(set.width, line.width);
    set.frame = style.width > 0.0 ? style.width : set.width;
    Setter setter(set);
    double baseline = 0.0;
    double hanging = 0.0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const Line& line = lines[i];
        if (i == 0)
            baseline = -line.above;
        else if (style.evenLines)
            baseline -= kLineStep * style.spacing * style.height;
        else
            baseline -=
                kLineStep * style.spacing * line.letters + (line.above - line.letters) + hanging;
        hanging = line.below;
        setter.set(line, (set.frame - line.width) * line.column / 2.0, baseline);
    }
    set.height = hanging - baseline;
    return set;
}

void drawParagraphs(const SetParagraphs& set, const AcGePoint3d& corner, const AcGeVector3d& along,
                    const AcGeVector3d& normal, const PictureTraits& own, AcGiWorldDraw& to) {
    const AcGeVector3d up = normal.crossProduct(along);
    const auto at = [&](double x, double y) { return corner + along * x + up * y; };
    AcGiSubEntityTraits& traits = to.subEntityTraits();
    std::optional<int> used;
    const auto use = [&](std::optional<int> wanted) {
        if (wanted == used) return;
        used = wanted;
        if (wanted)
            traits.setColor(static_cast<Adesk::UInt16>(*wanted));
        else
            setColor(traits, own);
    };
    for (const SetLetters& each : set.letters) {
        use(each.color);
        // Bold letters are struck twice; their pieces once.
        const bool twice = each.bold && to.regenType() != kAcGiForExplode;
        for (int i = 0; i < (twice ? 2 : 1); ++i)
            to.geometry().text(at(each.x + each.height * kBoldShift * i, each.y), normal, along,
                               each.height, each.widthFactor, each.oblique, each.text.c_str());
    }
    for (const SetStroke& each : set.strokes) {
        use(each.color);
        const AcGePoint3d ends[2] = {at(each.x1, each.y1), at(each.x2, each.y2)};
        to.geometry().polyline(2, ends);
    }
}

}  // namespace prancheta
