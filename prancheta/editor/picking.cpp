// SPDX-License-Identifier: MIT
// What lies under the pointer, inside a frame, near a snap point.
#include "prancheta/editor/picking.h"

#include <algorithm>
#include <limits>

#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/scene.h"
#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/hit.h"
#include "prancheta/graphics/snaps.h"

namespace prancheta {

double pickTolerance(const Editor& editor) {
    return editor.database().core().variables().number(L"PICKBOX") * editor.pixelSize();
}

bool onLockedLayer(AcDbObjectId entity) { return LayerStates().of(entity).locked; }

bool onDisplayedLayer(AcDbObjectId entity) {
    LayerStates layers;
    const LayerStates::State& state = layers.of(entity);
    return !state.off && !state.frozen;
}

AcDbObjectId entityAt(const Editor& editor, const AcGePoint3d& world) {
    const double tolerance = pickTolerance(editor);
    const Scene scene(editor);
    for (auto entity = scene.entities().rbegin(); entity != scene.entities().rend(); ++entity)
        if (distanceTo(entity->picture, world) <= tolerance) return entity->id;
    return AcDbObjectId::kNull;
}

std::vector<AcDbObjectId> entitiesInWindow(const Editor& editor, const AcGePoint3d& a,
                                           const AcGePoint3d& b) {
    const Window window(a, b);
    return Scene(editor).select([&](const Picture& picture) { return isInside(picture, window); });
}

std::vector<AcDbObjectId> entitiesCrossing(const Editor& editor, const AcGePoint3d& a,
                                           const AcGePoint3d& b) {
    const Window window(a, b);
    return Scene(editor).select([&](const Picture& picture) { return touches(picture, window); });
}

namespace {

bool contains(const std::vector<AcGePoint3d>& polygon, const AcGePoint3d& p) {
    bool inside = false;
    for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++) {
        const AcGePoint3d& a = polygon[i];
        const AcGePoint3d& b = polygon[j];
        if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x)
            inside = !inside;
    }
    return inside;
}

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

bool crosses(const Picture& picture, const Picture& line) {
    std::vector<AcGePoint3d> crossings;
    appendIntersections(picture, line, AcGePoint3d::kOrigin,
                        std::numeric_limits<double>::infinity(), crossings);
    return !crossings.empty();
}

Picture lineThrough(std::vector<AcGePoint3d> points, bool closed) {
    if (closed && !points.empty()) points.push_back(points.front());
    Picture picture;
    picture.addPolyline({}, points);
    return picture;
}

}  // namespace

std::vector<AcDbObjectId> entitiesInPolygon(const Editor& editor,
                                            const std::vector<AcGePoint3d>& polygon,
                                            bool crossing) {
    if (polygon.size() < 3) return {};
    const Picture border = lineThrough(polygon, true);
    return Scene(editor).select([&](const Picture& picture) {
        if (crosses(picture, border)) return crossing;
        const std::optional<AcGePoint3d> point = somePoint(picture);
        return point && contains(polygon, *point);
    });
}

std::vector<AcDbObjectId> entitiesOnFence(const Editor& editor,
                                          const std::vector<AcGePoint3d>& fence) {
    if (fence.size() < 2) return {};
    const Picture line = lineThrough(fence, false);
    return Scene(editor).select([&](const Picture& picture) { return crosses(picture, line); });
}

std::vector<AcDbObjectId> allEntities(const Editor& editor) {
    std::vector<AcDbObjectId> ids = Scene::spaceOf(editor);
    LayerStates layers;
    std::erase_if(ids, [&](AcDbObjectId id) {
        const LayerStates::State& state = layers.of(id);
        return state.frozen || state.locked;
    });
    return ids;
}

AcDbObjectId lastEntity(const Editor& editor) {
    const std::vector<AcDbObjectId> ids = Scene::spaceOf(editor);
    AcDbObjectId last;
    LayerStates layers;
    for (auto id = ids.rbegin(); id != ids.rend(); ++id) {
        const LayerStates::State& state = layers.of(*id);
        if (state.frozen || state.off) continue;
        if (last.isNull() || last.handle() < id->handle()) last = *id;
    }
    return last;
}

// --- Snaps --------------------------------------------------------------------------------------

