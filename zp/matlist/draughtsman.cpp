// SPDX-License-Identifier: MIT
// Lines and texts into the drawing.
#include "zp/matlist/draughtsman.h"

#include <algorithm>
#include <cmath>

#include "adscodes.h"
#include "dbents.h"
#include "dbpl.h"
#include "dbsymtb.h"
#include "perfis/entities/zpfuncoes.h"

namespace zp::matlist {

void Draughtsman::turn(const AcGePoint3d& about, double angle) {
    m_turn = AcGeMatrix3d::rotation(angle, AcGeVector3d::kZAxis, about);
}

void Draughtsman::line(const AcGePoint3d& a, const AcGePoint3d& b) {
    put(std::make_unique<AcDbLine>(a, b));
}

void Draughtsman::text(const AcGePoint3d& where, const std::wstring& t, double altura, Align align,
                       double angle) {
    if (t.empty()) return;
    auto entity = std::make_unique<AcDbText>(where, t.c_str(), AcDbObjectId::kNull, altura, angle);
    if (align != Align::Left) {
        (void)entity->setHorizontalMode(static_cast<int>(align));
        (void)entity->setAlignmentPoint(where);
    }
    put(std::move(entity));
}

void Draughtsman::outline(const secao::Outline& outline, const AcGePoint3d& at, double factor) {
    const auto place = [&](const secao::Point& p) {
        return AcGePoint3d(at.x + factor * p.x, at.y + factor * p.y, at.z);
    };
    if (outline.circle) {
        circle(place(outline.segments.front().centre), factor * outline.segments.front().radius);
        return;
    }
    auto polyline = std::make_unique<AcDbPolyline>();
    for (const secao::Segment& s : outline.segments) {
        const AcGePoint3d p = place(s.a);
        (void)polyline->addVertexAt(polyline->numVerts(), {p.x, p.y},
                                    s.bulge());  // behind the last
    }
    (void)polyline->setClosed(true);
    (void)polyline->setElevation(at.z);
    put(std::move(polyline));
}

void Draughtsman::circle(const AcGePoint3d& centre, double radius) {
    put(std::make_unique<AcDbCircle>(centre, AcGeVector3d::kZAxis, radius));
}

void Draughtsman::cloud(const AcGePoint3d& lower, const AcGePoint3d& upper, double arc) {
    constexpr double kBulge = 0.4;
    constexpr double kMostArcs = 200.0;  // a side
    auto polyline = std::make_unique<AcDbPolyline>();
    const AcGePoint2d corners[] = {
        {lower.x, lower.y}, {upper.x, lower.y}, {upper.x, upper.y}, {lower.x, upper.y}};
    for (std::size_t i = 0; i < 4; ++i) {
        const AcGePoint2d& a = corners[i];
        const AcGePoint2d& b = corners[(i + 1) % 4];
        const double side = std::abs(b.x - a.x) + std::abs(b.y - a.y);
        const auto arcs = static_cast<int>(std::clamp(std::round(side / arc), 1.0, kMostArcs));
        for (int k = 0; k < arcs; ++k) {
            const double t = static_cast<double>(k) / arcs;
            (void)polyline->addVertexAt(polyline->numVerts(),
                                        {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)},
                                        kBulge);  // behind the last
        }
    }
    (void)polyline->setClosed(true);
    put(std::move(polyline));
}

bool Draughtsman::enter(AcDbEntity* entity, AcDbObjectId& id) const {
    if (m_space.isNull()) return append(entity, id) == RTNORM;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(m_space, AcDb::kForWrite);
    return space.object() != nullptr && space->appendAcDbEntity(id, entity) == Acad::eOk;
}

void Draughtsman::put(std::unique_ptr<AcDbEntity> entity) {
    if (m_turn != AcGeMatrix3d::kIdentity)
        (void)entity->transformBy(m_turn);    // a turn, which lines and texts take
    (void)entity->setLayer(m_layer.c_str());  // a layer that cannot be leaves the current one
    AcDbObjectId id;
    if (!enter(entity.get(), id)) return;
    (void)entity.release()->close();
    m_ids.push_back(AcDbSoftPointerId(id));
}

double widthOf(std::size_t characters, double h) {
    return h * (0.9 * static_cast<double>(characters) + 1.6);
}

}  // namespace zp::matlist
