// SPDX-License-Identifier: MIT
// What lies under the pointer and inside a frame, through the display list.
#include "prancheta/editor/picking.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "dbdim.h"
#include "dbhatch.h"
#include "dbmtext.h"
#include "prancheta/database/database_core.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/scene.h"
#include "prancheta/editor/wanted.h"
#include "prancheta/entities/weld_symbol.h"
#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/hit.h"
#include "prancheta/graphics/snaps.h"
#include "prancheta/graphics/text_metrics.h"

namespace prancheta {

double pickTolerance(const Editor& editor) {
    return editor.database().core().variables().number(L"PICKBOX") * editor.screen().pixelSize();
}

bool onLockedLayer(AcDbObjectId entity) { return LayerStates().of(entity).locked; }

namespace {

using Ids = std::vector<AcDbObjectId>;

Box2d boxOf(const Window& window) { return {window.left, window.bottom, window.right, window.top}; }

Box2d around(const AcGePoint3d& p, double reach) { return Box2d{p.x, p.y, p.x, p.y}.grown(reach); }

bool inside(const Box2d& box, const Window& window) {
    return box.left >= window.left && box.right <= window.right && box.bottom >= window.bottom &&
           box.top <= window.top;
}

/// Displayed entities that meet the area and fit, in drawing order.
template <class Fits>
Ids select(const Editor& editor, const Box2d& area, Fits&& fits) {
    Ids ids;
    for (const DisplayList::Item& item : editor.shownDisplay().find(area))
        if (fits(item)) ids.push_back(item.id);
    return ids;
}

}  // namespace

namespace {

/// What is picked before others, least first; nothing outside of the pick box.
enum class Rank { Line, Text, Area, None };

Rank rankOf(AcDbObjectId id, const Nearness& near, double tolerance) {
    const bool isHatch = id.objectClass() == AcDbHatch::desc();
    if (near.line <= tolerance) return isHatch ? Rank::Area : Rank::Line;
    if (near.text <= tolerance) return Rank::Text;
    return near.area <= tolerance ? Rank::Area : Rank::None;
}

}  // namespace

AcDbObjectId entityAt(const Editor& editor, const AcGePoint3d& world, const Wanted& wanted) {
    const double tolerance = pickTolerance(editor);
    const double same = tolerance * 1e-3;  // what lies on one place is equally near
    const std::vector<DisplayList::Item> near =
        editor.shownDisplay().find(around(world, tolerance));
    AcDbObjectId best;
    std::pair<bool, Rank> bestRank;
    double least = 0.0;
    for (auto item = near.rbegin(); item != near.rend(); ++item) {
        const Nearness distance = nearness(editor.shownDisplay().picture(item->id), world);
        const std::pair rank(wanted && !wanted(item->id), rankOf(item->id, distance, tolerance));
        if (rank.second == Rank::None) continue;
        const bool nearer = rank.second == Rank::Line && distance.line < least - same;
        if (!best.isNull() && (rank > bestRank || (rank == bestRank && !nearer))) continue;
        best = item->id;
        bestRank = rank;
        least = distance.line;
    }
    return best;
}

AcDbObjectId entityAt(const Editor& editor, const AcGePoint3d& world) {
    return entityAt(editor, world, {});
}

AcDbObjectId wantedAt(const Editor& editor, AcDbObjectId picked, const AcGePoint3d& world,
                      const Wanted& wanted) {
    // One that was named instead of picked is meant.
    if (wanted(picked) || entityAt(editor, world) != picked) return picked;
    return entityAt(editor, world, wanted);
}

// What is all in the window is seen from its box.
std::vector<AcDbObjectId> entitiesInWindow(const Editor& editor, const AcGePoint3d& a,
                                           const AcGePoint3d& b) {
    const Window window(a, b);
    return select(editor, boxOf(window),
                  [&](const DisplayList::Item& item) { return inside(item.box, window); });
}

std::vector<AcDbObjectId> entitiesCrossing(const Editor& editor, const AcGePoint3d& a,
                                           const AcGePoint3d& b) {
    const Window window(a, b);
    return select(editor, boxOf(window), [&](const DisplayList::Item& item) {
        return inside(item.box, window) || touches(editor.shownDisplay().picture(item.id), window);
    });
}

namespace {

/// Seen from above.
bool onSegment(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& p) {
    constexpr double kNear = 1e-9;
    const AcGeVector3d along(b.x - a.x, b.y - a.y, 0.0);
    const AcGeVector3d to(p.x - a.x, p.y - a.y, 0.0);
    const double square = along.dotProduct(along);
    const double part = square > 0.0 ? std::clamp(to.dotProduct(along) / square, 0.0, 1.0) : 0.0;
    const double size = std::max({1.0, std::abs(p.x), std::abs(p.y)});
    return (to - along * part).length() <= kNear * size;
}

}  // namespace

std::vector<AcGePoint3d> cornersBetween(const AcGePoint3d& a, const AcGePoint3d& b) {
    return {a, {b.x, a.y, a.z}, b, {a.x, b.y, a.z}};
}

bool isInside(const std::vector<AcGePoint3d>& polygon, const AcGePoint3d& p) {
    bool inside = false;
    for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++) {
        const AcGePoint3d& a = polygon[i];
        const AcGePoint3d& b = polygon[j];
        if (onSegment(a, b, p)) return true;
        if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x)
            inside = !inside;
    }
    return inside;
}