namespace {

struct SnapWord {
    const wchar_t* word;
    int mode;
};

// The Portuguese words stand after the global ones.
constexpr SnapWord kSnapWords[] = {
    {L"none", 0},
    {L"endpoint", 1},
    {L"midpoint", 2},
    {L"center", 4},
    {L"node", 8},
    {L"quadrant", 16},
    {L"intersection", 32},
    {L"insertion", 64},
    {L"perpendicular", 128},
    {L"tangent", 256},
    {L"nearest", 512},
    {L"apparent", 2048},
    {L"extension", 4096},
    {L"parallel", 8192},
    {L"nenhum", 0},
    {L"final", 1},
    {L"meio", 2},
    {L"centro", 4},
    {L"nó", 8},
    {L"quadrante", 16},
    {L"interseção", 32},
    {L"inserção", 64},
    {L"tangente", 256},
    {L"próximo", 512},
    {L"aparente", 2048},
    {L"extensão", 4096},
    {L"paralelo", 8192},
};

struct ModeOfBit {
    int bit;
    AcDb::OsnapMode mode;
};

constexpr ModeOfBit kModes[] = {
    {1, AcDb::kOsModeEnd},    {2, AcDb::kOsModeMid},   {4, AcDb::kOsModeCen},
    {8, AcDb::kOsModeNode},   {16, AcDb::kOsModeQuad}, {64, AcDb::kOsModeIns},
    {128, AcDb::kOsModePerp}, {256, AcDb::kOsModeTan}, {512, AcDb::kOsModeNear},
};
constexpr int kIntersection = 32;
constexpr int kNearest = 512;

/// Three letters of a word are enough.
std::optional<int> snapMode(std::wstring_view word) {
    for (const SnapWord& known : kSnapWords) {
        const std::wstring_view whole(known.word);
        const bool enough = word.size() >= std::min<std::size_t>(3, whole.size());
        if (enough && word.size() <= whole.size() &&
            equalNoCase(word, whole.substr(0, word.size())))
            return known.mode;
    }
    return {};
}

void appendSnapsOf(AcDbObjectId id, int modes, const AcGePoint3d& pick, const AcGePoint3d& from,
                   std::vector<AcGePoint3d>& out) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk) return;
    for (const ModeOfBit& m : kModes) {
        if ((modes & m.bit) == 0) continue;
        AcGePoint3dArray points;
        AcDbIntArray ids;
        (void)entity->getOsnapPoints(m.mode, 0, pick, from, AcGeMatrix3d::kIdentity, points, ids);
        out.insert(out.end(), points.begin(), points.end());
    }
}

std::optional<AcGePoint3d> nearest(const std::vector<AcGePoint3d>& points, const AcGePoint3d& to,
                                   double reach) {
    std::optional<AcGePoint3d> best;
    double least = reach;
    for (const AcGePoint3d& p : points) {
        const double distance = AcGeVector3d(p.x - to.x, p.y - to.y, 0.0).length();
        if (distance > least) continue;
        least = distance;
        best = p;
    }
    return best;
}

}  // namespace

std::optional<int> snapModes(std::wstring_view words) {
    int modes = 0;
    words = trim(words);
    if (words.empty()) return {};
    while (!words.empty()) {
        const std::size_t comma = std::min(words.find(L','), words.size());
        std::wstring_view word = trim(words.substr(0, comma));
        words.remove_prefix(std::min(comma + 1, words.size()));
        if (word.starts_with(L'_')) word.remove_prefix(1);
        const std::optional<int> mode = snapMode(word);
        if (!mode) return {};
        modes |= *mode;
    }
    return modes;
}

std::optional<AcGePoint3d> snapPoint(const Editor& editor, const AcGePoint3d& world, int modes,
                                     SnapReach reach, const std::optional<AcGePoint3d>& base) {
    if (modes == 0) return {};
    const double aperture =
        editor.database().core().variables().number(L"APERTURE") * editor.pixelSize();
    const Scene scene(editor);
    std::vector<const Scene::Item*> near;
    for (const Scene::Item& item : scene.entities())
        if (distanceTo(item.picture, world) <= aperture) near.push_back(&item);
    const AcGePoint3d from = base.value_or(editor.lastPoint());
    std::vector<AcGePoint3d> points;
    for (const Scene::Item* item : near)
        appendSnapsOf(item->id, modes & ~kNearest, world, from, points);
    if (modes & kIntersection) {
        for (std::size_t i = 0; i < near.size(); ++i)
            for (std::size_t j = i; j < near.size(); ++j)
                appendIntersections(near[i]->picture, near[j]->picture, world, aperture, points);
    }
    std::optional<AcGePoint3d> found = nearest(points, world, aperture);
    if (!found && reach == SnapReach::Object)
        found = nearest(points, world, std::numeric_limits<double>::infinity());
    if (found || (modes & kNearest) == 0) return found;
    points.clear();
    for (const Scene::Item* item : near) appendSnapsOf(item->id, kNearest, world, from, points);
    return nearest(points, world, aperture);
}

}  // namespace prancheta
