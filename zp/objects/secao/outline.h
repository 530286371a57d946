// SPDX-License-Identifier: MIT
// Closed loops of a section: corner vertices with roundings, and the lines and arcs made of them.
#pragma once

#include <algorithm>
#include <vector>

namespace zp::secao {

/// Section plane: x to the right, y up, seen from the member's start; mm.
struct Point {
    double x = 0.0;
    double y = 0.0;
};

struct Bounds {
    double x0 = 1e300;
    double y0 = 1e300;
    double x1 = -1e300;
    double y1 = -1e300;

    bool empty() const { return x0 > x1; }
    /// mm.
    double largura() const { return empty() ? 0.0 : x1 - x0; }
    /// mm.
    double altura() const { return empty() ? 0.0 : y1 - y0; }
    /// The larger side: the measure of tolerances.
    double side() const;
    /// mm.
    void include(double x, double y) {
        x0 = std::min(x0, x);
        y0 = std::min(y0, y);
        x1 = std::max(x1, x);
        y1 = std::max(y1, y);
    }
    void include(const Bounds& other);
};

/// How a corner is rounded: the bend of a sheet, the concave fillet of a rolled shape, or the
/// rounded inner edge at the end of a rolled leg.
enum class Rounding { None, Bend, Root, Toe };

struct Vertex {
    double x = 0.0;
    double y = 0.0;
    double radius = 0.0;
    Rounding type = Rounding::None;
};

/// Corners in order: counter-clockwise for steel, clockwise for holes. A circle has no corners.
struct Loop {
    std::vector<Vertex> vertices;
    bool hole = false;
    double circleRadius = 0.0;
    Point centre;
};

/// Line (varre = 0) or arc from a to b; angles in radians, counter-clockwise positive.
struct Segment {
    Point a;
    Point b;
    Point centre;
    double radius = 0.0;
    double start = 0.0;  ///< angle of a seen from the centre
    double sweep = 0.0;  ///< signed sweep

    bool arc() const { return sweep != 0.0; }
    /// mm, along the arc.
    double comprimento() const;
    /// tan(sweep / 4).
    double bulge() const;
    /// 0: where it begins, 1: where it ends.
    Point point(double fraction) const;
};

/// Unrounded corner of a toe and the arc that rounds it.
struct ToeCorner {
    Point corner;
    std::size_t arc = 0;
};

struct Outline {
    std::vector<Segment> segments;
    std::vector<ToeCorner> toes;
    bool hole = false;
    bool circle = false;
    Bounds bounds;
};

/// Multiplies all radii of the loop by the smallest ratio of a side to the two tangent lengths on
/// it when that ratio is below 1. False when the loop cannot be drawn: a side without length, a
/// corner folded back, wrong direction of travel, or sides that cross. O(n^2) for n corners, n
/// <= 16.
bool fitRadii(Loop& loop);

/// Area of a loop that `fitRadii` accepted, roundings included; negative for a hole.
double area(const Loop& loop);

/// The lines and arcs of a loop that `fitRadii` accepted.
Outline trace(const Loop& loop);

/// Straight part of the side from a corner to the next one, between their roundings, mm.
double straight(const Loop& loop, std::size_t corner);

/// Exact box of one segment, extremes of arcs included.
Bounds boundsOf(const Segment& segment);

/// Where direction.x * x + direction.y * y is largest on the outlines; the origin where there are
/// none.
Point furthest(const std::vector<Outline>& outlines, const Point& direction);

// Motions of a loop. Mirroring reverses the order, so that the direction of travel stays.
/// mm.
void move(Loop& loop, double dx, double dy);
void halfTurn(Loop& loop);
void mirror(Loop& loop);
/// Radians about the origin, counter-clockwise.
void rotate(Loop& loop, double angle);

}  // namespace zp::secao