namespace {

/// Some point of a picture: where its first primitive begins.
std::optional<AcGePoint3d> somePoint(const Picture& picture) {
    if (picture.empty()) return {};
    const PrimitiveView first = picture[0];
    switch (first.kind()) {
        case PrimitiveKind::Circle:
            return first.center() + arbitraryXAxis(first.normal()) * first.radius();
        case PrimitiveKind::Arc:
            return first.center() + first.start() * first.radius();
        case PrimitiveKind::Text:
            return first.position();
        default:
            return first.points().front();
    }
}

Picture lineThrough(std::vector<AcGePoint3d> points, bool closed) {
    if (closed && !points.empty()) points.push_back(points.front());
    Picture picture;
    picture.addPolyline({}, points);
    return picture;
}

/// Texts have no edges: their boxes stand for them.
Picture textBoxes(const Picture& picture) {
    Picture boxes;
    for (const PrimitiveView& primitive : picture) {
        if (primitive.kind() != PrimitiveKind::Text) continue;
        const auto box = textBox(primitive);
        boxes.append(lineThrough({box.begin(), box.end()}, true));
    }
    return boxes;
}

bool crosses(const Picture& picture, const Picture& line) {
    constexpr double kAnywhere = std::numeric_limits<double>::infinity();
    std::vector<AcGePoint3d> crossings;
    appendIntersections(picture, line, AcGePoint3d::kOrigin, kAnywhere, crossings);
    appendIntersections(textBoxes(picture), line, AcGePoint3d::kOrigin, kAnywhere, crossings);
    return !crossings.empty();
}

Window windowOf(const Box2d& box) {
    return {AcGePoint3d(box.left, box.bottom, 0.0), AcGePoint3d(box.right, box.top, 0.0)};
}

}  // namespace

// Only entities whose box the border meets are looked at one by one.
std::vector<AcDbObjectId> entitiesInPolygon(const Editor& editor,
                                            const std::vector<AcGePoint3d>& polygon,
                                            bool crossing) {
    if (polygon.size() < 3) return {};
    const Picture border = lineThrough(polygon, true);
    return select(editor, boxOf(border.extents()), [&](const DisplayList::Item& item) {
        if (!touches(border, windowOf(item.box)))
            return isInside(polygon, {item.box.left, item.box.bottom, 0.0});
        const Picture& picture = editor.shownDisplay().picture(item.id);
        if (crosses(picture, border)) return crossing;
        const std::optional<AcGePoint3d> point = somePoint(picture);
        return point && isInside(polygon, *point);
    });
}

std::vector<AcDbObjectId> entitiesOnFence(const Editor& editor,
                                          const std::vector<AcGePoint3d>& fence) {
    if (fence.size() < 2) return {};
    const Picture line = lineThrough(fence, false);
    return select(editor, boxOf(line.extents()), [&](const DisplayList::Item& item) {
        return touches(line, windowOf(item.box)) &&
               crosses(editor.shownDisplay().picture(item.id), line);
    });
}

std::vector<AcDbObjectId> allEntities(const Editor& editor) {
    std::vector<AcDbObjectId> ids = entitiesOfSpace(editor);
    LayerStates layers;
    std::erase_if(ids, [&](AcDbObjectId id) {
        const LayerStates::State& state = layers.of(id);
        return state.frozen || state.locked;
    });
    return ids;
}

AcDbObjectId lastEntity(const Editor& editor) { return editor.display().last(); }

bool hasTextToEdit(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk) return false;
    for (const AcRxClass* each :
         {AcDbText::desc(), AcDbMText::desc(), AcDbDimension::desc(), WeldSymbol::desc()})
        if (entity->isKindOf(each)) return true;
    return false;
}

}  // namespace prancheta
