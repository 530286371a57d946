// SPDX-License-Identifier: MIT
// Draws into a picture.
#include "prancheta/graphics/picture_recorder.h"

#include <algorithm>
#include <cmath>

#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/curves.h"
#include "prancheta/graphics/text_metrics.h"

namespace prancheta {

namespace {

/// Where a curve cannot stay one (unequal scales): of a full turn.
constexpr double kArcsOfTurn = 128.0;

/// Polyline with arcs.
struct Outline {
    std::vector<AcGePoint3d> points;
    std::vector<double> bulges;

    void add(const AcGePoint3d& p, double bulge) {
        points.push_back(p);
        bulges.push_back(bulge);
    }
};

/// What becomes of an arc, but for its end, as arcs through three of its points each.
void addDistorted(const BulgeArc& arc, const AcGeVector3d& normal, const AcGeMatrix3d& m,
                  Outline& out) {
    const AcGeVector3d x = arc.start * arc.radius;
    const AcGeVector3d y = normal.crossProduct(x);
    const auto at = [&](double angle) {
        return m * (arc.center + x * std::cos(angle) + y * std::sin(angle));
    };
    const auto count = std::max(1, static_cast<int>(std::abs(arc.sweep) / kTwoPi * kArcsOfTurn));
    const double step = arc.sweep / count;
    AcGePoint3d from = at(0.0);
    for (int i = 0; i < count; ++i) {
        const AcGePoint3d to = at(step * (i + 1));
        const double sweep = 2.0 * halfSweepThrough(from, at(step * (i + 0.5)), to);
        out.add(from, std::copysign(bulgeOfSweep(sweep), arc.sweep));
        from = to;
    }
}

AcGeVector3d distortedNormal(const AcGeMatrix3d& m, const AcGeVector3d& normal) {
    const AcGeVector3d x = arbitraryXAxis(normal);
    return (m * x).crossProduct(m * normal.crossProduct(x)).normal();
}

}  // namespace

PictureRecorder::PictureRecorder(Picture& out, AcGiRegenType type, bool dragging)
    : m_type(type), m_dragging(dragging), m_geometry(out, m_traits) {}

void PictureRecorder::begin(const PictureTraits& own) {
    m_traits.now = own;
    m_traits.fill = kAcGiFillAlways;
    m_geometry.forgetTransforms();
}

const PictureRecorder::Geometry::Level& PictureRecorder::Geometry::level() const {
    static const Level kNone;
    return m_stack.empty() ? kNone : m_stack.back();
}

std::span<const AcGePoint3d> PictureRecorder::Geometry::mapped(
    std::span<const AcGePoint3d> points) {
    const Level& now = level();
    if (now.map == Map::None) return points;
    m_scratch.clear();
    for (const AcGePoint3d& p : points) m_scratch.push_back(now.matrix * p);
    return m_scratch;
}

Adesk::Boolean PictureRecorder::Geometry::pushModelTransform(const AcGeMatrix3d& m) {
    Level next;
    next.matrix = m_stack.empty() ? m : m_stack.back().matrix * m;
    if (!next.matrix.isUniScaledOrtho()) {
        next.map = Map::Other;
    } else {
        next.map = next.matrix.det() < 0.0 ? Map::Mirror : Map::Similarity;
        next.scale = next.matrix.scale();
        // The cube root of 1 may miss 1 by a rounding, which would show in every radius.
        if (std::abs(next.scale - 1.0) < 1e-12) next.scale = 1.0;
    }
    m_stack.push_back(next);
    return Adesk::kFalse;
}

Adesk::Boolean PictureRecorder::Geometry::popModelTransform() {
    if (!m_stack.empty()) m_stack.pop_back();
    return Adesk::kFalse;
}

Adesk::Boolean PictureRecorder::Geometry::polyline(Adesk::UInt32 count, const AcGePoint3d* points,
                                                   const AcGeVector3d* /*normal*/,
                                                   Adesk::LongPtr marker) {
    PictureTraits traits = m_traits.now;
    if (marker != -1) traits.marker = marker;
    m_out.addPolyline(traits, mapped({points, count}));
    return Adesk::kFalse;
}

Adesk::Boolean PictureRecorder::Geometry::polygon(Adesk::UInt32 count, const AcGePoint3d* points) {
    const auto outline = mapped({points, count});
    if (m_traits.fill == kAcGiFillAlways) {
        m_out.addPolygon(m_traits.now, outline);
    } else if (!outline.empty()) {
        const std::vector<double> straight(outline.size(), 0.0);
        m_out.addPline(m_traits.now, outline, straight, true);
    }
    return Adesk::kFalse;
}

void PictureRecorder::Geometry::ellipse(const BulgeArc& arc, const AcGeVector3d& normal,
                                        bool closed) {
    if (!std::isfinite(arc.sweep)) return;
    const AcGeMatrix3d& m = level().matrix;
    Outline outline;
    addDistorted(arc, normal, m, outline);
    if (!closed) {
        AcGeVector3d last = arc.start;
        last.rotateBy(arc.sweep, normal);
        outline.add(m * (arc.center + last * arc.radius), 0.0);
    }
    m_out.addPline(m_traits.now, outline.points, outline.bulges, closed,
                   distortedNormal(m, normal));
}

Adesk::Boolean PictureRecorder::Geometry::circle(const AcGePoint3d& center, double radius,
                                                 const AcGeVector3d& normal) {
    const Level& now = level();
    if (now.map == Map::Other)
        ellipse({center, arbitraryXAxis(normal), radius, kTwoPi}, normal.normal(), true);
    else if (now.map == Map::None)
        m_out.addCircle(m_traits.now, center, radius, normal);
    else
        m_out.addCircle(m_traits.now, now.matrix * center, radius * now.scale, now.matrix * normal);
    return Adesk::kFalse;
}

Adesk::Boolean PictureRecorder::Geometry::circularArc(const AcGePoint3d& center, double radius,
                                                      const AcGeVector3d& normal,
                                                      const AcGeVector3d& start, double sweep,
                                                      AcGiArcType type) {
    const Level& now = level();
    // Under a mirror the direction of the arc about the mapped normal turns round.
    const double mappedSweep = now.map == Map::Mirror ? -sweep : sweep;
    if (now.map == Map::Other)
        ellipse({center, start.normal(), radius, std::clamp(sweep, -kTwoPi, kTwoPi)},
                normal.normal(), false);
    else if (now.map == Map::None)
        m_out.addArc(m_traits.now, center, radius, normal, start, sweep);
    else
        m_out.addArc(m_traits.now, now.matrix * center, radius * now.scale, now.matrix * normal,
                     now.matrix * start, mappedSweep);
    if (type == kAcGiArcSimple) return Adesk::kFalse;
    const AcGeVector3d first = start.normal() * radius;
    AcGeVector3d last = first;
    last.rotateBy(sweep, normal);
    const AcGePoint3d rest[3] = {center + last, center, center + first};
    const AcGePoint3d chord[2] = {rest[0], rest[2]};
    return type == kAcGiArcSector ? polyline(3, rest, nullptr, -1)
                                  : polyline(2, chord, nullptr, -1);
}

Adesk::Boolean PictureRecorder::Geometry::text(const AcGePoint3d& position,
                                               const AcGeVector3d& normal,
                                               const AcGeVector3d& direction, double height,
                                               double width, double oblique, const ACHAR* text) {
    if (text == nullptr) return Adesk::kFalse;
    const AcGeMatrix3d& m = level().matrix;
    const AcGeVector3d flat = direction.normal();
    const AcGeVector3d along = m * flat;
    AcGeVector3d up = m * normal.normal().crossProduct(flat);
    const AcGeVector3d unit = along.normal();
    up -= unit * up.dotProduct(unit);
    const double rise = up.length();
    if (!(rise > 0.0) || !(along.length() > 0.0)) return Adesk::kFalse;
    AcGeVector3d mappedNormal = unit.crossProduct(up);
    AcGePoint3d at = m * position;
    AcGeVector3d reading = unit;
    if (mappedNormal.z < 0.0 && m_letters == Letters::Mirrored) {
        mappedNormal = -mappedNormal;
        reading = -unit;
        width = -width;
        oblique = -oblique;
    } else if (mappedNormal.z < 0.0) {
        // Seen from behind: the same place, written so that it reads from below or from the right.
        const bool readable = unit.x > 1e-9 || (unit.x > -1e-9 && unit.y > 0.0);
        mappedNormal = -mappedNormal;
        at += readable ? up * height : along * textWidth(text, height, width);
        if (!readable) reading = -unit;
    }
    m_out.addText(m_traits.now, at, mappedNormal, reading, height * rise,
                  width * (along.length() / rise), oblique, text);
    return Adesk::kFalse;
}

void PictureRecorder::Geometry::distorted(std::span<const AcGePoint3d> points,
                                          std::span<const double> bulges, bool closed) {
    const AcGeMatrix3d& m = level().matrix;
    Outline outline;
    forEachSegment(
        points, bulges, closed, AcGeVector3d::kZAxis,
        [&](const AcGePoint3d& a, const AcGePoint3d&) { outline.add(m * a, 0.0); },
        [&](const BulgeArc& arc, const AcGePoint3d&, const AcGePoint3d&) {
            addDistorted(arc, AcGeVector3d::kZAxis, m, outline);
        });
    if (!closed) outline.add(m * points.back(), 0.0);
    m_out.addPline(m_traits.now, outline.points, outline.bulges, closed,
                   distortedNormal(m, AcGeVector3d::kZAxis));
}

Adesk::Boolean PictureRecorder::Geometry::pline(Adesk::UInt32 count, const AcGePoint3d* points,
                                                const double* bulges, bool closed) {
    if (count == 0) return Adesk::kFalse;
    const Level& now = level();
    if (bulges == nullptr) {
        m_bulges.assign(count, 0.0);
    } else {
        m_bulges.assign(bulges, bulges + count);
        for (double& bulge : m_bulges)
            if (!std::isfinite(bulge)) return Adesk::kFalse;
    }
    if (now.map == Map::Other) {
        distorted({points, count}, m_bulges, closed);
        return Adesk::kFalse;
    }
    if (now.map == Map::Mirror)
        for (double& bulge : m_bulges)
            if (bulge != 0.0) bulge = -bulge;
    m_out.addPline(m_traits.now, mapped({points, count}), m_bulges, closed,
                   now.matrix * AcGeVector3d::kZAxis);
    return Adesk::kFalse;
}

}  // namespace prancheta
