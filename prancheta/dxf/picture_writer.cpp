// SPDX-License-Identifier: MIT
// Writes pictures as entities of a block.
#include "prancheta/dxf/picture_writer.h"

#include <algorithm>
#include <cmath>

#include "prancheta/database/entity_picture.h"
#include "prancheta/database/object_access.h"
#include "prancheta/dxf/releases.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::dxf {
namespace {

bool isFlat(const AcGeVector3d& n) { return n.x == 0.0 && n.y == 0.0; }

/// Points in one plane parallel to XY.
bool isLevel(std::span<const AcGePoint3d> points) {
    return std::all_of(points.begin(), points.end(), [&](const AcGePoint3d& p) {
        return std::abs(p.z - points.front().z) <= 1e-9;
    });
}

double rounded(double value) {
    constexpr double kStep = 1e8;
    if (std::abs(value) > 1e7) return value;
    const double r = std::nearbyint(value * kStep) / kStep;
    return r == 0.0 ? 0.0 : r;
}

double degrees(double radians) {
    const double turned = rounded(positiveAngle(radians) * (180.0 / kPi));
    return turned >= 360.0 ? 0.0 : turned;
}

/// Angle of a direction in the plane of a normal, radians.
double angleIn(const AcGeVector3d& direction, const AcGeVector3d& normal) {
    const AcGeVector3d x = isFlat(normal) ? AcGeVector3d::kXAxis : arbitraryXAxis(normal);
    const AcGeVector3d y = normal.crossProduct(x);
    return std::atan2(direction.dotProduct(y), direction.dotProduct(x));
}

AcGePoint3d inPlane(const AcGePoint3d& p, const AcGeVector3d& normal) {
    return isFlat(normal) ? p : planeToWorld(normal).inverse() * p;
}

double bulgeAt(std::span<const double> bulges, std::size_t i) {
    return i < bulges.size() ? std::nearbyint(bulges[i] * 1e12) / 1e12 : 0.0;
}

}  // namespace

void makeByBlock(Picture& picture, const AcDbEntity& entity) {
    const AcDbDatabase* const database = entity.database();
    const PictureTraits own = traitsOf(entity);
    const std::vector<PictureTraits>& all = picture.allTraits();
    for (std::uint32_t i = 0; i < all.size(); ++i) {
        PictureTraits traits = all[i];
        if (traits.layer.isNull() || traits.layer == entity.layerId())
            traits.layer = database->layerZero();
        if (traits.color == own.color && traits.trueColor == own.trueColor) {
            traits.color = 0;
            traits.trueColor.reset();
        }
        const AcDbObjectId byLayer = database->byLayerLinetype();
        if (traits.linetype.isNull()) traits.linetype = byLayer;
        if (traits.linetype == entity.linetypeId() && traits.linetype != byLayer)
            traits.linetype = database->byBlockLinetype();
        if (traits.lineWeight == entity.lineWeight() && traits.lineWeight != AcDb::kLnWtByLayer)
            traits.lineWeight = AcDb::kLnWtByBlock;
        picture.setTraits(i, traits);
    }
}

PictureWriter::PictureWriter(TagWriter& out, SaveNames& names, AcDbDatabase& database,
                             std::string_view acadVersion)
    : m_out(out),
      m_names(names),
      m_layerZero(database.layerZero()),
      m_isR12(acadVersion <= kR12),
      m_knowsTrueColor(!isUnknownGroup(acadVersion, kAnyEntity, 420)),
      m_byLayer(database.byLayerLinetype()) {}

std::size_t PictureWriter::count(const Picture& picture) {
    std::size_t entities = 0;
    for (const PrimitiveView view : picture) {
        const bool isOpenLine = view.kind() == PrimitiveKind::Polyline && !isLevel(view.points());
        entities += isOpenLine ? view.points().size() - 1 : 1;
    }
    return entities;
}

void PictureWriter::point(int code, const AcGePoint3d& p) {
    m_out.point(code, {rounded(p.x), rounded(p.y), rounded(p.z)});
}
void PictureWriter::real(int code, double value) { m_out.real(code, rounded(value)); }

void PictureWriter::normal(const AcGeVector3d& n) {
    if (!isFlat(n)) m_out.point(210, {n.x, n.y, n.z});
}

void PictureWriter::marker(const char* name) {
    if (!m_isR12) m_out.marker(name);
}

void PictureWriter::layer(const PictureTraits& traits) {
    static const std::string kLayerZero = "0";
    if (traits.layer == m_layerZero)
        m_out.text(8, kLayerZero);
    else
        m_out.text(8, m_names.of(traits.layer, kLayerZero));
}

