// SPDX-License-Identifier: MIT
// Dimensions that go along with a plate.
#include "zp/objects/moved_chapas.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "zp/objects/edit.h"

namespace zp {
namespace {

/// mm; a dimension's point on an edge lies nearer.
constexpr double kSameEdge = 0.01;

bool sameEdge(double a, double b) { return std::abs(a - b) <= kSameEdge; }

bool hasEdge(const std::vector<double>& edges, double x) {
    return std::ranges::any_of(edges, [&](double e) { return sameEdge(e, x); });
}

/// Where the plates of a bar and the bar itself have edges, along it.
std::vector<double> edgesOf(const ZpObject& barra) {
    const Peca& p = Access::of(barra);
    std::vector<double> edges{0.0, p.comprimento};
    for (const AcDbObjectId& id : edit::chapasOf(barra)) {
        const AcDbObjectPointer<ZpObject> chapa(id, AcDb::kForRead);
        if (chapa.object() == nullptr) continue;
        const secao::Bounds box = edit::boxIn(p.frame(), *chapa.object());
        edges.insert(edges.end(), {box.x0, box.x1});
    }
    return edges;
}

}  // namespace

void MovedChapas::note(const ZpObject& barra, const ZpObject& chapa) {
    Peca& p = Access::of(const_cast<ZpObject&>(barra));
    const Link* link = p.link(chapa.objectId());
    if (link == nullptr || link->count == 0 || !Access::of(chapa).chapa() || p.inSecao()) return;
    const LearntPoint was = std::as_const(link->points)[0];
    const Frame frame = p.frame();
    const double by = frame.toLocal(Access::of(chapa).start).x -
                      (was.offset.x + (was.atEnd ? p.comprimento : 0.0));
    if (std::abs(by) <= kSameEdge) return;
    auto moved = std::ranges::find(m_moved, barra.objectId(), &Moved::barra);
    if (moved == m_moved.end()) moved = m_moved.insert(moved, {barra.objectId(), {}});
    const secao::Bounds box = edit::boxIn(frame, chapa);
    for (const double x : {box.x0, box.x1}) moved->edges.push_back({x - by, x});
}

std::vector<AcDbObjectId> MovedChapas::takeCotasAlong() const {
    std::vector<AcDbObjectId> changed;
    for (const Moved& moved : m_moved) {
        const AcDbObjectPointer<ZpObject> barra(moved.barra, AcDb::kForWrite);
        if (barra.object() == nullptr) continue;
        const std::vector<double> left = edgesOf(*barra.object());
        Peca& p = Access::of(*barra.object());
        bool any = false;
        const auto take = [&](Link& link, std::size_t i) {
            LearntPoint point = link.points[i];
            const double x = point.offset.x + (point.atEnd ? p.comprimento : 0.0);
            const auto edge = std::ranges::find_if(
                moved.edges, [&](const Edge& e) { return sameEdge(e.from, x); });
            if (edge == moved.edges.end() || hasEdge(left, x)) return;
            if (!any) barra->assertWriteEnabled();
            any = true;
            point.offset.x += edge->to - edge->from;
            link.points[i] = point;
        };
        if (p.links)
            for (Link& link : *p.links)
                if (link.role == Link::Role::Cota && link.count >= 2)
                    for (const std::size_t i : {0U, 1U}) take(link, i);
        if (any) changed.push_back(moved.barra);
    }
    return changed;
}

}  // namespace zp
