// SPDX-License-Identifier: MIT
// Entities as plane curves, and curves as entities.
#include "prancheta/entities/plane_curve.h"

#include <algorithm>
#include <cmath>

#include "dbdim.h"
#include "dbhatch.h"
#include "dblead.h"
#include "dbmtext.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/foreign_entity.h"
#include "prancheta/entities/polyline_vertices.h"
#include "prancheta/entities/spline_part.h"
#include "prancheta/entities/weld_symbol.h"
#include "prancheta/geometry/bulge.h"

namespace prancheta {

namespace {

Vec2 seen(const AcGePoint3d& p) { return {p.x, p.y}; }
Vec2 seen(const AcGeVector3d& v) { return {v.x, v.y}; }

std::optional<Curve> roundCurve(const AcGePoint3d& center, const AcGeVector3d& normal,
                                double radius, double start, double sweep) {
    const AcGeMatrix3d plane = planeToWorld(normal);
    const Vec2 u = seen(plane * AcGeVector3d(radius, 0.0, 0.0));
    const Vec2 v = seen(plane * AcGeVector3d(0.0, radius, 0.0));
    if (!(std::abs(cross(u, v)) > 1e-9 * radius * radius)) return {};
    return Curve(Segment{seen(center), u, v, start, sweep});
}

double sweepOf(const AcDbArc& arc) {
    const double sweep = positiveAngle(arc.endAngle() - arc.startAngle());
    return sweep > 0.0 ? sweep : kTwoPi;
}

std::optional<Curve> polylineCurve(const AcDbPolyline& polyline) {
    std::vector<Segment> all = segmentsOf(verticesOf(polyline), polyline.isClosed());
    if (all.empty()) return {};
    if (polyline.normal().isEqualTo(AcGeVector3d::kZAxis))
        return Curve(std::move(all), polyline.isClosed());
    const AcGeMatrix3d plane = planeToWorld(polyline.normal());
    if (std::abs(polyline.normal().z) < 1e-9) return {};
    for (Segment& s : all) {
        s.origin = seen(plane * AcGePoint3d(s.origin.x, s.origin.y, polyline.elevation()));
        s.u = seen(plane * AcGeVector3d(s.u.x, s.u.y, 0.0));
        s.v = seen(plane * AcGeVector3d(s.v.x, s.v.y, 0.0));
    }
    return Curve(std::move(all), polyline.isClosed());
}

Acad::ErrorStatus keepPolylinePart(AcDbPolyline& polyline, double from, double to) {
    const std::vector<PolylineVertex> all = verticesOf(polyline);
    const std::vector<Segment> segments = segmentsOf(all, polyline.isClosed());
    const double n = static_cast<double>(segments.size());
    double first = std::floor(from);
    double last = std::ceil(to) - 1.0;
    if (!polyline.isClosed()) {
        first = std::clamp(first, 0.0, n - 1.0);
        last = std::clamp(last, first, n - 1.0);
    }
    std::vector<PolylineVertex> kept;
    Vec2 end;
    for (double i = first; i <= last; i += 1.0) {
        const auto at = static_cast<std::size_t>(i - std::floor(i / n) * n);
        const double high = i == last ? to - i : 1.0;
        kept.push_back(vertexOfPart(all[at], segments[at], i == first ? from - i : 0.0, high));
        end = segments[at].at(high);
    }
    if (kept.empty()) return Acad::eInvalidInput;
    kept.push_back({end});
    setVertices(polyline, kept);
    return polyline.setClosed(false);
}

std::unique_ptr<AcDbEntity> arcOf(const Segment& s, double z) {
    const double turn = s.start + std::atan2(s.u.y, s.u.x);
    const double first = s.sweep > 0.0 ? turn : turn + s.sweep;
    return std::make_unique<AcDbArc>(AcGePoint3d(s.origin.x, s.origin.y, z), s.radius(),
                                     positiveAngle(first),
                                     positiveAngle(first + std::abs(s.sweep)));
}

/// The same segment, its angles counter-clockwise in the plan.
Segment plain(Segment s) {
    if (s.isRound() && cross(s.u, s.v) < 0.0) {
        s.v = -s.v;
        s.start = -s.start;
        s.sweep = -s.sweep;
    }
    return s;
}

}  // namespace

std::optional<Curve> planeCurve(const AcDbEntity& entity) {
    if (const auto* const line = AcDbLine::cast(&entity)) {
        const Segment s = straight(seen(line->startPoint()), seen(line->endPoint()));
        return s.u == Vec2{} ? std::nullopt : std::optional(Curve(s));
    }
    if (const auto* const arc = AcDbArc::cast(&entity))
        return roundCurve(arc->center(), arc->normal(), arc->radius(), arc->startAngle(),
                          sweepOf(*arc));
    if (const auto* const circle = AcDbCircle::cast(&entity))
        return roundCurve(circle->center(), circle->normal(), circle->radius(), 0.0, kTwoPi);
    if (const auto* const ellipse = AcDbEllipse::cast(&entity)) {
        const Vec2 u = seen(ellipse->majorAxis());
        const Vec2 v = seen(ellipse->minorAxis());
        if (!(std::abs(cross(u, v)) > 1e-9 * u.length() * v.length())) return {};
        return Curve(
            Segment{seen(ellipse->center()), u, v, ellipse->startParam(), ellipse->sweep()});
    }
    if (const auto* const polyline = AcDbPolyline::cast(&entity)) return polylineCurve(*polyline);
    return {};
}

std::optional<Curve> partableCurve(const AcDbEntity& entity) {
    const auto* const spline = AcDbSpline::cast(&entity);
    return spline != nullptr ? chordsOf(spline->data()) : planeCurve(entity);
}

Acad::ErrorStatus keepCurvePart(AcDbEntity& entity, double from, double to) {
    if (auto* const spline = AcDbSpline::cast(&entity)) {
        const bool within = from >= 0.0 && from < to && to <= chordsOf(spline->data()).count();
        return within ? spline->setData(splinePart(spline->data(), from, to))
                      : Acad::eNotApplicable;
    }
    if (auto* const line = AcDbLine::cast(&entity)) {
        const AcGePoint3d start = line->startPoint();
        const AcGeVector3d along = line->endPoint() - start;
        Acad::ErrorStatus status = Acad::eOk;
        if (from != 0.0) status = line->setStartPoint(start + along * from);
        return to == 1.0 || status != Acad::eOk ? status : line->setEndPoint(start + along * to);
    }
    if (auto* const arc = AcDbArc::cast(&entity)) {
        const double start = arc->startAngle();
        const double sweep = sweepOf(*arc);
        Acad::ErrorStatus status = Acad::eOk;
        if (from != 0.0) status = arc->setStartAngle(start + sweep * from);
        return to == 1.0 || status != Acad::eOk ? status : arc->setEndAngle(start + sweep * to);
    }
    if (auto* const ellipse = AcDbEllipse::cast(&entity)) {
        const double start = ellipse->startParam();
        const double sweep = ellipse->sweep();
        const Acad::ErrorStatus status = ellipse->setStartParam(start + sweep * from);
        return status != Acad::eOk ? status : ellipse->setEndParam(start + sweep * to);
    }
    if (auto* const polyline = AcDbPolyline::cast(&entity))
        return keepPolylinePart(*polyline, from, to);
    return Acad::eNotApplicable;
}

std::unique_ptr<AcDbEntity> curvePart(const AcDbEntity& entity, double from, double to) {
    if (const auto* const circle = AcDbCircle::cast(&entity)) {
        auto arc =
            std::make_unique<AcDbArc>(circle->center(), circle->radius(),
                                      positiveAngle(kTwoPi * from), positiveAngle(kTwoPi * to));
        (void)arc->setNormal(circle->normal());
        (void)arc->setPropertiesFrom(circle);
        return arc;
    }
    AcDbEntity* raw = nullptr;
    if (entity.getTransformedCopy(AcGeMatrix3d::kIdentity, raw) != Acad::eOk) return nullptr;
    std::unique_ptr<AcDbEntity> copy(raw);
    return keepCurvePart(*copy, from, to) == Acad::eOk ? std::move(copy) : nullptr;
}

std::unique_ptr<AcDbEntity> entityOf(const Curve& curve, double z) {
    for (const Segment& s : curve.segments())
        if (!s.isBounded() || (s.isRound() && !s.isCircular())) return nullptr;
    if (curve.empty()) return nullptr;
    if (curve.segments().size() == 1) {
        const Segment s = plain(curve.segments().front());
        if (s.isWhole())
            return std::make_unique<AcDbCircle>(AcGePoint3d(s.origin.x, s.origin.y, z),
                                                AcGeVector3d::kZAxis, s.radius());
        if (s.isRound()) return arcOf(s, z);
        const Vec2 end = s.at(1.0);
        return std::make_unique<AcDbLine>(AcGePoint3d(s.origin.x, s.origin.y, z),
                                          AcGePoint3d(end.x, end.y, z));
    }
    return polylineOf(curve, z);
}

std::unique_ptr<AcDbPolyline> polylineOf(const Curve& curve, double z,
                                         std::span<const SegmentWidth> widths) {
    std::vector<PolylineVertex> vertices;
    for (const Segment& segment : curve.segments()) {
        const Segment s = plain(segment);
        const std::size_t i = vertices.size();
        const SegmentWidth width = i < widths.size() ? widths[i] : SegmentWidth{0.0, 0.0};
        vertices.push_back(
            {s.at(0.0), s.isRound() ? bulgeOfSweep(s.sweep) : 0.0, width.start, width.end});
    }
    if (!curve.closed()) vertices.push_back({curve.end()});
    auto polyline = std::make_unique<AcDbPolyline>();
    setVertices(*polyline, vertices);
    (void)polyline->setClosed(curve.closed());
    (void)polyline->setElevation(z);
    return polyline;
}

bool hasEdges(const AcDbEntity& entity) {
    if (const auto* const foreign = ForeignEntity::cast(&entity)) {
        constexpr std::string_view kTypes[] = {"ELLIPSE", "SPLINE", "LWPOLYLINE", "POLYLINE",
                                               "INSERT",  "LINE",   "ARC",        "CIRCLE"};
        return std::ranges::find(kTypes, foreign->typeName()) != std::end(kTypes);
    }
    for (const AcRxClass* annotation : {AcDbDimension::desc(), AcDbText::desc(), AcDbMText::desc(),
                                        AcDbLeader::desc(), AcDbHatch::desc(), WeldSymbol::desc()})
        if (entity.isKindOf(annotation)) return false;
    return true;
}

Segment segmentOf(const Edge& edge) {
    if (edge.isArc())
        return circular({edge.center.x, edge.center.y}, edge.radius, edge.startAngle, edge.sweep);
    return straight({edge.a.x, edge.a.y}, {edge.b.x, edge.b.y});
}

}  // namespace prancheta