void PictureWriter::begin(const char* type, const PictureTraits& traits, Adesk::UInt64 owner,
                          Adesk::UInt64 handle) {
    m_out.text(0, type);
    if (!m_isR12) {
        m_out.handle(5, handle);
        m_out.handle(330, owner);
    }
    marker("AcDbEntity");
    layer(traits);
    if (!traits.linetype.isNull() && traits.linetype != m_byLayer && !traits.linetype.isErased())
        m_out.text(6, m_names.of(traits.linetype));
    const auto nearest = [&] {
        return static_cast<Adesk::UInt16>(nearestIndex(*traits.trueColor));
    };
    const Adesk::UInt16 color = traits.trueColor ? nearest() : traits.color;
    if (color != 256) m_out.integer(62, color);
    if (traits.trueColor && m_knowsTrueColor) m_out.integer(420, numberOf(*traits.trueColor));
    if (m_isR12) return;
    if (traits.linetypeScale != 1.0) m_out.real(48, traits.linetypeScale);
    if (traits.lineWeight != AcDb::kLnWtByLayer) m_out.integer(370, traits.lineWeight);
}

void PictureWriter::write(const Picture& picture, Adesk::UInt64 owner, HandleSource& handles,
                          AcDbObjectId textStyle) {
    m_textStyle = textStyle;
    for (const PrimitiveView view : picture) {
        const PictureTraits& traits = view.traits();
        if (m_isR12 && (traits.marker == kEndlessMarker || traits.marker == kCoverMarker)) continue;
        switch (view.kind()) {
            case PrimitiveKind::Polyline:
                polyline(view, traits, owner, handles);
                break;
            case PrimitiveKind::Polygon:
                filled(view.points(), traits, owner, handles);
                break;
            case PrimitiveKind::Circle:
                begin("CIRCLE", traits, owner, handles.next());
                circle(view);
                break;
            case PrimitiveKind::Arc:
                begin("ARC", traits, owner, handles.next());
                arc(view);
                break;
            case PrimitiveKind::Text:
                begin("TEXT", traits, owner, handles.next());
                text(view);
                break;
            case PrimitiveKind::Pline:
                flatPolyline(view.points(), view.bulges(), view.closed(), view.normal(), traits,
                             owner, handles);
                break;
        }
    }
}

void PictureWriter::polyline(const PrimitiveView& view, const PictureTraits& traits,
                             Adesk::UInt64 owner, HandleSource& handles) {
    const std::span<const AcGePoint3d> points = view.points();
    if (points.size() == 1) {
        begin("POINT", traits, owner, handles.next());
        marker("AcDbPoint");
        point(10, points[0]);
    } else if (points.size() == 2 || !isLevel(points)) {
        lines(points, traits, owner, handles);
    } else {
        const bool closed = points.size() > 3 && (points.front() - points.back()).length() <= 1e-9;
        flatPolyline(closed ? points.first(points.size() - 1) : points, {}, closed,
                     AcGeVector3d::kZAxis, traits, owner, handles);
    }
}

void PictureWriter::lines(std::span<const AcGePoint3d> points, const PictureTraits& traits,
                          Adesk::UInt64 owner, HandleSource& handles) {
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        begin("LINE", traits, owner, handles.next());
        marker("AcDbLine");
        point(10, points[i]);
        point(11, points[i + 1]);
    }
}

void PictureWriter::oldPolyline(std::span<const AcGePoint3d> points, std::span<const double> bulges,
                                bool closed, const AcGeVector3d& n, const PictureTraits& traits) {
    begin("POLYLINE", traits, 0, 0);
    m_out.integer(66, 1);
    point(10, {0.0, 0.0, inPlane(points.front(), n).z});
    m_out.integer(70, closed ? 1 : 0);
    normal(n);
    for (std::size_t i = 0; i < points.size(); ++i) {
        m_out.text(0, "VERTEX");
        layer(traits);
        point(10, inPlane(points[i], n));
        if (const double bulge = bulgeAt(bulges, i); bulge != 0.0) m_out.real(42, bulge);
    }
    m_out.text(0, "SEQEND");
    layer(traits);
}

