// SPDX-License-Identifier: MIT
// Draws into a picture.
#include "prancheta/graphics/picture_recorder.h"

#include <cmath>

#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/curves.h"
#include "prancheta/graphics/text_metrics.h"

namespace prancheta {

namespace {

/// Chords of a full turn where a curve cannot stay one (unequal scales, filled circles).
constexpr double kChordsOfTurn = 72.0;

unsigned coarseCount(double sweep) {
    return static_cast<unsigned>(std::ceil(std::abs(sweep) / kTwoPi * kChordsOfTurn));
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

void PictureRecorder::Geometry::chords(const AcGePoint3d& center, double radius,
                                       const AcGeVector3d& normal, const AcGeVector3d& start,
                                       double sweep, bool filled) {
    if (!std::isfinite(sweep)) return;
    std::vector<AcGePoint3d> points;
    appendArc(center, radius, normal.normal(), start.normal(), sweep, coarseCount(sweep), points);
    if (filled)
        m_out.addPolygon(m_traits.now, mapped(std::span(points).subspan(1)));
    else
        m_out.addPolyline(m_traits.now, mapped(points));
}

Adesk::Boolean PictureRecorder::Geometry::circle(const AcGePoint3d& center, double radius,
                                                 const AcGeVector3d& normal) {
    const Level& now = level();
    if (now.map == Map::Other)
        chords(center, radius, normal, arbitraryXAxis(normal), kTwoPi, false);
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
        chords(center, radius, normal, start, sweep, false);
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
    if (mappedNormal.z < 0.0) {
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

void PictureRecorder::Geometry::plineChords(std::span<const AcGePoint3d> points,
                                            std::span<const double> bulges, bool closed) {
    std::vector<AcGePoint3d> outline{points[0]};
    forEachSegment(
        points, bulges, closed, AcGeVector3d::kZAxis,
        [&](const AcGePoint3d&, const AcGePoint3d& b) { outline.push_back(b); },
        [&](const BulgeArc& arc, const AcGePoint3d&, const AcGePoint3d&) {
            outline.pop_back();
            appendArc(arc.center, arc.radius, AcGeVector3d::kZAxis, arc.start, arc.sweep,
                      coarseCount(arc.sweep), outline);
        });
    m_out.addPolyline(m_traits.now, mapped(outline));
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
        plineChords({points, count}, m_bulges, closed);
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
