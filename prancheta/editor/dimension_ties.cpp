// SPDX-License-Identifier: MIT
// Dimensions that stay with what they measure.
#include "prancheta/editor/dimension_ties.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

#include "prancheta/base/raised.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/database/layouts.h"
#include "prancheta/database/object_access.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/editor.h"
#include "prancheta/graphics/edges.h"

namespace prancheta {
namespace {

constexpr const char* kApplication = "PRANCHETA_COTA";

/// Kinds of points as the file names them, in the order in which they are tried. The last one is
/// the circle or arc itself, of dimensions of radii.
struct PointKind {
    int number;
    AcDb::OsnapMode mode;
};
constexpr PointKind kPointKinds[] = {{1, AcDb::kOsModeEnd},   {2, AcDb::kOsModeMid},
                                     {4, AcDb::kOsModeCen},   {8, AcDb::kOsModeNode},
                                     {16, AcDb::kOsModeQuad}, {64, AcDb::kOsModeIns}};
constexpr int kRound = 0;

struct Tie {
    std::size_t point = 0;  ///< of the dimension's definition points
    AcDbObjectId target;
    int kind = 0;   ///< PointKind::number, or kRound
    int index = 0;  ///< among the target's points of the kind
    int count = 0;  ///< how many it had
};
using Ties = std::vector<Tie>;

bool samePoint(const AcGePoint3d& a, const AcGePoint3d& b) {
    const double size = std::max({1.0, std::abs(a.x), std::abs(a.y)});
    return std::hypot(a.x - b.x, a.y - b.y) <= 1e-7 * size;
}

// --- In the extended data: for each tie the numbers of point, kind, index and count, and the
// target's handle.

Ties tiesOf(const AcDbDimension& dimension) {
    Ties ties;
    const ObjectExtra* const extra = ObjectAccess::extra(dimension);
    if (extra == nullptr || dimension.database() == nullptr) return ties;
    bool ours = false;
    int numbers[4] = {};
    std::size_t known = 0;
    for (const RawTagView& tag : extra->xdata) {
        const std::string_view text = trim(tag.value);
        if (tag.code == 1001) ours = text == kApplication;
        if (!ours) continue;
        if (tag.code == 1071 && known < 4)
            (void)std::from_chars(text.data(), text.data() + text.size(), numbers[known++]);
        if (tag.code != 1005) continue;
        Adesk::UInt64 handle = 0;
        (void)std::from_chars(text.data(), text.data() + text.size(), handle, 16);
        const AcDbObjectId target(dimension.database()->core().find(handle));
        const bool whole = known == 4 && numbers[0] >= 0 &&
                           static_cast<std::size_t>(numbers[0]) < dimension.measuredPoints();
        if (whole && !target.isNull())
            ties.push_back(
                {static_cast<std::size_t>(numbers[0]), target, numbers[1], numbers[2], numbers[3]});
        known = 0;
    }
    return ties;
}

/// The dimension is open for write.
void keepTies(AcDbDimension& dimension, const Ties& ties) {
    dimension.assertWriteEnabled();
    RawTags kept;
    bool ours = false;
    if (const ObjectExtra* const extra = ObjectAccess::extra(dimension))
        for (const RawTagView& tag : extra->xdata) {
            if (tag.code == 1001) ours = trim(tag.value) == kApplication;
            if (!ours) kept.push_back({tag.code, std::string(tag.value)});
        }
    if (!ties.empty()) {
        (void)dimension.database()->core().ensureRegApp(toWide(kApplication));
        kept.push_back({1001, kApplication});
    }
    for (const Tie& tie : ties) {
        for (const int number : {static_cast<int>(tie.point), tie.kind, tie.index, tie.count})
            kept.push_back({1071, std::to_string(number)});
        ACHAR handle[17];
        tie.target.handle().getIntoAsciiBuffer(handle);
        kept.push_back({1005, toUtf8(handle)});
    }
    ObjectAccess::makeExtra(dimension).xdata = kept;
    ObjectAccess::dropEmptyExtra(dimension);
}

// --- Points of what is measured ------------------------------------------------------------------

AcGePoint3dArray pointsOf(const AcDbEntity& entity, AcDb::OsnapMode mode) {
    AcGePoint3dArray points;
    AcDbIntArray parts;
    // A class that knows no point of the mode adds none.
    (void)entity.getOsnapPoints(mode, 0, AcGePoint3d::kOrigin, AcGePoint3d::kOrigin,
                                AcGeMatrix3d::kIdentity, points, parts);
    return points;
}

std::vector<Edge> roundEdges(AcDbEntity& entity) {
    std::vector<Edge> found;
    Picture picture;
    recordPicture(entity, picture);
    for (const PrimitiveView primitive : picture)
        forEachEdge(primitive, [&](const Edge& edge) {
            if (edge.isArc()) found.push_back(edge);
        });
    return found;
}

/// The point that a tie means; `now` is where it is, for a target with other points than before.
std::optional<AcGePoint3d> placeOf(const Tie& tie, const AcDbEntity& target,
                                   const AcGePoint3d& now) {
    const auto* const kind = std::ranges::find(kPointKinds, tie.kind, &PointKind::number);
    if (kind == std::end(kPointKinds)) return {};
    const AcGePoint3dArray points = pointsOf(target, kind->mode);
    if (points.isEmpty()) return {};
    if (points.length() == tie.count && tie.index >= 0 && tie.index < tie.count)
        return points[tie.index];
    return *std::min_element(points.begin(), points.end(),
                             [&](const AcGePoint3d& a, const AcGePoint3d& b) {
                                 return a.distanceTo(now) < b.distanceTo(now);
                             });
}

std::optional<Tie> tieAt(const AcGePoint3d& p, std::size_t point, const AcDbEntity& entity) {
    for (const PointKind& kind : kPointKinds) {
        const AcGePoint3dArray points = pointsOf(entity, kind.mode);
        for (int i = 0; i < points.length(); ++i)
            if (samePoint(points[i], p))
                return Tie{point, entity.objectId(), kind.number, i, points.length()};
    }
    return {};
}

std::optional<Tie> roundTie(const PranchetaRadialDimension& dimension, AcDbEntity& entity) {
    const std::vector<Edge> edges = roundEdges(entity);
    for (std::size_t i = 0; i < edges.size(); ++i)
        if (samePoint(edges[i].center, dimension.middle()) &&
            std::abs(edges[i].radius - dimension.middle().distanceTo(dimension.chordPoint())) <=
                1e-7 * std::max(1.0, edges[i].radius))
            return Tie{0, entity.objectId(), kRound, static_cast<int>(i),
                       static_cast<int>(edges.size())};
    return {};
}

// --- Following -----------------------------------------------------------------------------------

using Points = std::vector<AcGePoint3d>;

/// The points of a radius or diameter about a circle that moved or grew.
bool putRound(const Tie& tie, AcDbEntity& target, const PranchetaRadialDimension& dimension,
              Points& points) {
    const std::vector<Edge> edges = roundEdges(target);
    if (static_cast<int>(edges.size()) != tie.count || tie.index < 0 || tie.index >= tie.count)
        return false;
    const Edge& edge = edges[static_cast<std::size_t>(tie.index)];
    const double before = dimension.middle().distanceTo(dimension.chordPoint());
    for (AcGePoint3d& p : points) {
        const AcGeVector3d arm = p - dimension.middle();
        p = edge.center + (before > 0.0 ? arm * (edge.radius / before) : arm);
    }
    return true;
}

/// Where the rest goes when the measured points go: with them where all go alike; the line of an
/// aligned dimension turns with it about its first point.
AcGeMatrix3d motionOf(const AcDbDimension& dimension, const Points& after) {
    const std::span<const AcGePoint3d> before = dimension.definitionPoints();
    const AcGeVector3d by = after[0] - before[0];
    bool alike = true;
    for (std::size_t i = 1; i < dimension.measuredPoints(); ++i)
        alike = alike && samePoint(before[i] + by, after[i]);
    if (alike) return AcGeMatrix3d::translation(by);
    if (!dimension.isKindOf(AcDbAlignedDimension::desc())) return AcGeMatrix3d::kIdentity;
    const AcGeVector3d was = before[1] - before[0];
    const AcGeVector3d is = after[1] - after[0];
    const double turn = std::atan2(was.x * is.y - was.y * is.x, was.x * is.x + was.y * is.y);
    // What only grows keeps its line to the last digit.
    const AcGeMatrix3d turned = std::abs(turn) < 1e-12
                                    ? AcGeMatrix3d::kIdentity
                                    : AcGeMatrix3d::rotation(turn, AcGeVector3d::kZAxis, before[0]);
    return AcGeMatrix3d::translation(by) * turned;
}

void put(AcDbDimension& dimension, const Points& after) {
    const AcGeMatrix3d motion = motionOf(dimension, after);
    const std::size_t measured = dimension.measuredPoints();
    const std::size_t count = dimension.definitionPoints().size();
    for (std::size_t i = 0; i < count; ++i)
        (void)dimension.setDefinitionPoint(
            i, i < measured ? after[i] : motion * dimension.definitionPoints()[i]);
    if (!dimension.isUsingDefaultTextPosition())
        (void)dimension.setTextPosition(motion * dimension.textPosition());
}

bool onLockedLayer(const AcDbEntity& entity) {
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(entity.layerId(), AcDb::kForRead);
    return layer.openStatus() == Acad::eOk && layer->isLocked();
}

}  // namespace

DimensionTies::DimensionTies(AcDbDatabase& database) : m_database(database) {
    for (const Tab& tab : tabsOf(database)) {
        const AcDbObjectPointer<AcDbBlockTableRecord> record(tab.block, AcDb::kForRead);
        if (record.openStatus() != Acad::eOk) continue;
        for (const AcDbObjectId id : ObjectAccess::entities(*record.object()))
            if (id.objectClass()->isDerivedFrom(AcDbDimension::desc())) index(id);
    }
    database.addReactor(this);
}

DimensionTies::~DimensionTies() { m_database.removeReactor(this); }

void DimensionTies::note(const AcDbObject& object) {
    const AcDbObjectId id = object.objectId();
    const AcDbStub* const stub = id;
    const bool dimension = object.isKindOf(AcDbDimension::desc());
    if (!dimension && !m_byTarget.contains(stub)) return;
    // What undo brings back has its ties, which may be others than those that are known.
    if (m_settling || object.isUndoing()) {
        if (dimension) index(id);
        return;
    }
    if (m_changedOnes.insert(stub).second) m_changed.push_back(id);
}

void DimensionTies::index(AcDbObjectId dimension) {
    const AcDbStub* const stub = dimension;
    const auto* const object =
        stub->object != nullptr ? AcDbDimension::cast(stub->object) : nullptr;
    if (object == nullptr) return;
    for (const Tie& tie : tiesOf(*object)) {
        std::vector<AcDbObjectId>& all = m_byTarget[tie.target];
        if (std::ranges::find(all, dimension) == all.end()) all.push_back(dimension);
    }
}

void DimensionTies::tie(AcDbObjectId id, DisplayList& display) {
    AcDbObjectPointer<AcDbDimension> dimension(id, AcDb::kForWrite);
    if (dimension.openStatus() != Acad::eOk) return;
    const auto* const round = dynamic_cast<PranchetaRadialDimension*>(dimension.object());
    Ties ties;
    for (std::size_t i = 0; i < dimension->measuredPoints(); ++i) {
        const AcGePoint3d p =
            round != nullptr ? round->chordPoint() : dimension->definitionPoints()[i];
        const double reach = 1e-7 * std::max({1.0, std::abs(p.x), std::abs(p.y)});
        const auto items = display.find(Box2d{p.x, p.y, p.x, p.y}.grown(reach));
        std::optional<Tie> best;
        for (auto item = items.rbegin(); item != items.rend(); ++item) {
            const AcDbObjectPointer<AcDbEntity> entity(item->id, AcDb::kForRead);
            if (entity.openStatus() != Acad::eOk || entity->isKindOf(AcDbDimension::desc()))
                continue;
            const std::optional<Tie> found = round != nullptr ? roundTie(*round, *entity.object())
                                                              : tieAt(p, i, *entity.object());
            if (found && (!best || found->kind < best->kind)) best = found;
        }
        if (best) ties.push_back(*best);
        if (round != nullptr) break;
    }
    if (ties.empty()) return;
    keepTies(*dimension.object(), ties);
    index(id);
}

void DimensionTies::follow(AcDbObjectId id) {
    AcDbObjectPointer<AcDbDimension> dimension(id, AcDb::kForRead);
    if (dimension.openStatus() != Acad::eOk || onLockedLayer(*dimension.object())) return;
    const std::span<const AcGePoint3d> before = dimension->definitionPoints();
    const Ties ties = tiesOf(*dimension.object());
    Points after(before.begin(), before.end());
    Ties kept;
    const bool itself = m_changedOnes.contains(static_cast<AcDbStub*>(id));
    for (const Tie& tie : ties) {
        const AcDbObjectPointer<AcDbEntity> target(tie.target, AcDb::kForRead);
        if (target.openStatus() != Acad::eOk) continue;
        Points wanted = after;
        if (tie.kind == kRound) {
            const auto* const round = dynamic_cast<PranchetaRadialDimension*>(dimension.object());
            if (round == nullptr || !putRound(tie, *target.object(), *round, wanted)) continue;
        } else if (const auto place = placeOf(tie, *target.object(), before[tie.point])) {
            wanted[tie.point] = *place;
        } else {
            continue;
        }
        // Taken away from what stayed where it is.
        const bool off = !std::ranges::equal(wanted, after, samePoint);
        if (off && itself && !m_changedOnes.contains(static_cast<AcDbStub*>(tie.target))) continue;
        if (off) after = wanted;
        kept.push_back(tie);
    }
    const bool moved = !std::ranges::equal(before, after, samePoint);
    if (!moved && kept.size() == ties.size()) return;
    if (dimension->upgradeOpen() != Acad::eOk) return;
    if (moved) put(*dimension.object(), after);
    if (kept.size() != ties.size()) keepTies(*dimension.object(), kept);
}

void DimensionTies::settle() {
    if (m_changed.empty() || m_settling) return;
    const Raised settling(m_settling);
    std::vector<AcDbObjectId> dimensions;
    std::unordered_set<const AcDbStub*> seen;
    const auto add = [&](AcDbObjectId id) {
        if (!id.isErased() && seen.insert(static_cast<AcDbStub*>(id)).second)
            dimensions.push_back(id);
    };
    for (const AcDbObjectId id : m_changed) {
        if (id.isResident() && id.objectClass()->isDerivedFrom(AcDbDimension::desc())) {
            index(id);
            add(id);
        }
        if (const auto found = m_byTarget.find(static_cast<AcDbStub*>(id));
            found != m_byTarget.end())
            for (const AcDbObjectId tied : found->second) add(tied);
    }
    for (const AcDbObjectId id : dimensions) follow(id);
    m_changed.clear();
    m_changedOnes.clear();
}

void tieDimension(Editor& editor, AcDbObjectId dimension) {
    editor.dimensionTies().tie(dimension, editor.display());
}

}  // namespace prancheta
