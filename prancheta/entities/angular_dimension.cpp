// SPDX-License-Identifier: MIT
// Dimensions of angles.
#include <algorithm>
#include <cmath>

#include "dbdim.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/dimension_layout.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDb2LineAngularDimension, AcDbDimension, 0, 0, 0, DIMENSION, "Prancheta")
ACRX_DXF_DEFINE_MEMBERS(AcDb3PointAngularDimension, AcDbDimension, 0, 0, 0, DIMENSION, "Prancheta")

namespace {

AcGeVector3d at(double angle) { return directionInPlane(angle, AcGeVector3d::kZAxis); }

double angleOf(const AcGePoint3d& from, const AcGePoint3d& to) {
    const AcGeVector3d v = to - from;
    return positiveAngle(std::atan2(v.y, v.x));
}

bool same(const AcGePoint3d& a, const AcGePoint3d& b) {
    return std::hypot(a.x - b.x, a.y - b.y) <= 1e-9;
}

AcGePoint3d farther(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& vertex,
                    const AcGeVector3d& towards) {
    return (a - vertex).dotProduct(towards) >= (b - vertex).dotProduct(towards) ? a : b;
}

}  // namespace

double PranchetaAngularDimension::measurement() const {
    Angle a;
    return angle(a) ? a.sweep : 0.0;
}

void PranchetaAngularDimension::layOut(DimensionLayout& out) const {
    Angle a;
    out.filedPoint = arcPoint();
    out.textMiddle = arcPoint();
    if (!angle(a)) return;
    const DimensionSizes& sizes = out.sizes;
    const double radius = std::hypot(arcPoint().x - a.vertex.x, arcPoint().y - a.vertex.y);
    if (radius <= 1e-9) return;
    for (const bool second : {false, true}) {
        if ((second ? out.style.dimse2 : out.style.dimse1) != 0) continue;
        const double direction = a.start + (second ? a.sweep : 0.0);
        const double from = (sidePoint(a, direction) - a.vertex).dotProduct(at(direction));
        const double begin = std::max(from, 0.0) + sizes.extensionOffset;
        if (begin < radius)
            out.line(a.vertex + at(direction) * begin,
                     a.vertex + at(direction) * (radius + sizes.extensionBeyond),
                     DimensionPart::Kind::Extension);
    }

    const double tail = sizes.arrow / radius;  // angle that an arrow covers
    const double middle = a.start + a.sweep / 2.0;
    const AcGeVector3d along = AcGeVector3d::kZAxis.crossProduct(at(middle));
    const bool level = out.style.dimtih != 0;
    out.read(along, level);
    const bool onLine = out.textOnLine() || level;
    out.putText(a.vertex + at(middle) * radius, !onLine);

    const double end = a.start + a.sweep;
    const bool inside = a.sweep >= 2.0 * tail + 2.0 * sizes.gap / radius;
    const auto tip = [&](double angle) { return a.vertex + at(angle) * radius; };
    const auto tangent = [&](double angle) { return AcGeVector3d::kZAxis.crossProduct(at(angle)); };
    const auto arc = [&](double from, double sweep) {
        if (sweep > 1e-12)
            out.parts.push_back({DimensionPart::Kind::Arc, a.vertex, tip(from), sweep});
    };
    // An arrow lies along the chord that it covers.
    const double lean = (inside ? 1.0 : -1.0) * tail / 2.0;
    out.arrow(tip(a.start), (inside ? -1.0 : 1.0) * tangent(a.start + lean), 0);
    out.arrow(tip(end), (inside ? 1.0 : -1.0) * tangent(end - lean), 1);
    const double opening = onLine && !out.userPosition ? out.opening(along) / radius : 0.0;
    const double cut = inside && out.style.dimtsz <= 0.0 ? tail : 0.0;
    const double run = a.sweep - 2.0 * cut;
    const double half = opening > 0.0 ? (run - opening) / 2.0 : run;
    arc(a.start + cut, half);
    if (opening > 0.0) arc(end - cut - half, half);
    if (inside) return;
    arc(a.start - 2.0 * tail, tail);
    arc(end + tail, tail);
}

