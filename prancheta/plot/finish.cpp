// SPDX-License-Identifier: MIT
// Corrections in finished files.
#include "prancheta/plot/finish.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <span>
#include <string_view>
#include <utility>

#include "prancheta/base/text.h"
#include "prancheta/plot/through.h"

namespace prancheta {
namespace {

constexpr std::size_t kNot = std::string::npos;

/// The table of a PDF that says where its objects begin: `xref`, a line `0 count`, one line of 20
/// bytes an object, and its own place after `startxref`.
struct CrossReference {
    std::size_t first = kNot;  ///< first entry
    std::size_t count = 0;
    std::size_t place = kNot;  ///< of the number after startxref
};

constexpr std::size_t kEntry = 20;
constexpr int kOffsetDigits = 10;

CrossReference crossReferenceOf(const std::string& pdf) {
    CrossReference found;
    constexpr std::string_view kHead = "\nxref\n0 ";
    constexpr std::string_view kStart = "startxref\n";
    const std::size_t table = pdf.rfind(kHead);
    const std::size_t start = pdf.rfind(kStart);
    if (table == kNot || start == kNot || start < table) return {};
    const std::size_t number = table + kHead.size();
    const std::size_t lineEnd = pdf.find('\n', number);
    std::from_chars(pdf.data() + number, pdf.data() + lineEnd, found.count);
    found.first = lineEnd + 1;
    if (found.first + found.count * kEntry > start) return {};
    found.place = start + kStart.size();
    return found;
}

/// Replaces `length` bytes at `at` before the table, and moves what stands behind them.
void replaceInPdf(std::string& pdf, std::size_t at, std::size_t length, std::string_view with) {
    CrossReference table = crossReferenceOf(pdf);
    if (table.first == kNot || at + length > table.first) return;
    const auto moved = [&](std::size_t offset) {
        return offset > at ? offset - length + with.size() : offset;
    };
    for (std::size_t i = 0; i < table.count; ++i) {
        char* entry = pdf.data() + table.first + i * kEntry;
        std::size_t offset = 0;
        std::from_chars(entry, entry + kOffsetDigits, offset);
        char digits[kOffsetDigits + 1];
        std::snprintf(digits, sizeof digits, "%010zu", moved(offset) % 10'000'000'000U);
        std::copy_n(digits, kOffsetDigits, entry);
    }
    std::size_t own = 0;
    const std::size_t ownEnd = pdf.find('\n', table.place);
    std::from_chars(pdf.data() + table.place, pdf.data() + ownEnd, own);
    pdf.replace(table.place, ownEnd - table.place, std::to_string(moved(own)));
    pdf.replace(at, length, with);
}

/// Hundredths of a thousandth of a point are beyond any printer, and short to write.
std::string pointsText(double points) {
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, points, std::chars_format::fixed, 4);
    return std::string(text, end.ptr);
}

/// A text between tags.
std::string xmlText(std::string_view utf8) {
    std::string out;
    for (const char c : harmless(utf8)) {
        if (c == '<')
            out += "&lt;";
        else if (c == '>')
            out += "&gt;";
        else if (c == '&')
            out += "&amp;";
        else
            out.push_back(c);
    }
    return out;
}

}  // namespace

void finishPdf(std::string& pdf, const std::vector<QSizeF>& pages) {
    constexpr std::string_view kDate = "\n/CreationDate (";
    const std::size_t date = pdf.find(kDate);
    if (date != kNot) {
        const std::size_t end = pdf.find('\n', date + 1);
        if (end != kNot) replaceInPdf(pdf, date, end - date, "");
    }
    constexpr std::string_view kPage = "\n/MediaBox [";
    std::size_t page = 0;
    for (const QSizeF& size : pages) {
        page = pdf.find(kPage, page);
        const std::size_t end = page != kNot ? pdf.find(']', page) : kNot;
        if (end == kNot) return;
        page += kPage.size();
        replaceInPdf(pdf, page, end - page,
                     "0 0 " + pointsText(size.width()) + " " + pointsText(size.height()));
    }
}

namespace {

std::string clipRegion(const std::string& name, const QRectF& clip) {
    std::string region = "<clipPath id=\"" + name + "\"><rect";
    const auto attribute = [&](const char* key, double value) {
        region += std::string(" ") + key + "=\"" + numberText(value) + "\"";
    };
    attribute("x", clip.x());
    attribute("y", clip.y());
    attribute("width", clip.width());
    attribute("height", clip.height());
    return region + "/></clipPath>\n";
}

/// Numbers between commas and blanks.
std::vector<double> numbersOf(std::string_view text) {
    std::vector<double> numbers;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(", "), text.size());
        double number = 0.0;
        if (parseNumber(text.substr(0, end), number)) numbers.push_back(number);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return numbers;
}

/// What both regions have in common; the outline by its coordinates.
std::string clipOutline(const std::string& name, const std::string& within,
                        std::span<const double> outline) {
    std::string region =
        "<clipPath id=\"" + name + "\" clip-path=\"url(#" + within + ")\"><polygon points=\"";
    for (const double number : outline) region += numberText(number) + " ";
    region.back() = '"';
    return region + "/></clipPath>\n";
}

/// The group that holds each mark becomes the beginning or the end of a clipped one. O(bytes).
void clipFrames(std::string& svg) {
    const std::string mark = "points=\"" + std::to_string(kFrameMark) + ",";
    std::string out;
    std::size_t done = 0;
    int count = 0;
    for (std::size_t at = svg.find(mark); at != kNot; at = svg.find(mark, done)) {
        const std::size_t first = at + mark.size();
        const std::vector<double> n =
            numbersOf(std::string_view(svg).substr(first, svg.find('"', first) - first));
        const std::size_t group = svg.rfind("<g ", at);
        const std::size_t end = svg.find("</g>", at);
        if (n.size() < 3 || group == kNot || end == kNot) return;
        out.append(svg, done, group - done);
        if (n[0] == 0.0 && n.size() >= 5) {
            std::string name = "janela" + std::to_string(++count);
            out += clipRegion(name, QRectF(n[1], n[2], n[3], n[4]));
            if (n.size() > 5) {
                const std::string frame = std::exchange(name, name + "contorno");
                out += clipOutline(name, frame, std::span(n).subspan(5));
            }
            out += "<g clip-path=\"url(#" + name + ")\">\n";
        } else {
            out += "</g>\n";
        }
        done = end + std::string_view("</g>").size();
    }
    svg = out.append(svg, done);
}

}  // namespace

void finishSvg(std::string& svg, const QRectF& clip, std::string_view title) {
    clipFrames(svg);
    constexpr std::string_view kDefinitions = "</defs>";
    constexpr std::string_view kEnd = "</svg>";
    const std::size_t definitions = svg.find(kDefinitions);
    const std::size_t end = svg.rfind(kEnd);
    if (definitions == kNot || end == kNot) return;
    const std::size_t description = svg.find("<desc>");
    const std::size_t itsTitle = std::min(svg.find("<title>"), description);
    svg.insert(end, "</g>\n");
    svg.insert(definitions + kDefinitions.size(), "\n<g clip-path=\"url(#folha)\">");
    svg.insert(definitions, clipRegion("folha", clip));
    if (description < definitions)
        svg.replace(itsTitle, description - itsTitle, "<title>" + xmlText(title) + "</title>\n");
}

}  // namespace prancheta
