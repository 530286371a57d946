// SPDX-License-Identifier: MIT
// Object snaps: their words, and the points of what lies under the aperture.
#include <algorithm>
#include <cmath>
#include <limits>

#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/picking.h"
#include "prancheta/editor/snap_modes.h"
#include "prancheta/entities/viewports.h"
#include "prancheta/graphics/edges.h"
#include "prancheta/graphics/hit.h"
#include "prancheta/graphics/snaps.h"

namespace prancheta {
namespace {

/// Three letters of a word are enough.
bool isWord(std::wstring_view typed, std::wstring_view whole) {
    const bool enough = typed.size() >= std::min<std::size_t>(3, whole.size());
    return enough && equalNoCase(typed, whole.substr(0, typed.size()));
}

/// With accents where they are typed right, else without them.
std::optional<int> snapMode(std::wstring_view word) {
    if (isWord(word, L"none") || isWord(word, L"nenhum")) return 0;
    for (const SnapMode& mode : kSnapModes)
        if (isWord(word, mode.global) || isWord(word, mode.local)) return mode.bit;
    const std::wstring plain = withoutAccents(word);
    for (const SnapMode& mode : kSnapModes)
        if (isWord(plain, withoutAccents(mode.local))) return mode.bit;
    return {};
}

}  // namespace

AcGeVector3d alongNearerAxis(const AcGeVector3d& v, double snapAngle) {
    const SineCosine sc = sineCosine(snapAngle);
    const AcGeVector3d x(sc.cosine, sc.sine, 0.0);
    const AcGeVector3d y(-sc.sine, sc.cosine, 0.0);
    const double alongX = v.dotProduct(x);
    const double alongY = v.dotProduct(y);
    AcGeVector3d along = std::fabs(alongX) >= std::fabs(alongY) ? x * alongX : y * alongY;
    along.z = v.z;
    return along;
}

std::optional<int> snapModes(std::wstring_view words) {
    int modes = 0;
    words = trim(words);
    // Nearly all that is asked about is a point.
    if (words.empty() || (words.front() != L'_' && foldCase(words.front()) < L'a')) return {};
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

// --- Points -------------------------------------------------------------------------------------

namespace {

struct ModeOfBit {
    int bit;
    AcDb::OsnapMode mode;
    int rank;  ///< of points at one distance the one of lower rank wins
};

constexpr ModeOfBit kModes[] = {
    {1, AcDb::kOsModeEnd, 0},    {2, AcDb::kOsModeMid, 2},   {4, AcDb::kOsModeCen, 3},
    {8, AcDb::kOsModeNode, 4},   {16, AcDb::kOsModeQuad, 5}, {64, AcDb::kOsModeIns, 6},
    {128, AcDb::kOsModePerp, 7}, {256, AcDb::kOsModeTan, 8}, {512, AcDb::kOsModeNear, 9},
};
/// In a plan what seems to cross does cross.
constexpr int kCrossings = kIntersectionSnap | kApparentSnap;
constexpr int kIntersectionRank = 1;
constexpr int kNearest = 512;
constexpr int kExtensionRank = 10;

/// Of a view in which thousands of entities lie under the aperture only the topmost count.
constexpr std::size_t kMostEntities = 1000;

struct Candidate {
    SnapHit hit;
    int rank = 0;
    double distance = 0.0;  ///< from the pointer
    double step = 0.0;      ///< the same in steps that nobody sees
};

double planeDistanceTo(const AcGePoint3d& p, const AcGePoint3d& to) {
    return std::hypot(p.x - to.x, p.y - to.y);
}

/// The point nearest to `pointer` beyond the ends of a segment, or on the rest of an arc's circle.
std::optional<AcGePoint3d> onExtension(const Edge& edge, const AcGePoint3d& pointer) {
    if (edge.isArc()) {
        const double angle = std::atan2(pointer.y - edge.center.y, pointer.x - edge.center.x);
        return edge.reaches(angle) ? std::nullopt : std::optional(edge.at(angle));
    }
    const AcGeVector3d along = edge.b - edge.a;
    const double square = along.x * along.x + along.y * along.y;
    if (!(square > 0.0)) return {};
    const double t = ((pointer.x - edge.a.x) * along.x + (pointer.y - edge.a.y) * along.y) / square;
    if (t > 0.0 && t < 1.0) return {};
    return AcGePoint3d(edge.a.x + along.x * t, edge.a.y + along.y * t, edge.a.z);
}

/// What is asked: everything that snap points depend on but the entities.
struct Aim {
    AcGePoint3d pointer;
    AcGePoint3d from;
    double aperture = 0.0;
    double reach = 0.0;          ///< points farther away do not count
    std::optional<Box2d> shown;  ///< extensions of what lies outside do not count
};

/// Best first. Distances that differ by less than anybody sees count as one, so that a computed
/// crossing never wins over the exact end that it falls on.
void sortHits(std::vector<Candidate>& points) {
    std::stable_sort(points.begin(), points.end(), [](const Candidate& a, const Candidate& b) {
        return a.step != b.step ? a.step < b.step : a.rank < b.rank;
    });
}

/// Collects the points of the entities under the aperture, each recorded once.
class SnapSearch {
public:
    SnapSearch(DisplayList& display, const Aim& aim, int modes,
               const AcDbViewport* through = nullptr)
        : m_display(display), m_aim(aim), m_modes(modes), m_through(through) {
        const Box2d area =
            Box2d{aim.pointer.x, aim.pointer.y, aim.pointer.x, aim.pointer.y}.grown(aim.aperture);
        for (const DisplayList::Item& item : topmost(area)) add(item.id);
        if (modes & kCrossings) addCrossings();
        // A running extension would need ends that were pointed at before.
        if ((modes & kExtensionSnap) && aim.reach > aim.aperture) addExtensions();
    }
    std::vector<Candidate>& points() { return m_points; }
    std::vector<Candidate>& nearest() { return m_nearest; }
    /// Centres of the very arcs under the aperture, which nobody points at themselves.
    std::vector<Candidate> ofAimedArcs() const {
        std::vector<Candidate> of;
        const double near = m_aim.aperture * 1e-6;
        for (const Candidate& candidate : m_centres)
            if (std::any_of(m_edges.begin(), m_edges.end(), [&](const NearEdge& aimed) {
                    return aimed.edge.isArc() &&
                           planeDistanceTo(aimed.edge.center, candidate.hit.point) <= near;
                }))
                of.push_back(candidate);
        sortHits(of);
        return of;
    }
    /// Points of the very edges under the aperture: of a piece of many lines the middle is meant of
    /// the one that was aimed at.
    std::vector<Candidate> ofAimedEdges() const {
        std::vector<Candidate> of;
        for (const Candidate& candidate : m_points)
            if (onAimedEdge(candidate.hit.point)) of.push_back(candidate);
        return of;
    }

private:
    std::vector<DisplayList::Item> topmost(const Box2d& area) {
        std::vector<DisplayList::Item> items = m_display.find(area);
        if (m_through != nullptr)
            std::erase_if(items, [this](const DisplayList::Item& item) {
                return m_through->isLayerFrozenInViewport(item.layer);
            });
        if (items.size() > kMostEntities) items.erase(items.begin(), items.end() - kMostEntities);
        return items;
    }
    void add(AcDbObjectId id) {
        const Picture& picture = m_display.picture(id);
        if (!(distanceTo(picture, m_aim.pointer) <= m_aim.aperture)) return;
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.openStatus() != Acad::eOk) return;
        const PictureAtHand atHand(*entity.object(), picture);
        for (const ModeOfBit& mode : kModes) {
            if ((m_modes & mode.bit) == 0) continue;
            AcGePoint3dArray points;
            AcDbIntArray parts;
            // A class that knows no point of the mode adds none.
            (void)entity->getOsnapPoints(mode.mode, 0, m_aim.pointer, m_aim.from,
                                         AcGeMatrix3d::kIdentity, points, parts);
            for (const AcGePoint3d& p : points) {
                if (mode.mode == AcDb::kOsModeCen)
                    m_centres.push_back(
                        {{p, mode.bit, id}, mode.rank, planeDistanceTo(p, m_aim.pointer), 0.0});
                push(mode.bit == kNearest ? m_nearest : m_points, {p, mode.bit, id}, mode.rank);
            }
        }
        appendEdgesNear(picture, m_aim.pointer, m_aim.aperture, m_entities.size(), m_edges);
        m_entities.push_back(id);
    }
    bool onAimedEdge(const AcGePoint3d& p) const {
        const double near = m_aim.aperture * 1e-6;
        return std::any_of(m_edges.begin(), m_edges.end(), [&](const NearEdge& aimed) {
            const Edge& edge = aimed.edge;
            if (edge.isArc() && planeDistanceTo(edge.center, p) <= near) return true;
            return planeDistanceTo(nearestOn(edge, p), p) <= near;
        });
    }
    void addCrossings() {
        for (const Crossing& crossing : crossingsOf(m_edges, m_aim.pointer, m_aim.aperture)) {
            const AcDbObjectId top = m_entities[std::max(crossing.first, crossing.second)];
            const int mode = m_modes & kIntersectionSnap ? kIntersectionSnap : kApparentSnap;
            push(m_points, {crossing.point, mode, top}, kIntersectionRank);
        }
    }
    /// Of every displayed edge: what runs out under the pointer may lie far away. O(entities),
    /// unless only what is shown counts.
    void addExtensions() {
        for (const DisplayList::Item& item :
             m_aim.shown ? topmost(*m_aim.shown) : m_display.find(m_display.extents()))
            for (const PrimitiveView primitive : m_display.picture(item.id))
                forEachEdge(primitive, [&](const Edge& edge) {
                    const std::optional<AcGePoint3d> p = onExtension(edge, m_aim.pointer);
                    if (p && planeDistanceTo(*p, m_aim.pointer) <= m_aim.aperture)
                        push(m_nearest, {*p, kExtensionSnap, item.id}, kExtensionRank);
                });
    }
    void push(std::vector<Candidate>& to, const SnapHit& hit, int rank) {
        const double distance = planeDistanceTo(hit.point, m_aim.pointer);
        if (!(distance <= m_aim.reach)) return;
        to.push_back({hit, rank, distance, std::floor(distance / m_aim.aperture * 1e6)});
    }

    DisplayList& m_display;
    const Aim& m_aim;
    int m_modes;
    const AcDbViewport* m_through;  ///< whose layers count; null: all do
    std::vector<Candidate> m_points;
    std::vector<Candidate> m_nearest;
    std::vector<Candidate> m_centres;
    std::vector<NearEdge> m_edges;
    std::vector<AcDbObjectId> m_entities;
};

/// Nobody leafs through more.
constexpr std::size_t kMostHits = 64;

/// Appends those within reach that stand where no other does.
void appendHits(const std::vector<Candidate>& points, double reach, double same,
                std::vector<SnapHit>& hits) {
    for (const Candidate& candidate : points) {
        if (candidate.distance > reach || hits.size() >= kMostHits) break;
        const bool known = std::any_of(hits.begin(), hits.end(), [&](const SnapHit& hit) {
            return planeDistanceTo(hit.point, candidate.hit.point) <= same;
        });
        if (!known) hits.push_back(candidate.hit);
    }
}

/// Points of one space, in the order in which they are offered.
std::vector<SnapHit> hitsOf(SnapSearch& search, const Aim& aim) {
    std::vector<SnapHit> hits;
    sortHits(search.points());
    sortHits(search.nearest());
    const double same = aim.aperture * 1e-6;
    appendHits(search.points(), aim.aperture, same, hits);
    if (hits.empty()) appendHits(search.ofAimedEdges(), aim.reach, same, hits);
    if (hits.empty()) appendHits(search.points(), aim.reach, same, hits);
    constexpr double kAnywhere = std::numeric_limits<double>::infinity();
    if (hits.empty()) appendHits(search.ofAimedArcs(), kAnywhere, same, hits);
    appendHits(search.nearest(), aim.aperture, same, hits);
    return hits;
}

/// Of the model that is seen through the viewport under the pointer.
void appendHitsThrough(const Editor& editor, const Aim& onSheet, int modes,
                       std::vector<SnapHit>& hits) {
    const AcDbViewport* const viewport = viewportOf(editor.spaces().viewportAt(onSheet.pointer));
    if (viewport == nullptr) return;
    const AcGeMatrix3d toSheet = viewport->modelToSheet();
    const AcGeMatrix3d toModel = toSheet.inverse();
    Aim aim = onSheet;
    aim.pointer = toModel * onSheet.pointer;
    aim.from = toModel * onSheet.from;
    aim.aperture /= viewport->customScale();
    aim.reach /= viewport->customScale();
    // Extensions would need what lies outside the frame.
    SnapSearch search(editor.displayThrough(*viewport), aim, modes & ~kExtensionSnap, viewport);
    for (SnapHit hit : hitsOf(search, aim)) {
        hit.point = toSheet * hit.point;
        hit.point.z = 0.0;
        hits.push_back(hit);
    }
}

Box2d shownBox(const Editor& editor) {
    const AcGePoint3d& centre = editor.screen().view().centre;
    const double x = editor.screen().pixelSize() * editor.screen().width() / 2;
    const double y = editor.screen().view().height / 2;
    return {centre.x - x, centre.y - y, centre.x + x, centre.y + y};
}

}  // namespace

std::vector<SnapHit> snapHits(const Editor& editor, const AcGePoint3d& world, int modes,
                              SnapReach reach, const std::optional<AcGePoint3d>& base) {
    std::vector<SnapHit> hits;
    if (modes == 0) return hits;
    Aim aim;
    aim.pointer = world;
    aim.from = base.value_or(editor.lastPoint());
    aim.aperture =
        editor.database().core().variables().number(L"APERTURE") * editor.screen().pixelSize();
    aim.reach =
        reach == SnapReach::Aperture ? aim.aperture : std::numeric_limits<double>::infinity();
    if (reach == SnapReach::Shown) aim.shown = shownBox(editor);
    SnapSearch search(editor.display(), aim, modes);
    hits = hitsOf(search, aim);
    if (editor.spaces().drawsOnPaper()) appendHitsThrough(editor, aim, modes, hits);
    return hits;
}

std::optional<SnapHit> snapHit(const Editor& editor, const AcGePoint3d& world, int modes,
                               SnapReach reach, const std::optional<AcGePoint3d>& base) {
    const std::vector<SnapHit> hits = snapHits(editor, world, modes, reach, base);
    return hits.empty() ? std::optional<SnapHit>() : hits.front();
}

std::optional<AcGePoint3d> snapPoint(const Editor& editor, const AcGePoint3d& world, int modes,
                                     SnapReach reach, const std::optional<AcGePoint3d>& base) {
    const std::optional<SnapHit> hit = snapHit(editor, world, modes, reach, base);
    return hit ? std::optional(hit->point) : std::nullopt;
}

}  // namespace prancheta