// --- Two lines -----------------------------------------------------------------------------------

AcDb2LineAngularDimension::AcDb2LineAngularDimension(const AcGePoint3d& xLine1Start,
                                                     const AcGePoint3d& xLine1End,
                                                     const AcGePoint3d& xLine2Start,
                                                     const AcGePoint3d& xLine2End,
                                                     const AcGePoint3d& arcPoint, const ACHAR* text,
                                                     AcDbObjectId style)
    : m_points{xLine1Start, xLine1End, xLine2Start, xLine2End, arcPoint} {
    if (text != nullptr) (void)setDimensionText(text);
    if (!style.isNull()) (void)setDimensionStyle(style);
}

// Of the four angles between the lines the one in which the arc point lies.
bool AcDb2LineAngularDimension::angle(Angle& out) const {
    const AcGeVector3d one = m_points[1] - m_points[0];
    const AcGeVector3d other = m_points[3] - m_points[2];
    const double cross = one.x * other.y - one.y * other.x;
    const double size = std::hypot(one.x, one.y) * std::hypot(other.x, other.y);
    if (size == 0.0 || std::abs(cross) <= 1e-9 * size) return false;
    const AcGeVector3d between = m_points[2] - m_points[0];
    const double t = (between.x * other.y - between.y * other.x) / cross;
    out.vertex = m_points[0] + one * t;
    const double arc = angleOf(out.vertex, m_points[4]);
    double sides[4];
    const double first = std::atan2(one.y, one.x);
    const double second = std::atan2(other.y, other.x);
    int count = 0;
    for (const double side : {first, first + kPi, second, second + kPi})
        sides[count++] = positiveAngle(side);
    std::sort(std::begin(sides), std::end(sides));
    int before = 3;
    for (int i = 0; i < 4; ++i)
        if (sides[i] <= arc) before = i;
    out.start = sides[before];
    out.sweep = positiveAngle(sides[(before + 1) % 4] - sides[before]);
    return true;
}

AcGePoint3d AcDb2LineAngularDimension::sidePoint(const Angle& angle, double direction) const {
    const AcGeVector3d towards = at(direction);
    const AcGeVector3d one = m_points[1] - m_points[0];
    const bool first = std::abs(one.x * towards.y - one.y * towards.x) <= 1e-7 * one.length();
    return farther(m_points[first ? 0 : 2], m_points[first ? 1 : 3], angle.vertex, towards);
}

// --- Three points --------------------------------------------------------------------------------

AcDb3PointAngularDimension::AcDb3PointAngularDimension(const AcGePoint3d& centerPoint,
                                                       const AcGePoint3d& xLine1Point,
                                                       const AcGePoint3d& xLine2Point,
                                                       const AcGePoint3d& arcPoint,
                                                       const ACHAR* text, AcDbObjectId style)
    : m_points{centerPoint, xLine1Point, xLine2Point, arcPoint} {
    if (text != nullptr) (void)setDimensionText(text);
    if (!style.isNull()) (void)setDimensionStyle(style);
}

bool AcDb3PointAngularDimension::angle(Angle& out) const {
    out.vertex = centerPoint();
    if (same(out.vertex, xLine1Point()) || same(out.vertex, xLine2Point())) return false;
    const double first = angleOf(out.vertex, xLine1Point());
    const double second = angleOf(out.vertex, xLine2Point());
    const double arc = angleOf(out.vertex, arcPoint());
    const double sweep = positiveAngle(second - first);
    const bool within = positiveAngle(arc - first) <= sweep;
    out.start = within ? first : second;
    out.sweep = within ? sweep : kTwoPi - sweep;
    return out.sweep > 1e-12;
}

AcGePoint3d AcDb3PointAngularDimension::sidePoint(const Angle& angle, double direction) const {
    const double first = angleOf(angle.vertex, xLine1Point());
    const double off = std::abs(std::remainder(direction - first, kTwoPi));
    return off <= 1e-9 ? xLine1Point() : xLine2Point();
}
