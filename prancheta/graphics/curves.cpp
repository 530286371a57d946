// SPDX-License-Identifier: MIT
// Curves of pictures as chords.
#include "prancheta/graphics/curves.h"

#include <algorithm>
#include <cmath>

#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/text_metrics.h"

namespace prancheta {

unsigned chordCount(double radius, double sweep, double deviation) {
    const double turn = std::abs(sweep);
    const double least = turn >= kTwoPi ? 8.0 : 1.0;
    // Sagitta of a chord over the angle s: r (1 - cos(s / 2)).
    const double cosine = std::clamp(1.0 - deviation / radius, 0.0, 1.0);
    const double step = 2.0 * std::acos(cosine);
    const double count = step > 0.0 ? std::ceil(turn / step - 1e-9) : 1000.0;
    return static_cast<unsigned>(std::clamp(count, least, 1000.0));
}

void appendArc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
               const AcGeVector3d& start, double sweep, unsigned count,
               std::vector<AcGePoint3d>& out) {
    const AcGeVector3d x = start * radius;
    const AcGeVector3d y = normal.crossProduct(x);
    for (unsigned i = 0; i <= count; ++i) {
        const auto [s, c] = sineCosine(sweep * i / count);
        out.push_back(center + x * c + y * s);
    }
}

void appendOutline(const PrimitiveView& p, double deviation, std::vector<AcGePoint3d>& out) {
    const auto arc = [&](const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
                         const AcGeVector3d& start, double sweep) {
        appendArc(center, radius, normal, start, sweep, chordCount(radius, sweep, deviation), out);
    };
    switch (p.kind()) {
        case PrimitiveKind::Polyline:
            out.insert(out.end(), p.points().begin(), p.points().end());
            return;
        case PrimitiveKind::Polygon:
            out.insert(out.end(), p.points().begin(), p.points().end());
            out.push_back(p.points()[0]);
            return;
        case PrimitiveKind::Circle:
            return arc(p.center(), p.radius(), p.normal(), arbitraryXAxis(p.normal()), kTwoPi);
        case PrimitiveKind::Arc:
            return arc(p.center(), p.radius(), p.normal(), p.start(), p.sweep());
        case PrimitiveKind::Text: {
            const auto box = textBox(p);
            out.insert(out.end(), box.begin(), box.end());
            out.push_back(box[0]);
            return;
        }
        case PrimitiveKind::Pline: {
            const AcGeVector3d normal = p.normal();
            out.push_back(p.points()[0]);
            forEachSegment(
                p.points(), p.bulges(), p.closed(), normal,
                [&](const AcGePoint3d&, const AcGePoint3d& b) { out.push_back(b); },
                [&](const BulgeArc& shape, const AcGePoint3d&, const AcGePoint3d& b) {
                    out.pop_back();
                    arc(shape.center, shape.radius, normal, shape.start, shape.sweep);
                    out.back() = b;
                });
            return;
        }
    }
}

}  // namespace prancheta
