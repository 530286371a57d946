// SPDX-License-Identifier: MIT
// Encoder of slide images: whole vectors, fills and colours only.
#include <algorithm>
#include <cmath>

#include "prancheta/slides/slide.h"

namespace prancheta::slides {
namespace {

void word(std::string& out, unsigned value) {
    out.push_back(static_cast<char>(value & 0xFF));
    out.push_back(static_cast<char>(value >> 8 & 0xFF));
}

void word(std::string& out, int value) { word(out, static_cast<unsigned>(value)); }

void header(std::string& out, const Slide& slide) {
    out.append("AutoCAD Slide\r\n\x1a\0\x56\x02", 19);
    word(out, slide.width - 1);
    word(out, slide.height - 1);
    const auto aspect = static_cast<std::uint32_t>(std::lround(slide.aspect * 1e7));
    word(out, aspect & 0xFFFF);
    word(out, aspect >> 16);
    word(out, 2);
    word(out, 0x1234);
}

void fillRecord(std::string& out, int x, int y) {
    word(out, 0xFD00);
    word(out, x);
    word(out, y);
}

void element(std::string& out, const Element& element) {
    const auto& points = element.points;
    if (points.size() == 2) {
        // The first word also tells the kind of the record: it cannot be negative.
        const bool turned = points[0].x < 0;
        for (const Pixel& p : {points[turned ? 1 : 0], points[turned ? 0 : 1]}) {
            word(out, p.x);
            word(out, p.y);
        }
        return;
    }
    const int count = static_cast<int>(points.size());
    fillRecord(out, count, -1);
    for (const Pixel& p : points) fillRecord(out, p.x, p.y);
    fillRecord(out, count, -1);
}

/// A stroke that lies wholly to the left of the screen has no place in the format, nor has a corner
/// below it.
bool canBeWritten(const Element& e) {
    if (e.points.size() == 2) return e.points[0].x >= 0 || e.points[1].x >= 0;
    return e.points.size() > 2 && e.points.size() <= 10 &&
           std::all_of(e.points.begin(), e.points.end(), [](Pixel p) { return p.y >= 0; });
}

}  // namespace

std::string writeSlide(const Slide& slide) {
    std::string out;
    header(out, slide);
    int color = -1;
    for (const Element& e : slide.elements) {
        if (!canBeWritten(e)) continue;
        if (e.color != color) word(out, 0xFF00U | e.color);
        color = e.color;
        element(out, e);
    }
    word(out, 0xFC00);
    return out;
}

}  // namespace prancheta::slides
