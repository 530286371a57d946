// SPDX-License-Identifier: MIT
// Strokes of a slide.
#include "sketch.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>

namespace tools {
namespace {

constexpr int kWidth = 399;
constexpr int kHeight = 299;
constexpr double kMargin = 34.0;
constexpr double kHead = 13.0;     // arrow head, pixels
constexpr double kCross = 15.0;    // half of an insertion mark's cross
constexpr double kSquare = 4.0;    // half of its square
constexpr double kArcStep = 0.12;  // radians a chord of an arc, at most

double radians(double degrees) { return degrees * std::numbers::pi / 180.0; }

}  // namespace

Sketch::Sketch(const Bounds& world) {
    m_slide.width = kWidth;
    m_slide.height = kHeight;
    m_slide.aspect = 4.0 / 3.0;
    m_scale = std::min((kWidth - 2 * kMargin) / world.largura(),
                       (kHeight - 2 * kMargin) / world.altura());
    m_dx = kWidth / 2.0 - m_scale * (world.x0 + world.x1) / 2.0;
    m_dy = kHeight / 2.0 - m_scale * (world.y0 + world.y1) / 2.0;
}

prancheta::slides::Pixel Sketch::toPixel(Point p) const {
    return {static_cast<std::int16_t>(std::lround(m_scale * p.x + m_dx)),
            static_cast<std::int16_t>(std::lround(m_scale * p.y + m_dy))};
}

Point Sketch::moved(Point p, double degrees, double pixels) const {
    return {p.x + pixel() * pixels * std::cos(radians(degrees)),
            p.y + pixel() * pixels * std::sin(radians(degrees))};
}

void Sketch::line(Point a, Point b, Colour colour) {
    m_slide.elements.push_back({static_cast<std::uint8_t>(colour), {toPixel(a), toPixel(b)}});
}

void Sketch::polygon(const std::vector<Point>& points, Colour colour) {
    prancheta::slides::Element element{static_cast<std::uint8_t>(colour), {}};
    for (const Point& p : points) element.points.push_back(toPixel(p));
    m_slide.elements.push_back(std::move(element));
}

void Sketch::dashed(Point a, Point b, Colour colour, double dash, double gap) {
    const double length = std::hypot(b.x - a.x, b.y - a.y) * m_scale;
    const auto at = [&](double pixels) {
        const double f = std::min(pixels / length, 1.0);
        return Point{a.x + f * (b.x - a.x), a.y + f * (b.y - a.y)};
    };
    for (double s = 0.0; s < length; s += dash + gap) line(at(s), at(s + dash), colour);
}

void Sketch::outline(const std::vector<Outline>& outlines, Colour colour) {
    for (const Outline& outline : outlines) {
        for (const auto& segment : outline.segments) {
            const int chords =
                std::max(1, static_cast<int>(std::ceil(std::abs(segment.sweep) / kArcStep)));
            for (int i = 0; i < chords; ++i)
                line(segment.point(static_cast<double>(i) / chords),
                     segment.point((i + 1.0) / chords), colour);
        }
    }
}

void Sketch::mark(Point at, Colour colour) {
    for (const double degrees : {0.0, 90.0})
        line(moved(at, degrees, -kCross), moved(at, degrees, kCross), colour);
    const double s = kSquare * pixel();
    polygon(
        {{at.x - s, at.y - s}, {at.x + s, at.y - s}, {at.x + s, at.y + s}, {at.x - s, at.y + s}},
        colour);
}

void Sketch::arrow(Point tip, double degrees, double length, Colour colour) {
    line(moved(tip, degrees, -length), tip, colour);
    polygon({tip, moved(tip, degrees + 160.0, kHead), moved(tip, degrees - 160.0, kHead)}, colour);
}

void Sketch::text(std::string_view signs, Point at, double dx, double dy, Colour colour,
                  double height) {
    // Strokes in a 2 x 4 grid, as pairs of grid points.
    struct Stroke {
        int x1, y1, x2, y2;
    };
    static const std::map<char, std::vector<Stroke>> kSigns = {
        {'1', {{1, 0, 1, 4}, {1, 4, 0, 3}}},
        {'2', {{0, 4, 2, 4}, {2, 4, 2, 2}, {2, 2, 0, 2}, {0, 2, 0, 0}, {0, 0, 2, 0}}},
        {'3', {{0, 4, 2, 4}, {2, 4, 2, 0}, {2, 0, 0, 0}, {2, 2, 0, 2}}},
        {'4', {{0, 4, 0, 2}, {0, 2, 2, 2}, {2, 4, 2, 0}}},
        {'A', {{0, 0, 1, 4}, {1, 4, 2, 0}, {0, 1, 2, 1}}},
        {'C', {{2, 4, 0, 4}, {0, 4, 0, 0}, {0, 0, 2, 0}}},
        {'L', {{0, 4, 0, 0}, {0, 0, 2, 0}}},
    };
    const double grid = height / 4.0;
    for (const char sign : signs) {
        const auto point = [&](int x, int y) {
            return Point{at.x + pixel() * (dx + grid * (x - 1)),
                         at.y + pixel() * (dy + grid * (y - 2))};
        };
        for (const Stroke& s : kSigns.at(sign)) line(point(s.x1, s.y1), point(s.x2, s.y2), colour);
        dx += 3 * grid;
    }
}

}  // namespace tools
