// SPDX-License-Identifier: MIT
// Draws paragraphs of text.
#include <algorithm>
#include <string>
#include <vector>

#include "prancheta/base/text.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/foreign_types.h"
#include "prancheta/entities/tag_list.h"
#include "prancheta/graphics/text_metrics.h"

namespace prancheta {

namespace {

using Lines = std::vector<std::wstring>;

/// Reads past "\H2.5x;" and its like; `i` is at the letter.
std::size_t pastArgument(const std::wstring& text, std::size_t i) {
    const std::size_t end = text.find(L';', i);
    return end == std::wstring::npos ? text.size() : end + 1;
}

/// "\Sa^b;" and "\Sa/b;" become "a/b".
std::size_t appendStacked(const std::wstring& text, std::size_t i, std::wstring& line) {
    const std::size_t end = pastArgument(text, i);
    for (std::size_t k = i + 1; k + 1 < end; ++k)
        line += text[k] == L'^' || text[k] == L'#' ? L'/' : text[k];
    return end;
}

}  // namespace

Lines plainParagraphs(const std::wstring& text) {
    constexpr std::wstring_view kWithArgument = L"ACcFfHhpQTW";
    constexpr std::wstring_view kSwitches = L"LlOoKkN";
    Lines lines(1);
    for (std::size_t i = 0; i < text.size();) {
        const wchar_t c = text[i];
        if (c == L'{' || c == L'}') {
            ++i;
            continue;
        }
        if (c != L'\\' || i + 1 >= text.size()) {
            lines.back() += c;
            ++i;
            continue;
        }
        const wchar_t code = text[++i];
        if (code == L'P') {
            lines.emplace_back();
            ++i;
        } else if (code == L'S') {
            i = appendStacked(text, i, lines.back());
        } else if (kWithArgument.find(code) != std::wstring_view::npos) {
            i = pastArgument(text, i);
        } else {
            if (kSwitches.find(code) == std::wstring_view::npos)
                lines.back() += code == L'~' ? L' ' : code;
            ++i;
        }
    }
    return lines;
}

namespace {

/// Breaks at blanks so that lines keep within `width`; 0 breaks nothing.
Lines wrapped(const Lines& lines, double height, double width) {
    if (!(width > 0.0)) return lines;
    Lines result;
    for (const std::wstring& line : lines) {
        std::wstring current;
        for (std::size_t from = 0; from <= line.size();) {
            const std::size_t blank = std::min(line.find(L' ', from), line.size());
            const std::wstring word = line.substr(from, blank - from);
            std::wstring longer = current;
            if (!current.empty()) longer += L' ';
            longer += word;
            if (!current.empty() && textWidth(longer, height, 1.0) > width) {
                result.push_back(current);
                current = word;
            } else {
                current = longer;
            }
            from = blank + 1;
        }
        result.push_back(current);
    }
    return result;
}

constexpr double kLineStep = 5.0 / 3.0;  ///< of the height, from line to line

}  // namespace

AcGeVector3d paragraphDirection(const RawTags& tags) {
    const AcGeVector3d given = findPoint(tags, 11).asVector();
    if (!given.isZeroLength()) return given.normal();
    return directionInPlane(findNumber(tags, 50, 0.0) * kPi / 180.0, AcGeVector3d::kZAxis);
}

double paragraphHeight(const std::wstring& text, double height, double width, double spacing) {
    const Lines lines = wrapped(plainParagraphs(text), height, width);
    return height + height * kLineStep * spacing * static_cast<double>(lines.size() - 1);
}

void drawMtext(const RawTags& all, AcGiGeometry& to) {
    const RawTags tags(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(knownLength(all)));
    std::wstring text;
    for (const RawTag& tag : tags)
        if (tag.code == 3 || tag.code == 1) text += toWide(tag.value);
    const double height = findNumber(tags, 40, 2.5);
    const Lines lines = wrapped(plainParagraphs(text), height, findNumber(tags, 41, 0.0));
    const AcGeVector3d along = paragraphDirection(tags);
    const AcGeVector3d up = planeNormal(tags).crossProduct(along);
    // Attachment 1..9: columns left, centre, right; rows top, middle, bottom.
    const int attachment = std::clamp(findWhole(tags, 71, 1), 1, 9) - 1;
    const int row = attachment / 3;
    const double step = height * kLineStep * findNumber(tags, 44, 1.0);
    const double total = height + step * static_cast<double>(lines.size() - 1);
    const AcGePoint3d top = findPoint(tags, 10) + up * (total * row / 2.0);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const double width = textWidth(lines[i], height, 1.0);
        const AcGePoint3d start = top - along * (width * (attachment % 3) / 2.0) -
                                  up * (height + step * static_cast<double>(i));
        to.text(start, planeNormal(tags), along, height, 1.0, 0.0, lines[i].c_str());
    }
}

}  // namespace prancheta
