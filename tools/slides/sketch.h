// SPDX-License-Identifier: MIT
// A slide being drawn in millimetres of a section, fitted into the recording area at the end.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "prancheta/slides/slide.h"
#include "zp/objects/secao/outline.h"

namespace tools {

using zp::secao::Bounds;
using zp::secao::Outline;
using zp::secao::Point;

/// Colour indices of the pictures: outlines contrast with any background.
enum class Colour : std::uint8_t { Outline = 7, Axis = 1, Mark = 1, Hidden = 3, Arrow = 3 };

/// Collects strokes and filled polygons. Dashes and marks are sized in pixels of the finished
/// slide, so all slides look alike whatever the size of the section.
class Sketch {
public:
    /// The box that is fitted into the picture, margins aside.
    explicit Sketch(const Bounds& world);

    void line(Point a, Point b, Colour colour);
    /// Dash and gap in pixels.
    void dashed(Point a, Point b, Colour colour, double dash, double gap);
    void outline(const std::vector<Outline>& outlines, Colour colour);
    /// Cross and filled square on a point.
    void mark(Point at, Colour colour);
    /// Arrow whose head is at `tip`; direction in degrees, length in pixels.
    void arrow(Point tip, double degrees, double length, Colour colour);
    /// Digits 1 to 4 and letters A, C, L made of strokes, the middle of the first one at a distance
    /// in pixels from a point; height in pixels.
    void text(std::string_view signs, Point at, double dx, double dy, Colour colour,
              double height = 16.0);

    /// Drawing unit of one pixel.
    double pixel() const { return 1.0 / m_scale; }
    const prancheta::slides::Slide& slide() const { return m_slide; }

private:
    prancheta::slides::Pixel toPixel(Point p) const;
    Point moved(Point p, double degrees, double pixels) const;
    void polygon(const std::vector<Point>& points, Colour colour);

    prancheta::slides::Slide m_slide;
    double m_scale = 1.0;
    double m_dx = 0.0;
    double m_dy = 0.0;
};

}  // namespace tools
