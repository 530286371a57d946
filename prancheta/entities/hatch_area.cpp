// SPDX-License-Identifier: MIT
// The area of a hatch.
#include "prancheta/entities/hatch_area.h"

#include <algorithm>
#include <cmath>

#include "prancheta/entities/spline_curve.h"
#include "prancheta/geometry/angles.h"
#include "prancheta/geometry/bulge.h"

namespace prancheta {

namespace {

AcGePoint3d inSpace(const AcGePoint2d& p) { return {p.x, p.y, 0.0}; }

/// Corners of one curve from its beginning to its end; the bulge of the last counts for nothing.
HatchOutline chainOf(const HatchEdge& edge) {
    constexpr double kMostOfArc = kPi;  // a bulge tells no whole turn
    HatchOutline chain;
    std::vector<AcGePoint3d> points;
    const double side = edge.clockwise ? -1.0 : 1.0;
    double last = edge.end;
    if (last <= edge.start) last += kTwoPi;
    const double sweep = side * std::min(last - edge.start, kTwoPi);
    switch (edge.kind) {
        case HatchEdge::kLine:
            return {{edge.a.x, edge.a.y, 0.0}, {edge.b.x, edge.b.y, 0.0}};
        case HatchEdge::kArc: {
            const int parts =
                std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / kMostOfArc)));
            for (int i = 0; i <= parts; ++i) {
                const auto [s, c] = sineCosine(side * edge.start + sweep * i / parts);
                chain.push_back({edge.a.x + edge.radius * c, edge.a.y + edge.radius * s,
                                 bulgeOfSweep(sweep / parts)});
            }
            return chain;
        }
        case HatchEdge::kEllipse: {
            constexpr double kChordsOfTurn = 512.0;  // for areas right to a ten-thousandth
            const int parts =
                std::max(8, static_cast<int>(std::abs(sweep) / kTwoPi * kChordsOfTurn));
            for (int i = 0; i <= parts; ++i) {
                const auto [s, c] = sineCosine(side * edge.start + sweep * i / parts);
                chain.push_back({edge.a.x + edge.b.x * c - edge.b.y * edge.radius * s,
                                 edge.a.y + edge.b.y * c + edge.b.x * edge.radius * s, 0.0});
            }
            return chain;
        }
        case HatchEdge::kSpline: {
            SplineData spline;
            spline.degree = edge.degree;
            spline.knots = edge.knots;
            if (edge.weights.size() == edge.control.size()) spline.weights = edge.weights;
            for (const AcGePoint2d& p : edge.control) spline.control.push_back(inSpace(p));
            for (const AcGePoint2d& p : edge.fit) spline.fit.push_back(inSpace(p));
            for (std::size_t i = 0; edge.tangents.size() == 2 && i < 2; ++i)
                spline.tangents[i] = inSpace(edge.tangents[i]).asVector();
            if (isCurve(spline))
                points = splinePlaces(spline, By::Chords);
            else
                points = spline.fit.empty() ? spline.control : spline.fit;
            break;
        }
    }
    for (const AcGePoint3d& p : points) chain.push_back({p.x, p.y, 0.0});
    return chain;
}

double distance(const HatchVertex& a, const HatchVertex& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

void turnRound(HatchOutline& chain) {
    std::reverse(chain.begin(), chain.end());
    for (std::size_t i = 0; i + 1 < chain.size(); ++i) chain[i].bulge = -chain[i + 1].bulge;
}

HatchOutline joined(const std::vector<HatchEdge>& edges) {
    constexpr double kSame = 1e-6;
    HatchOutline outline;
    for (const HatchEdge& edge : edges) {
        HatchOutline chain = chainOf(edge);
        if (chain.size() < 2) continue;
        if (!outline.empty()) {
            // The first one may stand the wrong way round, too: the second one shows it.
            const HatchVertex& end = outline.back();
            if (distance(end, chain.back()) < distance(end, chain.front())) turnRound(chain);
            if (distance(end, chain.front()) <= kSame * (1.0 + std::abs(end.x) + std::abs(end.y)))
                outline.pop_back();
            else
                outline.back().bulge = 0.0;
        }
        outline.insert(outline.end(), chain.begin(), chain.end());
    }
    if (outline.size() > 2 && distance(outline.front(), outline.back()) <=
                                  kSame * (1.0 + std::abs(outline[0].x) + std::abs(outline[0].y)))
        outline.pop_back();
    else if (!outline.empty())
        outline.back().bulge = 0.0;
    return outline;
}

bool arcOf(const HatchVertex& a, const HatchVertex& b, BulgeArc& arc) {
    return arcOfBulge({a.x, a.y, 0.0}, {b.x, b.y, 0.0}, a.bulge, AcGeVector3d::kZAxis, arc);
}

struct Bounds {
    double left = 1e300;
    double bottom = 1e300;
    double right = -1e300;
    double top = -1e300;
};

/// A corner's bulge reaches at most as far as its chord times itself beside it.
Bounds boundsOf(const HatchOutline& outline) {
    Bounds box;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const HatchVertex& v = outline[i];
        const double beyond =
            distance(v, outline[(i + 1) % outline.size()]) * std::abs(v.bulge) +
            (std::abs(v.bulge) > 1.0 ? distance(v, outline[(i + 1) % outline.size()]) : 0.0);
        box.left = std::min(box.left, v.x - beyond);
        box.right = std::max(box.right, v.x + beyond);
        box.bottom = std::min(box.bottom, v.y - beyond);
        box.top = std::max(box.top, v.y + beyond);
    }
    return box;
}

}  // namespace

