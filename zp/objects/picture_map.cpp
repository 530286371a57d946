// SPDX-License-Identifier: MIT
// Points of an old picture in a new one, coordinate by coordinate.
#include "zp/objects/picture_map.h"

#include <algorithm>
#include <cmath>

namespace zp {
namespace {

/// How near a coordinate is to an edge to be on it, mm.
constexpr double kOnEdge = 1e-6;

}  // namespace

double PictureMap::Axis::carry(double c) const {
    if (c <= min0 + kOnEdge) return min1 + (c - min0);
    if (c >= max0 - kOnEdge) return max1 + (c - max0);
    std::pair<double, double> near{min0, min1};
    double distance = c - min0;
    for (const auto& entry : entries) {
        const double d = std::abs(c - entry.first);
        if (d <= kOnEdge) return entry.second;
        if (d >= distance) continue;
        distance = d;
        near = entry;
    }
    if (max0 - c < distance) near = {max0, max1};
    return near.second + (c - near.first);
}

PictureMap::PictureMap(const Peca& before, const Peca& after)
    : m_comprimento0(before.comprimento),
      m_comprimento1(after.comprimento),
      m_longitudinal1(!after.inSecao() && !after.chapa()),
      m_onlyInAltura(m_longitudinal1 && !before.inSecao() && !before.chapa()) {
    const secao::Bounds a = before.picture();
    const secao::Bounds d = after.picture();
    m_x = {a.x0, a.x1, d.x0, d.x1, {}};
    m_y = {a.y0, a.y1, d.y0, d.y1, {}};
    if (!before.chapa() && before.inSecao() && after.inSecao())
        pairSecao(before.secao(), after.secao());
    if (m_onlyInAltura)
        pairVista(before.secao().vista(before.vista), after.secao().vista(after.vista));
    m_x.entries.emplace_back(0.0, 0.0);
    m_y.entries.emplace_back(0.0, 0.0);
    m_x.entries.emplace_back(0.5 * (a.x0 + a.x1), 0.5 * (d.x0 + d.x1));
    m_y.entries.emplace_back(0.5 * (a.y0 + a.y1), 0.5 * (d.y0 + d.y1));
}

/// Equal numbers of corners in the same order are the same corners.
void PictureMap::pairSecao(const secao::Secao& before, const secao::Secao& after) {
    const auto put = [this](const secao::Point& a, const secao::Point& d) {
        m_x.entries.emplace_back(a.x, d.x);
        m_y.entries.emplace_back(a.y, d.y);
    };
    const auto& from = before.outlines();
    const auto& target = after.outlines();
    for (std::size_t i = 0; i < std::min(from.size(), target.size()); ++i) {
        if (from[i].segments.size() != target[i].segments.size()) continue;
        for (std::size_t k = 0; k < from[i].segments.size(); ++k)
            put(from[i].segments[k].a, target[i].segments[k].a);
        for (std::size_t k = 0; k < std::min(from[i].toes.size(), target[i].toes.size()); ++k)
            put(from[i].toes[k].corner, target[i].toes[k].corner);
    }
}

void PictureMap::pairVista(const secao::Vista& before, const secao::Vista& after) {
    if (before.levels.size() != after.levels.size()) return;
    for (std::size_t i = 0; i < before.levels.size(); ++i)
        m_y.entries.emplace_back(before.levels[i].w, after.levels[i].w);
}

AcGeVector3d PictureMap::carry(const AcGeVector3d& point) const {
    return {m_onlyInAltura ? point.x : m_x.carry(point.x), m_y.carry(point.y), point.z};
}

LearntPoint PictureMap::carry(const LearntPoint& point) const {
    if (m_onlyInAltura) return {carry(point.offset), point.atEnd};
    AcGeVector3d whole = point.offset;
    if (point.atEnd) whole.x += m_comprimento0;
    LearntPoint fresh{carry(whole), false};
    fresh.atEnd =
        m_longitudinal1 && std::abs(fresh.offset.x - m_comprimento1) <= 1e-6 * m_comprimento1;
    if (fresh.atEnd) fresh.offset.x -= m_comprimento1;
    return fresh;
}

}  // namespace zp
