// SPDX-License-Identifier: MIT
// Entities from pictures.
#include "prancheta/entities/picture_entities.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "dbhatch.h"
#include "prancheta/base/text.h"
#include "prancheta/entities/common.h"

namespace prancheta {

namespace {

using Points = std::span<const AcGePoint3d>;

void finish(std::unique_ptr<AcDbEntity> entity, const PictureTraits& traits,
            AcDbVoidPtrArray& out) {
    if (!traits.layer.isNull()) (void)entity->setLayer(traits.layer);
    if (!traits.linetype.isNull()) (void)entity->setLinetype(traits.linetype);
    giveColor(*entity, traits);
    (void)entity->setLinetypeScale(traits.linetypeScale);
    (void)entity->setLineWeight(traits.lineWeight);
    out.append(entity.release());
}

bool sameHeight(Points points) {
    return std::all_of(points.begin(), points.end(), [&](const AcGePoint3d& p) {
        return std::abs(p.z - points[0].z) < AcGeContext::gTol.equalPoint();
    });
}

std::unique_ptr<AcDbEntity> polyline(Points points, std::span<const double> bulges, bool closed,
                                     const AcGeVector3d& normal) {
    auto entity = std::make_unique<AcDbPolyline>();
    const AcGeMatrix3d back = planeToWorld(normal).inverse();
    (void)entity->setNormal(normal);
    (void)entity->setElevation((back * points[0]).z);
    (void)entity->setClosed(closed);
    for (std::size_t i = 0; i < points.size(); ++i) {
        const AcGePoint3d p = back * points[i];
        const double bulge = bulges.empty() ? 0.0 : bulges[i];
        (void)entity->addVertexAt(static_cast<unsigned>(i), {p.x, p.y}, bulge);
    }
    return entity;
}

void appendLines(Points points, bool closed, const PictureTraits& traits, AcDbVoidPtrArray& out) {
    for (std::size_t i = 1; i < points.size(); ++i)
        finish(std::make_unique<AcDbLine>(points[i - 1], points[i]), traits, out);
    if (closed && points.size() > 2)
        finish(std::make_unique<AcDbLine>(points.back(), points.front()), traits, out);
}

void appendPolyline(Points points, const PictureTraits& traits, AcDbVoidPtrArray& out) {
    if (points.size() == 1) return finish(std::make_unique<AcDbPoint>(points[0]), traits, out);
    if (points.size() == 2 || !sameHeight(points)) return appendLines(points, false, traits, out);
    const bool closed = points.front() == points.back();
    if (closed) points = points.first(points.size() - 1);
    finish(polyline(points, {}, closed, AcGeVector3d::kZAxis), traits, out);
}

void appendPline(const PrimitiveView& p, AcDbVoidPtrArray& out) {
    const bool straight =
        std::ranges::all_of(p.bulges(), [](double bulge) { return bulge == 0.0; });
    const bool plane = p.normal().isEqualTo(AcGeVector3d::kZAxis) ? sameHeight(p.points()) : true;
    if (straight && (p.points().size() == 2 || !plane))
        return appendLines(p.points(), p.closed(), p.traits(), out);
    finish(polyline(p.points(), p.bulges(), p.closed(), p.normal()), p.traits(), out);
}

/// Solid hatch with one straight-sided path.
std::unique_ptr<AcDbEntity> hatch(Points points) {
    HatchLoop loop;
    for (const AcGePoint3d& p : points) loop.vertices.push_back({p.x, p.y, 0.0});
    auto entity = std::make_unique<AcDbHatch>();
    (void)entity->setElevation(points[0].z);
    (void)entity->setLoops({std::move(loop)});
    return entity;
}

std::unique_ptr<AcDbEntity> area(Points p) {
    if (p.size() == 3) return std::make_unique<AcDbSolid>(p[0], p[1], p[2], p[2]);
    if (p.size() == 4) return std::make_unique<AcDbSolid>(p[0], p[1], p[3], p[2]);
    return hatch(p);
}

std::unique_ptr<AcDbEntity> arc(const PrimitiveView& p) {
    const double start = angleInPlane(p.start(), p.normal());
    auto entity =
        std::make_unique<AcDbArc>(p.center(), p.radius(), start, positiveAngle(start + p.sweep()));
    (void)entity->setNormal(p.normal());
    return entity;
}

std::unique_ptr<AcDbEntity> text(const PrimitiveView& p) {
    auto entity = std::make_unique<AcDbText>(p.position(), p.text(), AcDbObjectId::kNull,
                                             p.height(), angleInPlane(p.direction(), p.normal()));
    const bool backwards = p.widthFactor() < 0.0;
    (void)entity->setNormal(p.normal());
    (void)entity->mirrorInX(backwards);
    (void)entity->setWidthFactor(std::abs(p.widthFactor()));
    (void)entity->setOblique(backwards ? -p.oblique() : p.oblique());
    return entity;
}

}  // namespace

Picture pictureOf(AcDbEntity& entity) {
    Picture picture;
    recordPicture(entity, picture);
    return picture;
}

void appendEntities(const Picture& picture, AcDbVoidPtrArray& out) {
    for (const PrimitiveView p : picture) {
        switch (p.kind()) {
            case PrimitiveKind::Polyline:
                appendPolyline(p.points(), p.traits(), out);
                break;
            case PrimitiveKind::Polygon:
                finish(area(p.points()), p.traits(), out);
                break;
            case PrimitiveKind::Circle:
                finish(std::make_unique<AcDbCircle>(p.center(), p.normal(), p.radius()), p.traits(),
                       out);
                break;
            case PrimitiveKind::Arc:
                finish(arc(p), p.traits(), out);
                break;
            case PrimitiveKind::Text:
                finish(text(p), p.traits(), out);
                break;
            case PrimitiveKind::Pline:
                appendPline(p, out);
                break;
        }
    }
}

}  // namespace prancheta