HatchOutline outlineOf(const HatchLoop& loop) {
    HatchOutline outline = loop.isPolyline() ? loop.vertices : joined(loop.edges);
    if (outline.size() < 2) outline.clear();
    return outline;
}

std::vector<HatchOutline> filledOutlines(const AcDbHatch& hatch) {
    const int wanted = hatch.hatchStyle() == AcDbHatch::kOuter
                           ? HatchLoop::kExternal | HatchLoop::kOutermost
                           : HatchLoop::kExternal;
    const auto isWanted = [&](const HatchLoop& loop) { return (loop.kind & wanted) != 0; };
    // Files that mark no loop at all mean every one.
    const bool all = hatch.hatchStyle() == AcDbHatch::kNormal ||
                     std::none_of(hatch.loops().begin(), hatch.loops().end(), isWanted);
    std::vector<HatchOutline> outlines;
    for (const HatchLoop& loop : hatch.loops()) {
        if (!all && !isWanted(loop)) continue;
        HatchOutline outline = outlineOf(loop);
        if (!outline.empty()) outlines.push_back(std::move(outline));
    }
    return outlines;
}

double areaOf(const HatchOutline& outline) {
    if (outline.empty()) return 0.0;
    double area = 0.0;
    // About a corner of its own: far from the origin products of coordinates lose their digits.
    const HatchVertex& o = outline[0];
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const HatchVertex& a = outline[i];
        const HatchVertex& b = outline[(i + 1) % outline.size()];
        area += ((a.x - o.x) * (b.y - o.y) - (b.x - o.x) * (a.y - o.y)) / 2.0;
        BulgeArc arc;
        if (arcOf(a, b, arc))
            area += arc.radius * arc.radius * (arc.sweep - std::sin(arc.sweep)) / 2.0;
    }
    return area;
}

bool isInside(const HatchOutline& outline, double x, double y) {
    bool inside = false;
    for (const HatchSegment& s : segmentsOf({&outline, 1})) {
        // Half a crossing for the chord, another one when the arc lies between chord and point.
        if ((s.a.y > y) != (s.b.y > y) &&
            x < s.a.x + (y - s.a.y) * (s.b.x - s.a.x) / (s.b.y - s.a.y))
            inside = !inside;
        if (s.radius == 0.0 || std::hypot(x - s.center.x, y - s.center.y) > s.radius) continue;
        double side = (s.b.x - s.a.x) * (y - s.a.y) - (s.b.y - s.a.y) * (x - s.a.x);
        // On the chord: where the first test took it to lie, a hair to the right or above.
        if (side == 0.0) side = s.a.y != s.b.y ? s.a.y - s.b.y : s.b.x - s.a.x;
        if (s.sweep > 0.0 ? side < 0.0 : side > 0.0) inside = !inside;
    }
    return inside;
}

double areaBetween(std::span<const HatchOutline> outlines) {
    struct Loop {
        const HatchOutline* outline;
        double area;
        Bounds box;
    };
    std::vector<Loop> loops;
    for (const HatchOutline& outline : outlines)
        loops.push_back({&outline, std::abs(areaOf(outline)), boundsOf(outline)});
    std::sort(loops.begin(), loops.end(),
              [](const Loop& a, const Loop& b) { return a.box.left < b.box.left; });
    double total = 0.0;
    for (const Loop& loop : loops) {
        const HatchVertex& v = loop.outline->front();
        bool hole = false;
        for (const Loop& around : loops) {
            if (around.box.left > v.x) break;
            const bool may = &around != &loop && around.area >= loop.area &&
                             v.x <= around.box.right && v.y >= around.box.bottom &&
                             v.y <= around.box.top;
            if (may && isInside(*around.outline, v.x, v.y)) hole = !hole;
        }
        total += hole ? -loop.area : loop.area;
    }
    return total;
}

std::vector<HatchSegment> segmentsOf(std::span<const HatchOutline> outlines) {
    std::vector<HatchSegment> segments;
    for (const HatchOutline& outline : outlines) {
        for (std::size_t i = 0; i < outline.size(); ++i) {
            const HatchVertex& a = outline[i];
            const HatchVertex& b = outline[(i + 1) % outline.size()];
            HatchSegment segment;
            segment.a = {a.x, a.y};
            segment.b = {b.x, b.y};
            BulgeArc arc;
            if (arcOf(a, b, arc)) {
                segment.center = {arc.center.x, arc.center.y};
                segment.radius = arc.radius;
                segment.start = std::atan2(arc.start.y, arc.start.x);
                segment.sweep = arc.sweep;
            }
            segments.push_back(segment);
        }
    }
    return segments;
}

}  // namespace prancheta
