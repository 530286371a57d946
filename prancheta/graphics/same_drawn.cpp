// SPDX-License-Identifier: MIT
// Pictures by their moments. O(n), and O(t log t) for t texts.
#include "prancheta/graphics/same_drawn.h"

#include <algorithm>
#include <cmath>

#include "prancheta/graphics/curves.h"

namespace prancheta {
namespace {

/// Drawing units: what two programs make of the same coordinate, and how far chords are from arcs.
constexpr double kNear = 1e-4;
/// Of a length, where one arc more or less is a chord.
constexpr double kChords = 1e-6;

/// Weight, first and second moments on the plan.
struct Moments {
    double weight = 0.0;
    double x = 0.0;
    double y = 0.0;
    double xx = 0.0;
    double xy = 0.0;
    double yy = 0.0;

    void addPoint(double w, double px, double py) {
        weight += w;
        x += w * px;
        y += w * py;
        xx += w * px * px;
        xy += w * px * py;
        yy += w * py * py;
    }
    /// Evenly spread: a line by Simpson's rule.
    void addLine(const AcGePoint3d& a, const AcGePoint3d& b) {
        const double length = std::hypot(b.x - a.x, b.y - a.y);
        addPoint(length / 6.0, a.x, a.y);
        addPoint(length / 1.5, (a.x + b.x) / 2.0, (a.y + b.y) / 2.0);
        addPoint(length / 6.0, b.x, b.y);
    }
    /// The triangle with the origin by the middles of its sides; its area has a sign.
    void addTriangle(const AcGePoint3d& a, const AcGePoint3d& b) {
        const double third = (a.x * b.y - b.x * a.y) / 6.0;
        addPoint(third, a.x / 2.0, a.y / 2.0);
        addPoint(third, b.x / 2.0, b.y / 2.0);
        addPoint(third, (a.x + b.x) / 2.0, (a.y + b.y) / 2.0);
    }
    void add(const Moments& m, double sign) {
        weight += sign * m.weight;
        x += sign * m.x;
        y += sign * m.y;
        xx += sign * m.xx;
        xy += sign * m.xy;
        yy += sign * m.yy;
    }
};

bool same(const Moments& a, const Moments& b, double size) {
    const double most = std::max({std::abs(a.weight), std::abs(b.weight), 1.0});
    const auto near = [](double u, double v, double by) { return std::abs(u - v) <= by; };
    const double first = kNear * most;
    const double second = first * std::max(size, 1.0);
    return near(a.weight, b.weight, kNear + kChords * most) && near(a.x, b.x, first) &&
           near(a.y, b.y, first) && near(a.xx, b.xx, second) && near(a.xy, b.xy, second) &&
           near(a.yy, b.yy, second);
}

struct Drawn {
    Moments lines;
    Moments fills;
    Moments written;
    std::vector<std::wstring> texts;
};

/// About a point, so that far places take no digits.
Drawn drawnBy(const Picture& picture, const AcGePoint3d& about) {
    Drawn drawn;
    std::vector<AcGePoint3d> outline;
    for (const PrimitiveView view : picture) {
        if (view.kind() == PrimitiveKind::Text) {
            const AcGeVector3d at = view.position() - about;
            drawn.written.addPoint(view.height(), at.x, at.y);
            drawn.texts.emplace_back(view.text());
            continue;
        }
        outline.clear();
        appendOutline(view, kNear, outline);
        for (AcGePoint3d& p : outline) p = AcGePoint3d::kOrigin + (p - about);
        const bool filled = view.kind() == PrimitiveKind::Polygon;
        Moments area;
        for (std::size_t i = 0; i + 1 < outline.size(); ++i)
            if (filled)
                area.addTriangle(outline[i], outline[i + 1]);
            else
                drawn.lines.addLine(outline[i], outline[i + 1]);
        if (filled && !outline.empty()) area.addTriangle(outline.back(), outline.front());
        drawn.fills.add(area, area.weight < 0.0 ? -1.0 : 1.0);
    }
    std::sort(drawn.texts.begin(), drawn.texts.end());
    return drawn;
}

}  // namespace

bool sameDrawn(const Picture& a, const Picture& b) {
    if (a.empty() || b.empty()) return a.empty() && b.empty();
    const AcDbExtents box = a.extents();
    if (box.isEmpty()) return false;
    const AcGeVector3d size = box.maxPoint() - box.minPoint();
    const AcGePoint3d about = box.minPoint() + size * 0.5;
    const Drawn one = drawnBy(a, about);
    const Drawn other = drawnBy(b, about);
    const double reach = size.length();
    return one.texts == other.texts && same(one.lines, other.lines, reach) &&
           same(one.fills, other.fills, reach) && same(one.written, other.written, reach);
}

}  // namespace prancheta
