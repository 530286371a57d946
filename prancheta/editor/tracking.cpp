// SPDX-License-Identifier: MIT
// Lines that hold the pointer.
#include "prancheta/editor/tracking.h"

#include <algorithm>
#include <cmath>

#include "prancheta/database/database_core.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/snap_modes.h"
#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/edges.h"

namespace prancheta {
namespace {

constexpr int kNearest = 512;

/// Directions nearer to each other than this are one, radians.
constexpr double kSameDirection = 1e-9;

double aperture(const Editor& editor) {
    return editor.database().core().variables().number(L"APERTURE") * editor.screen().pixelSize();
}

double cross(const AcGeVector3d& a, const AcGeVector3d& b) { return a.x * b.y - a.y * b.x; }

AcGeVector3d flat(const AcGeVector3d& v) { return {v.x, v.y, 0.0}; }

double distanceTo(const TrackLine& line, const AcGePoint3d& p) {
    return std::abs(cross(line.direction, p - line.from));
}

AcGePoint3d nearestOn(const TrackLine& line, const AcGePoint3d& p) {
    return line.from + line.direction * flat(p - line.from).dotProduct(line.direction);
}

/// The direction among `first` and its turns by `step` that is nearest to `v`, all of the user
/// system; of the whole in the world.
AcGeVector3d nearestTurn(const Editor& editor, const AcGeVector3d& v, double first, double step) {
    const AcGeVector3d user = editor.ucs().inverse() * v;
    const double angle = std::atan2(user.y, user.x);
    const SineCosine sc = sineCosine(first + std::round((angle - first) / step) * step);
    return editor.ucs() * AcGeVector3d(sc.cosine, sc.sine, 0.0);
}

/// Calls `sink` for the straight edges of what lies within `reach` of a point.
template <class Sink>
void forEachStraightNear(const Editor& editor, const AcGePoint3d& p, double reach, Sink sink) {
    for (const DisplayList::Item& item :
         editor.display().find(Box2d{p.x, p.y, p.x, p.y}.grown(reach)))
        for (const PrimitiveView primitive : editor.display().picture(item.id))
            forEachEdge(primitive, [&](const Edge& edge) {
                if (!edge.isArc() && flat(edge.b - edge.a).length() > 0.0) sink(edge);
            });
}

template <class T>
void keep(std::vector<T>& all, T one) {
    all.push_back(std::move(one));
    if (all.size() > Tracking::kMost) all.erase(all.begin());
}

}  // namespace

void Tracking::clear() {
    m_points.clear();
    m_parallels.clear();
}

bool Tracking::rest(const Editor& editor, const AcGePoint3d& pointer, int modes) {
    const double near = aperture(editor);
    const int points = modes & ~(kNearest | kExtensionSnap | kParallelSnap);
    if (const auto hit = snapHit(editor, pointer, points, SnapReach::Aperture)) {
        const auto known = std::find_if(m_points.begin(), m_points.end(), [&](const Point& point) {
            return flat(point.at - hit->point).length() <= near * 1e-6;
        });
        if (known != m_points.end()) {
            m_points.erase(known);
            return true;
        }
        Point taken{hit->point, hit->mode, {}};
        forEachStraightNear(editor, taken.at, near * 1e-6, [&](const Edge& edge) {
            const AcGeVector3d along = flat(edge.b - edge.a).normal();
            if (flat(edge.a - taken.at).length() <= near * 1e-6) taken.edges.push_back(-along);
            if (flat(edge.b - taken.at).length() <= near * 1e-6) taken.edges.push_back(along);
        });
        keep(m_points, std::move(taken));
        return true;
    }
    if ((modes & kParallelSnap) == 0) return false;
    std::optional<AcGeVector3d> edgeThere;
    forEachStraightNear(editor, pointer, near, [&](const Edge& edge) {
        const TrackLine line{{}, edge.a, flat(edge.b - edge.a).normal(), 0};
        const double along = flat(pointer - edge.a).dotProduct(line.direction);
        const bool beside = along >= 0.0 && along <= flat(edge.b - edge.a).length();
        if (beside && distanceTo(line, pointer) <= near) edgeThere = line.direction;
    });
    if (edgeThere) keep(m_parallels, *edgeThere);
    return edgeThere.has_value();
}

std::vector<TrackLine> Tracking::linesNear(const Editor& editor, const AcGePoint3d& pointer,
                                           const std::optional<AcGePoint3d>& base,
                                           int modes) const {
    using Kind = TrackLine::Kind;
    const SystemVariables& variables = editor.database().core().variables();
    const int aids = variables.number(L"AUTOSNAP");
    const double turn = variables.real(L"SNAPANG");
    const double step = std::abs(variables.real(L"POLARANG"));
    const double near = aperture(editor);
    std::vector<TrackLine> lines;
    const auto add = [&](const TrackLine& line) {
        const bool away = flat(pointer - line.from).dotProduct(line.direction) > near;
        if (away && distanceTo(line, pointer) <= near) lines.push_back(line);
    };
    if (base && (aids & kPolarTracking) != 0 && step > 0.0)
        add({Kind::Polar, *base, nearestTurn(editor, pointer - *base, turn, step), 0});
    if (base && (modes & kParallelSnap) != 0)
        for (const AcGeVector3d& edge : m_parallels)
            add({Kind::Parallel, *base, flat(pointer - *base).dotProduct(edge) < 0.0 ? -edge : edge,
                 0});
    for (const Point& point : m_points) {
        if ((modes & kExtensionSnap) != 0)
            for (const AcGeVector3d& edge : point.edges)
                add({Kind::Extension, point.at, edge, point.mode});
        if ((aids & kObjectTracking) != 0)
            add({Kind::Object, point.at, nearestTurn(editor, pointer - point.at, turn, kPi / 2.0),
                 point.mode});
    }
    std::stable_sort(lines.begin(), lines.end(), [&](const TrackLine& a, const TrackLine& b) {
        return distanceTo(a, pointer) < distanceTo(b, pointer);
    });
    return lines;
}

std::optional<TrackHit> Tracking::hold(const Editor& editor, const AcGePoint3d& pointer,
                                       const std::optional<AcGePoint3d>& base, int modes) const {
    const std::vector<TrackLine> lines = linesNear(editor, pointer, base, modes);
    if (lines.empty()) return {};
    const TrackLine& first = lines.front();
    for (const TrackLine& second : lines) {
        const double sine = cross(first.direction, second.direction);
        if (std::abs(sine) <= kSameDirection) continue;
        const double along = cross(second.from - first.from, second.direction) / sine;
        const AcGePoint3d crossing = first.from + first.direction * along;
        if (flat(crossing - pointer).length() <= aperture(editor))
            return TrackHit{crossing, {first, second}};
    }
    return TrackHit{nearestOn(first, pointer), {first}};
}

}  // namespace prancheta
