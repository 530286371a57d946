// SPDX-License-Identifier: MIT
// Draws foreign entities from their groups.
#include <algorithm>
#include <cmath>

#include "dbents.h"
#include "dbsymtb.h"
#include "prancheta/base/text.h"
#include "prancheta/entities/block_content.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/foreign_shapes.h"
#include "prancheta/entities/foreign_types.h"
#include "prancheta/entities/hatch_tags.h"
#include "prancheta/entities/picture_entities.h"
#include "prancheta/entities/polyline_width.h"
#include "prancheta/entities/spline_curve.h"
#include "prancheta/entities/tag_list.h"
#include "prancheta/entities/text_layout.h"
#include "prancheta/graphics/picture_recorder.h"

namespace prancheta {

namespace {

using Points = std::vector<AcGePoint3d>;

void polyline(const Points& points, AcGiGeometry& to) {
    if (points.size() > 1) to.polyline(static_cast<Adesk::UInt32>(points.size()), points.data());
}

void drawEllipse(const RawTags& tags, AcGiGeometry& to) {
    const double from = findNumber(tags, 41, 0.0);
    double end = findNumber(tags, 42, kTwoPi);
    while (end <= from && end < from + kTwoPi) end += kTwoPi;
    const AcGeVector3d major = findPoint(tags, 11).asVector();
    const AcGeVector3d normal = planeNormal(tags);
    const auto [s, c] = sineCosine(from);
    AcGeMatrix3d place;
    place.setCoordSystem(findPoint(tags, 10), major,
                         normal.crossProduct(major) * findNumber(tags, 40, 1.0), normal);
    to.pushModelTransform(place);
    to.circularArc(AcGePoint3d::kOrigin, 1.0, AcGeVector3d::kZAxis, {c, s, 0.0}, end - from);
    to.popModelTransform();
}

/// One that is no curve shows its control points.
void drawSpline(const RawTags& tags, AcGiGeometry& to) {
    const SplineData data = splineOf(tags);
    polyline(isCurve(data) ? splinePlaces(data, By::Chords) : data.control, to);
}

void drawFace(const RawTags& tags, AcGiGeometry& to) {
    AcGePoint3d corners[4];
    for (int i = 0; i < 3; ++i) corners[i] = findPoint(tags, 10 + i);
    corners[3] = findPoint(tags, 13, corners[2]);
    const int hidden = findWhole(tags, 70, 0);
    for (int i = 0; i < 4; ++i) {
        const AcGePoint3d edge[2] = {corners[i], corners[(i + 1) % 4]};
        if ((hidden & (1 << i)) == 0 && edge[0] != edge[1]) to.polyline(2, edge);
    }
}

void drawTrace(const RawTags& tags, AcGiGeometry& to) {
    const AcGePoint3d outline[4] = {findPoint(tags, 10), findPoint(tags, 11), findPoint(tags, 13),
                                    findPoint(tags, 12)};
    to.polygon(4, outline);
}

void drawLightPolyline(const RawTags& tags, AcGiGeometry& to) {
    constexpr int kClosed = 1;
    Points points;
    std::vector<double> bulges;
    const double elevation = findNumber(tags, 38, 0.0);
    for (std::size_t i = 0; i < tags.size(); ++i) {
        if (tags[i].code == 10) {
            const AcGePoint3d p = pointAt(tags, i);
            points.emplace_back(p.x, p.y, elevation);
            bulges.push_back(0.0);
        }
        if (tags[i].code == 42 && !bulges.empty()) bulges.back() = tagNumber(tags[i]);
    }
    to.pline(static_cast<Adesk::UInt32>(points.size()), points.data(), bulges.data(),
             (findWhole(tags, 70, 0) & kClosed) != 0);
}

void drawPlainText(const RawTags& tags, AcGiGeometry& to) { drawText(tags, 73, to); }
void drawAttribute(const RawTags& tags, AcGiGeometry& to) { drawText(tags, 74, to); }

/// POLYLINE with its VERTEX records.
void drawOldPolyline(const RawTags& tags, AcGiGeometry& to) {
    constexpr int kClosed = 1;
    constexpr int k3d = 8;
    constexpr int kMeshes = 16 | 64;
    constexpr int kFrameOfSpline = 16;
    const int flags = findWhole(tags, 70, 0);
    if ((flags & kMeshes) != 0) return drawNet(tags, to);
    const SegmentWidth usual{findNumber(tags, 40, 0.0), findNumber(tags, 41, 0.0)};
    std::vector<SegmentWidth> widths;
    Points points;
    std::vector<double> bulges;
    for (const RawTags& record : recordsOf(tags)) {
        const bool vertex =
            record[0].code == 0 && trim(std::string_view(record[0].value)) == "VERTEX";
        if (!vertex || (findWhole(record, 70, 0) & kFrameOfSpline) != 0) continue;
        points.push_back(findPoint(record, 10));
        bulges.push_back((flags & k3d) != 0 ? 0.0 : findNumber(record, 42, 0.0));
        widths.push_back({findNumber(record, 40, usual.start), findNumber(record, 41, usual.end)});
    }
    if (points.empty()) return;
    const AcGeVector3d normal = (flags & k3d) != 0 ? AcGeVector3d::kZAxis : planeNormal(tags);
    to.pushModelTransform(planeToWorld(normal));
    to.pline(static_cast<Adesk::UInt32>(points.size()), points.data(), bulges.data(),
             (flags & kClosed) != 0);
    if ((flags & k3d) == 0) drawWidths(points, bulges, widths, (flags & kClosed) != 0, to);
    to.popModelTransform();
}

/// Told in the plane of the normal.
template <void (*draw)(const RawTags&, AcGiGeometry&)>
void inPlane(const RawTags& tags, AcGiGeometry& to) {
    to.pushModelTransform(planeToWorld(planeNormal(tags)));
    draw(tags, to);
    to.popModelTransform();
}

struct TypeDrawing {
    std::string_view name;
    void (*draw)(const RawTags&, AcGiGeometry&);
};

constexpr TypeDrawing kTypes[] = {
    {"ELLIPSE", drawEllipse},
    {"SPLINE", drawSpline},
    {"3DFACE", drawFace},
    {"POLYLINE", drawOldPolyline},
    {"ATTRIB", drawAttribute},
    {"TRACE", inPlane<drawTrace>},
    {"SOLID", inPlane<drawTrace>},
    {"TEXT", drawPlainText},
    {"LWPOLYLINE", inPlane<drawLightPolyline>},
    {"MESH", drawMesh},
    {"MLINE", drawMline},
    {"IMAGE", drawImageFrame},
};

/// As far as its groups can be read.
void drawHatch(const ForeignEntity& entity, AcGiWorldDraw& draw) {
    AcDbHatch hatch;
    (void)readHatch(entity.tags(), {}, hatch);
    (void)hatch.setPropertiesFrom(&entity);
    (void)hatch.worldDraw(&draw);
}

void drawParagraphs(const ForeignEntity& entity, AcGiWorldDraw& draw) {
    drawMtext(entity.tags(), entity, draw);
}

/// Drawn with more than the geometry of their groups.
struct EntityDrawing {
    std::string_view name;
    void (*draw)(const ForeignEntity&, AcGiWorldDraw&);
};
constexpr EntityDrawing kEntities[] = {
    {"INSERT", drawInsert},   {"MTEXT", drawParagraphs},        {"HATCH", drawHatch},
    {"MPOLYGON", drawHatch},  {"MULTILEADER", drawMultileader}, {"TOLERANCE", drawTolerance},
    {"WIPEOUT", drawWipeout},
};

}  // namespace

bool isShownForeign(std::string_view typeName) {
    const auto named = [typeName](const auto& type) { return type.name == typeName; };
    return isDimension(typeName) || std::ranges::any_of(kEntities, named) ||
           std::ranges::any_of(kTypes, named);
}

void drawForeign(const ForeignEntity& entity, AcGiWorldDraw& draw) {
    if (isDimension(entity.typeName())) return drawDimensionBlock(entity, draw);
    for (const EntityDrawing& type : kEntities)
        if (type.name == entity.typeName()) return type.draw(entity, draw);
    for (const TypeDrawing& type : kTypes)
        if (type.name == entity.typeName()) return type.draw(entity.tags(), draw.geometry());
}

}  // namespace prancheta
