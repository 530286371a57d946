// SPDX-License-Identifier: MIT
// The edge is a straight line of the drawing, the cut its plane across the view.
#include "perfis/commands/cut_command.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "acedads.h"
#include "acutads.h"
#include "dbents.h"
#include "dbpl.h"
#include "geassign.h"
#include "perfis/commands/perfil_run.h"
#include "perfis/output/user_point.h"
#include "protocol/answers.h"
#include "texts/number.h"
#include "zp/matlist/asking.h"
#include "zp/objects/cortes.h"
#include "zp/objects/ends.h"
#include "zp/objects/picture.h"

namespace perfis {
namespace {

using zp::Access;
using zp::Peca;

/// mm.
constexpr double kWidestGap = 1e6;
constexpr double kSamePlace = 1e-6;

struct Edge {
    AcGePoint3d from;
    AcGePoint3d to;
};

/// Where an edge, lengthened as far as need be, meets an axis.
struct Crossing {
    Edge edge;
    double along = 0.0;   ///< on the axis from its start, mm
    double beside = 0.0;  ///< beyond the ends of the edge, mm
};

struct Picked {
    AcDbObjectId id;
    AcGePoint3d point;
};

/// Nothing when the user gave up or hit nothing.
std::optional<Picked> pick(const wchar_t* question) {
    ads_name name;
    ads_point point;
    Picked picked;
    if (acedEntSel(question, name, point) != RTNORM ||
        acdbGetObjectId(picked.id, name) != Acad::eOk)
        return {};
    picked.point = userToWorld(asPnt3d(point));
    return picked;
}

/// The one object that was selected before the command.
AcDbObjectId pickedBefore() {
    ads_name set;
    if (acedSSGet(L"_I", nullptr, nullptr, nullptr, set) != RTNORM) return {};
    Adesk::Int32 count = 0;
    ads_name name;
    AcDbObjectId id;
    if (acedSSLength(set, &count) == RTNORM && count == 1 && acedSSName(set, 0, name) == RTNORM)
        (void)acdbGetObjectId(id, name);  // stays null
    (void)acedSSFree(set);
    return id;
}

/// Why an object cannot be cut; empty for a piece that can.
std::wstring whyNotCut(AcDbObjectId id) {
    const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
    if (peca.object() == nullptr) return L"Selecione uma peça em vista longitudinal.";
    if (zp::edit::onLockedLayer(*peca.object())) return zp::edit::kLocked;
    const ACHAR* const reason = zp::ends::whyNone(Access::of(*peca.object()));
    return reason != nullptr ? reason : L"";
}

double distanceTo(const Edge& edge, const AcGePoint3d& point) {
    const AcGeVector3d d = edge.to - edge.from;
    const double length2 = d.dotProduct(d);
    const double t =
        length2 > 0.0 ? std::clamp((point - edge.from).dotProduct(d) / length2, 0.0, 1.0) : 0.0;
    return point.distanceTo(edge.from + d * t);
}

/// Straight segments of a polyline, the one nearest to the pick; none where that is an arc.
std::vector<Edge> segmentAt(const AcDbPolyline& polyline, const AcGePoint3d& point) {
    std::vector<Edge> nearest;
    double distance = 1e300;
    const unsigned n = polyline.numVerts();
    for (unsigned i = 0; i + (polyline.isClosed() ? 0 : 1) < n; ++i) {
        Edge edge;
        double bulge = 0.0;
        if (polyline.getPointAt(i, edge.from) != Acad::eOk ||
            polyline.getPointAt((i + 1) % n, edge.to) != Acad::eOk ||
            polyline.getBulgeAt(i, bulge) != Acad::eOk)
            continue;
        const double d = distanceTo(edge, point);
        if (d >= distance) continue;
        distance = d;
        nearest.clear();
        if (bulge == 0.0) nearest.push_back(edge);
    }
    return nearest;
}

/// Straight lines of a piece's picture; the axis is none.
std::vector<Edge> outlineOf(const Peca& p) {
    std::vector<Edge> edges;
    for (const zp::Stroke& stroke : zp::pictureOf(p)) {
        if (stroke.linetype == zp::Linetype::Axis || stroke.circle()) continue;
        const std::size_t n = stroke.points.size();
        for (std::size_t i = 0; i + (stroke.closed() ? 0 : 1) < n; ++i)
            if (!stroke.closed() || stroke.bulges[i] == 0.0)
                edges.push_back({stroke.points[i], stroke.points[(i + 1) % n]});
    }
    return edges;
}

/// Empty where the edge runs along the axis.
std::optional<Crossing> crossingOf(const zp::Frame& frame, const Edge& edge) {
    const AcGeVector3d a = frame.toLocal(edge.from);
    const AcGeVector3d b = frame.toLocal(edge.to);
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    if (!(std::abs(b.y - a.y) > 1e-9 * length)) return {};
    const double t = -a.y / (b.y - a.y);
    return Crossing{edge, a.x + t * (b.x - a.x), length * std::max({0.0, -t, t - 1.0})};
}

/// What the axis meets of the picked edge. Of another piece only edges that it crosses.
std::vector<Crossing> crossingsWith(const zp::Frame& frame, const Picked& picked) {
    const AcDbObjectPointer<AcDbEntity> entity(picked.id, AcDb::kForRead);
    std::vector<Edge> edges;
    const auto* const other = ZpObject::cast(entity.object());
    if (other != nullptr)
        edges = outlineOf(Access::of(*other));
    else if (const auto* const line = AcDbLine::cast(entity.object()))
        edges = {{line->startPoint(), line->endPoint()}};
    else if (const auto* const polyline = AcDbPolyline::cast(entity.object()))
        edges = segmentAt(*polyline, picked.point);
    std::vector<Crossing> crossings;
    for (const Edge& edge : edges)
        if (const auto crossing = crossingOf(frame, edge);
            crossing && (other == nullptr || crossing->beside <= kSamePlace))
            crossings.push_back(*crossing);
    return crossings;
}

bool canCut(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    return entity.object() != nullptr &&
           (entity->isKindOf(ZpObject::desc()) || entity->isKindOf(AcDbLine::desc()) ||
            entity->isKindOf(AcDbPolyline::desc()));
}

/// The end of the axis that is meant, by the pick, else by the place of the edges.
std::size_t endMeant(const Peca& p, const std::optional<AcGePoint3d>& near,
                     const std::vector<Crossing>& crossings) {
    double along = near ? p.frame().toLocal(*near).x : 0.0;
    if (!near) {
        for (const Crossing& c : crossings) along += c.along;
        along /= static_cast<double>(crossings.size());
    }
    return 2.0 * along > p.comprimento ? zp::cortes::kEnd : zp::cortes::kStart;
}

/// The first edge on the way from the other end; empty when there is none.
std::optional<Crossing> firstOn(const Peca& p, std::size_t end,
                                const std::vector<Crossing>& crossings) {
    const bool atEnd = end == zp::cortes::kEnd;
    const auto way = [&](const Crossing& c) { return atEnd ? c.along : p.comprimento - c.along; };
    std::optional<Crossing> first;
    for (const Crossing& c : crossings)
        if (way(c) > kSamePlace && (!first || way(c) < way(*first))) first = c;
    return first;
}

struct Cut {
    zp::ends::Ends ends;
    double angle = 0.0;  ///< radians, as users see it
};

/// The end on the edge, `gap` away from it.
Cut cutAt(const Peca& p, std::size_t end, const Crossing& crossing, double gap) {
    const zp::Frame frame = p.frame();
    const AcGeVector3d a = frame.toLocal(crossing.edge.from);
    const AcGeVector3d b = frame.toLocal(crossing.edge.to);
    const double slope = (b.x - a.x) / (b.y - a.y);
    const double outwards = end == zp::cortes::kEnd ? 1.0 : -1.0;
    const double at = crossing.along - outwards * gap * std::hypot(1.0, slope);
    const double angle = std::atan(outwards * slope);
    Cut cut{end == zp::cortes::kEnd ? zp::ends::between(p, 0.0, at)
                                    : zp::ends::between(p, at, p.comprimento),
            p.mirrored ? -angle : angle};
    cut.ends.cortes[end] = zp::cortes::withAngle(p, end, cut.angle);
    return cut;
}

struct Asked {
    AcDbObjectId peca;
    std::optional<AcGePoint3d> near;
};

std::optional<Asked> askPeca() {
    if (const AcDbObjectId before = pickedBefore(); !before.isNull() && whyNotCut(before).empty())
        return Asked{before, {}};
    for (;;) {
        const std::optional<Picked> picked = pick(L"\nSelecione a peça: ");
        if (!picked) return {};
        const std::wstring reason = whyNotCut(picked->id);
        if (reason.empty()) return Asked{picked->id, picked->point};
        protocol::refuse(reason);
    }
}

struct Met {
    std::size_t end = 0;
    Crossing crossing;
};

/// The edge, or why it cannot be the one.
std::wstring meet(const Asked& asked, const Picked& picked, Met& met) {
    const AcDbObjectPointer<ZpObject> peca(asked.peca, AcDb::kForRead);
    if (peca.object() == nullptr) return L"A peça não pode ser aberta.";
    if (picked.id == asked.peca) return L"Uma peça não corta a si mesma; selecione outra aresta.";
    if (zp::edit::isChapaOf(picked.id, asked.peca))
        return L"As chapas de travejamento vão com a peça e não a cortam; selecione outra aresta.";
    if (!canCut(picked.id))
        return L"Selecione uma linha, um segmento reto de polilinha ou uma peça.";
    const Peca& p = Access::of(*peca.object());
    const std::vector<Crossing> crossings = crossingsWith(p.frame(), picked);
    constexpr const wchar_t* kNone =
        L"O eixo da peça não encontra esta aresta; selecione outra, que o cruze.";
    if (crossings.empty()) return kNone;
    met.end = endMeant(p, asked.near, crossings);
    const std::optional<Crossing> first = firstOn(p, met.end, crossings);
    if (!first) return kNone;
    met.crossing = *first;
    if (std::abs(cutAt(p, met.end, *first, 0.0).angle) > zp::cortes::kSteepest)
        return L"A aresta está quase ao longo da peça; o corte vai até 85 graus do esquadro.";
    return {};
}

std::optional<Met> askEdge(const Asked& asked) {
    for (;;) {
        const std::optional<Picked> picked = pick(L"\nSelecione a aresta ou a peça de corte: ");
        if (!picked) return {};
        Met met;
        const std::wstring reason = meet(asked, *picked, met);
        if (reason.empty()) return met;
        protocol::refuse(reason);
    }
}

void cut(const Asked& asked, const Met& met, double gap) {
    const AcDbObjectPointer<ZpObject> peca(asked.peca, AcDb::kForWrite);
    if (peca.object() == nullptr) return protocol::fail(L"A peça não pode ser alterada agora.");
    const Cut made = cutAt(Access::of(*peca.object()), met.end, met.crossing, gap);
    const std::wstring reason = zp::ends::refusal(*peca.object(), made.ends);
    if (!reason.empty()) return protocol::fail(reason);
    zp::ends::move(*peca.object(), made.ends);
    (void)acutPrintf(
        L"\nCorte a %ls graus do esquadro; comprimento %ls mm.\n",
        texts::withComma(zp::cortes::degreesOf(Access::of(*peca.object()), met.end), 2).c_str(),
        texts::withComma(peca->getComprimentoReal(), 1).c_str());
}

}  // namespace

void cutPeca() {
    try {
        const std::optional<Asked> asked = askPeca();
        if (!asked) {
            (void)acutPrintf(L"\nNenhuma peça foi selecionada.\n");
            return;
        }
        const std::optional<Met> met = askEdge(*asked);
        if (!met) {
            (void)acutPrintf(L"\nNenhuma aresta foi selecionada; a peça fica como está.\n");
            return;
        }
        const std::optional<double> gap =
            zp::matlist::askNumber(L"Folga", 0.0, 0.0, kWidestGap, L"mm");
        if (gap) cut(*asked, *met, *gap);
    } catch (const std::exception&) {
        reportNoMemory();
    }
}

}  // namespace perfis