void PictureWriter::flatPolyline(std::span<const AcGePoint3d> points,
                                 std::span<const double> bulges, bool closed, const AcGeVector3d& n,
                                 const PictureTraits& traits, Adesk::UInt64 owner,
                                 HandleSource& handles) {
    if (m_isR12) return oldPolyline(points, bulges, closed, n, traits);
    begin("LWPOLYLINE", traits, owner, handles.next());
    m_out.marker("AcDbPolyline");
    m_out.integer(90, static_cast<long long>(points.size()));
    m_out.integer(70, closed ? 1 : 0);
    const double elevation = rounded(inPlane(points.front(), n).z);
    if (elevation != 0.0) m_out.real(38, elevation);
    for (std::size_t i = 0; i < points.size(); ++i) {
        const AcGePoint3d p = inPlane(points[i], n);
        real(10, p.x);
        real(20, p.y);
        if (const double bulge = bulgeAt(bulges, i); bulge != 0.0) m_out.real(42, bulge);
    }
    normal(n);
}

void PictureWriter::filled(std::span<const AcGePoint3d> points, const PictureTraits& traits,
                           Adesk::UInt64 owner, HandleSource& handles) {
    if (points.size() > 4 && m_isR12)
        return oldPolyline(points, {}, true, AcGeVector3d::kZAxis, traits);
    if (points.size() > 4) {
        begin("HATCH", traits, owner, handles.next());
        return hatch(points);
    }
    // The third and fourth corners change places; a triangle repeats its last one.
    const std::size_t last = points.size() - 1;
    begin("SOLID", traits, owner, handles.next());
    marker("AcDbTrace");
    point(10, points[0]);
    point(11, points[std::min<std::size_t>(1, last)]);
    point(12, points[last]);
    point(13, points[std::min<std::size_t>(2, last)]);
}

void PictureWriter::hatch(std::span<const AcGePoint3d> points) {
    m_out.marker("AcDbHatch");
    point(10, {0.0, 0.0, points.front().z});
    m_out.point(210, {0.0, 0.0, 1.0});
    m_out.text(2, "SOLID");
    m_out.integer(70, 1);
    m_out.integer(71, 0);
    m_out.integer(91, 1);
    m_out.integer(92, 1 | 2);
    m_out.integer(72, 0);
    m_out.integer(73, 1);
    m_out.integer(93, static_cast<long long>(points.size()));
    for (const AcGePoint3d& p : points) m_out.point2d(10, rounded(p.x), rounded(p.y));
    m_out.integer(97, 0);
    m_out.integer(75, 0);
    m_out.integer(76, 1);
    m_out.integer(98, 1);
    m_out.point2d(10, rounded(points[0].x), rounded(points[0].y));
}

void PictureWriter::circle(const PrimitiveView& view) {
    marker("AcDbCircle");
    point(10, inPlane(view.center(), view.normal()));
    real(40, view.radius());
    normal(view.normal());
}

void PictureWriter::arc(const PrimitiveView& view) {
    circle(view);
    const double start = angleIn(view.start(), view.normal());
    marker("AcDbArc");
    m_out.real(50, degrees(start));
    m_out.real(51, degrees(start + view.sweep()));
}

void PictureWriter::text(const PrimitiveView& view) {
    marker("AcDbText");
    point(10, inPlane(view.position(), view.normal()));
    real(40, view.height());
    m_out.meaning(1, view.text());
    const double angle = degrees(angleIn(view.direction(), view.normal()));
    if (angle != 0.0) m_out.real(50, angle);
    const bool backwards = view.widthFactor() < 0.0;
    const double width = std::abs(view.widthFactor());
    if (width != 1.0) real(41, width);
    if (view.oblique() != 0.0)
        m_out.real(51, degrees(backwards ? -view.oblique() : view.oblique()));
    static const std::string kStandard = "Standard";
    m_out.text(7, m_isR12 ? "STANDARD" : m_names.of(m_textStyle, kStandard));
    if (backwards) m_out.integer(71, 2);
    normal(view.normal());
    marker("AcDbText");
}

void PictureWriter::writeHidden(const std::string& text, const std::string& layer,
                                Adesk::UInt64 owner, Adesk::UInt64 handle) {
    m_out.text(0, "TEXT");
    m_out.handle(5, handle);
    m_out.handle(330, owner);
    marker("AcDbEntity");
    m_out.text(8, layer);
    marker("AcDbText");
    point(10, AcGePoint3d::kOrigin);
    m_out.real(40, 1.0);
    m_out.text(1, text);
    marker("AcDbText");
}

void PictureWriter::writePoint(const AcGePoint3d& p, const char* layer, Adesk::UInt64 owner,
                               Adesk::UInt64 handle) {
    m_out.text(0, "POINT");
    m_out.handle(5, handle);
    m_out.handle(330, owner);
    m_out.marker("AcDbEntity");
    m_out.text(8, layer);
    m_out.integer(62, 0);
    marker("AcDbPoint");
    point(10, p);
}

}  // namespace prancheta::dxf
