// SPDX-License-Identifier: MIT
// A curve as a way along which things are set out.
#include "prancheta/editor/commands/path.h"

#include <algorithm>
#include <cmath>

#include "dbpl.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

namespace {

BulgeArc roundArc(const AcGePoint3d& center, const AcGeVector3d& normal, double radius,
                  double start, double sweep) {
    const SineCosine sc = sineCosine(start);
    return {center, planeToWorld(normal) * AcGeVector3d(sc.cosine, sc.sine, 0.0), radius, sweep};
}

AcGePoint3d onArc(const BulgeArc& arc, const AcGeVector3d& normal, double sweep) {
    const SineCosine sc = sineCosine(sweep);
    return arc.center +
           (arc.start * sc.cosine + normal.crossProduct(arc.start) * sc.sine) * arc.radius;
}

}  // namespace

AcGePoint3d Path::EllipsePart::at(double part) const {
    const SineCosine sc = sineCosine(start + sweep * part);
    return center + major * sc.cosine + minor * sc.sine;
}

AcGeVector3d Path::EllipsePart::speed(double part) const {
    const SineCosine sc = sineCosine(start + sweep * part);
    return (minor * sc.cosine - major * sc.sine) * sweep;
}

/// In parts of half a degree; lengths by Simpson's rule, exact to some 1e-10 of them.
void Path::add(const EllipsePart& whole) {
    const int parts = std::max(1, static_cast<int>(std::ceil(whole.sweep / kTwoPi * 720.0)));
    for (int i = 0; i < parts; ++i) {
        Leg leg;
        leg.ellipse = whole;
        leg.ellipse->sweep = whole.sweep / parts;
        leg.ellipse->start = whole.start + leg.ellipse->sweep * i;
        add(leg);
    }
}

void Path::add(Leg leg) {
    double length =
        leg.arc ? std::abs(leg.arc->sweep) * leg.arc->radius : leg.from.distanceTo(leg.to);
    if (leg.ellipse)
        length = (leg.ellipse->speed(0.0).length() + 4.0 * leg.ellipse->speed(0.5).length() +
                  leg.ellipse->speed(1.0).length()) /
                 6.0;
    if (!(length > 0.0) || !std::isfinite(length)) return;
    m_length += length;
    leg.end = m_length;
    m_legs.push_back(leg);
}

std::optional<Path> Path::of(AcDbObjectId curve) {
    const AcDbObjectPointer<AcDbEntity> entity(curve, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk) return {};
    Path path;
    if (const auto* line = AcDbLine::cast(entity.object())) {
        path.add({line->startPoint(), line->endPoint(), {}});
    } else if (const auto* circle = AcDbCircle::cast(entity.object())) {
        path.add({{},
                  {},
                  roundArc(circle->center(), circle->normal(), circle->radius(), 0.0, kTwoPi),
                  circle->normal()});
    } else if (const auto* arc = AcDbArc::cast(entity.object())) {
        const double sweep = positiveAngle(arc->endAngle() - arc->startAngle());
        path.add({{},
                  {},
                  roundArc(arc->center(), arc->normal(), arc->radius(), arc->startAngle(),
                           sweep > 0.0 ? sweep : kTwoPi),
                  arc->normal()});
    } else if (const auto* ellipse = AcDbEllipse::cast(entity.object())) {
        path.add(EllipsePart{ellipse->center(), ellipse->majorAxis(), ellipse->minorAxis(),
                             ellipse->startParam(), ellipse->sweep()});
    } else if (const auto* polyline = AcDbPolyline::cast(entity.object())) {
        const unsigned int count = polyline->numVerts();
        for (unsigned int i = 0; i + (polyline->isClosed() ? 0 : 1) < count; ++i) {
            Leg leg;
            leg.normal = polyline->normal();
            double bulge = 0.0;
            BulgeArc round;
            (void)polyline->getPointAt(i, leg.from);  // the indices are there
            (void)polyline->getPointAt((i + 1) % count, leg.to);
            (void)polyline->getBulgeAt(i, bulge);
            if (arcOfBulge(leg.from, leg.to, bulge, leg.normal, round)) leg.arc = round;
            path.add(leg);
        }
    }
    return path.m_legs.empty() ? std::nullopt : std::optional(std::move(path));
}

bool Path::closed() const { return start().distanceTo(end()) <= 1e-9 * m_length; }

Path::Place Path::at(double distance) const {
    const double way = std::clamp(m_backwards ? m_length - distance : distance, 0.0, m_length);
    const auto found = std::lower_bound(m_legs.begin(), m_legs.end(), way,
                                        [](const Leg& leg, double d) { return leg.end < d; });
    const Leg& leg = found == m_legs.end() ? m_legs.back() : *found;
    const double begin = &leg == &m_legs.front() ? 0.0 : (&leg - 1)->end;
    const double part = (way - begin) / (leg.end - begin);
    Place place;
    if (leg.arc) {
        place.place = onArc(*leg.arc, leg.normal, leg.arc->sweep * part);
        place.along = leg.normal.crossProduct(place.place - leg.arc->center).normal() *
                      (leg.arc->sweep < 0.0 ? -1.0 : 1.0);
    } else if (leg.ellipse) {
        place.place = leg.ellipse->at(part);
        place.along = leg.ellipse->speed(part).normal();
    } else {
        place.place = leg.from + (leg.to - leg.from) * part;
        place.along = (leg.to - leg.from).normal();
    }
    if (m_backwards) place.along = -place.along;
    return place;
}

}  // namespace prancheta::commands
