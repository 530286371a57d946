// SPDX-License-Identifier: MIT
// Associative hatches follow the objects of their boundary.
#include "prancheta/editor/hatch_follower.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "prancheta/database/object_access.h"
#include "prancheta/editor/hatch_boundary.h"
#include "prancheta/entities/hatch_area.h"

namespace prancheta {

namespace {

using Sources = std::set<AcDbObjectId>;

Sources sourcesOf(const std::vector<HatchLoop>& loops) {
    Sources all;
    for (const HatchLoop& loop : loops) all.insert(loop.sources.begin(), loop.sources.end());
    return all;
}

Sources sourcesOf(const HatchLoop& loop) { return {loop.sources.begin(), loop.sources.end()}; }

bool isAlive(AcDbObjectId id) { return id.isResident() && !id.isErased(); }

/// What a hatch would be after its boundary changed.
struct Refit {
    std::vector<HatchLoop> loops;
    std::vector<AcGePoint2d> seeds;
};

AcGePoint2d inPlan(const AcGePoint3d& p) { return {p.x, p.y}; }

/// The area between the same objects: the one in which the point lies that was picked, else the
/// one that is most alike in size.
Refit refitAround(const AcDbHatch& hatch, const HatchBoundary& boundary) {
    const Sources wanted = sourcesOf(hatch.loops()[0]);
    const double size = std::abs(areaOf(outlineOf(hatch.loops()[0])));
    const AcGePoint2d& seed = hatch.seeds()[0];
    std::vector<HatchLoop> loops = boundary.around({seed.x, seed.y, 0.0});
    if (!loops.empty() && sourcesOf(loops[0]) == wanted) return {loops, {seed}};
    Refit best;
    double least = 1e300;
    for (const AcGePoint3d& p : boundary.besideEdges()) {
        loops = boundary.around(p);
        if (loops.empty() || sourcesOf(loops[0]) != wanted) continue;
        const double unlike = std::abs(std::abs(areaOf(loops[0].vertices)) - size);
        if (unlike >= least) continue;
        least = unlike;
        best = {loops, {inPlan(p)}};
    }
    return best;
}

Refit refit(const AcDbHatch& hatch, DisplayList& display) {
    const Sources sources = sourcesOf(hatch.loops());
    const HatchBoundary boundary(display, {sources.begin(), sources.end()});
    if (hatch.seeds().size() == 1) return refitAround(hatch, boundary);
    if (hatch.seeds().empty()) return {boundary.outlines(), {}};
    Refit all;
    for (const AcGePoint2d& seed : hatch.seeds()) {
        const std::vector<HatchLoop> loops = boundary.around({seed.x, seed.y, 0.0});
        if (loops.empty()) return {};
        all.loops.insert(all.loops.end(), loops.begin(), loops.end());
        all.seeds.push_back(seed);
    }
    return all;
}

bool isInPlan(const AcDbHatch& hatch) { return hatch.normal().isEqualTo(AcGeVector3d::kZAxis); }

double areaOf(const std::vector<HatchLoop>& loops) {
    std::vector<HatchOutline> outlines;
    for (const HatchLoop& loop : loops) outlines.push_back(outlineOf(loop));
    return areaBetween(outlines);
}

/// Whether both cover the same place.
bool isSame(const std::vector<HatchLoop>& a, const std::vector<HatchLoop>& b) {
    if (a.size() != b.size()) return false;
    double size = 1.0;
    const auto middle = [&](const std::vector<HatchLoop>& loops) {
        const HatchOutline outline = outlineOf(loops[0]);
        double sum[3] = {};
        for (const HatchSegment& s : segmentsOf({&outline, 1})) {
            const double length = std::hypot(s.b.x - s.a.x, s.b.y - s.a.y);
            sum[0] += length * (s.a.x + s.b.x) / 2.0;
            sum[1] += length * (s.a.y + s.b.y) / 2.0;
            sum[2] += length;
        }
        size = std::max(size, sum[2]);
        return AcGePoint3d(sum[0] / sum[2], sum[1] / sum[2], 0.0);
    };
    const double apart = middle(a).distanceTo(middle(b));
    return apart < 1e-3 * size && std::abs(areaOf(a) - areaOf(b)) < 1e-3 * size;
}

void release(AcDbHatch& hatch) {
    std::vector<HatchLoop> loops = hatch.loops();
    for (HatchLoop& loop : loops) loop.sources.clear();
    (void)hatch.setLoops(std::move(loops));
    (void)hatch.setAssociative(false);
}

bool hasReactor(const AcDbObject& object, AcDbObjectId id) {
    const ObjectExtra* const extra = ObjectAccess::extra(object);
    return extra != nullptr && std::ranges::find(extra->reactors, id) != extra->reactors.end();
}

bool isTied(const AcDbHatch& hatch, const Sources& sources) {
    return std::all_of(sources.begin(), sources.end(), [&](AcDbObjectId id) {
        const AcDbObjectPointer<AcDbObject> source(id, AcDb::kForRead);
        return source.openStatus() == Acad::eOk && hasReactor(*source.object(), hatch.objectId());
    });
}

const wchar_t* followOne(AcDbHatch& hatch, bool sourceChanged, DisplayList& display) {
    if (!hatch.associative() || hatch.loops().empty()) return nullptr;
    const Sources sources = sourcesOf(hatch.loops());
    if (sources.empty() || !isInPlan(hatch)) return nullptr;
    if (!std::all_of(sources.begin(), sources.end(), isAlive)) {
        if (!sourceChanged) return nullptr;
        release(hatch);
        return L"\nUm objeto do contorno foi apagado: a hachura não é mais associativa.";
    }
    if (!sourceChanged && !isTied(hatch, sources)) {
        release(hatch);  // a copy without what bounds it
        return nullptr;
    }
    const Refit now = refit(hatch, display);
    if (!sourceChanged) {
        // It was changed itself: as long as it still lies in its boundary it goes on to follow it.
        if (now.loops.empty() || isSame(now.loops, hatch.loops())) return nullptr;
        release(hatch);
        return L"\nA hachura foi separada do contorno: não é mais associativa.";
    }
    if (now.loops.empty()) {
        release(hatch);
        return L"\nO contorno não está mais fechado: a hachura ficou como estava e não é mais "
               L"associativa.";
    }
    (void)hatch.setLoops(now.loops);
    (void)hatch.setSeeds(now.seeds);
    tieToSources(hatch);
    return nullptr;
}

}  // namespace

void tieToSources(const AcDbHatch& hatch) {
    for (const AcDbObjectId id : sourcesOf(hatch.loops())) {
        {
            const AcDbObjectPointer<AcDbObject> source(id, AcDb::kForRead);
            if (source.openStatus() != Acad::eOk || hasReactor(*source.object(), hatch.objectId()))
                continue;
        }
        const AcDbObjectPointer<AcDbObject> source(id, AcDb::kForWrite);
        if (source.openStatus() == Acad::eOk) (void)source->addPersistentReactor(hatch.objectId());
    }
}

HatchFollower::HatchFollower(AcDbDatabase& database) : m_database(database) {
    m_database.addReactor(this);
}
HatchFollower::~HatchFollower() { m_database.removeReactor(this); }

void HatchFollower::forget() { m_changed.clear(); }

void HatchFollower::note(const AcDbObject* object) {
    const ObjectExtra* const extra = ObjectAccess::extra(*object);
    const auto* const hatch = AcDbHatch::cast(object);
    const bool counts =
        hatch != nullptr ? hatch->associative() : extra != nullptr && !extra->reactors.empty();
    if (counts) m_changed.insert(object->objectId());
}

std::wstring HatchFollower::follow(DisplayList& display) {
    if (m_changed.empty()) return {};
    // Hatches by handle, so that the same edit gives the same file; true: a source changed.
    std::vector<std::pair<AcDbObjectId, bool>> hatches;
    for (AcDbStub* const stub : std::exchange(m_changed, {})) {
        const AcDbObjectId id(stub);
        hatches.emplace_back(id, false);
        const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForRead, true);
        if (object.openStatus() != Acad::eOk) continue;
        if (const ObjectExtra* const extra = ObjectAccess::extra(*object.object()))
            for (const AcDbObjectId reactor : extra->reactors) hatches.emplace_back(reactor, true);
    }
    std::sort(hatches.begin(), hatches.end(), [](const auto& a, const auto& b) {
        return a.first != b.first ? a.first < b.first : a.second > b.second;
    });
    std::wstring told;
    AcDbObjectId last;
    for (const auto& [id, sourceChanged] : hatches) {
        if (id == std::exchange(last, id) || !isAlive(id)) continue;
        const AcDbObjectPointer<AcDbHatch> hatch(id, AcDb::kForWrite);
        if (hatch.openStatus() != Acad::eOk) continue;
        if (const wchar_t* const line = followOne(*hatch.object(), sourceChanged, display))
            told += line;
    }
    m_changed.clear();
    return told;
}

}  // namespace prancheta
