// SPDX-License-Identifier: MIT
// The sheet: moduli, and where warping is defined.
#include "zp/objects/secao/sheet.h"

#include <algorithm>
#include <cmath>

namespace zp::secao {
namespace {

/// Where two places are one, over the larger side of the section.
constexpr double kSame = 1e-6;

struct Twist {
    std::optional<double> x;  ///< shear centre
    std::optional<double> y;
    std::optional<double> cw;
};

bool same(Point a, Point b, double tol) {
    return std::abs(a.x - b.x) <= tol && std::abs(a.y - b.y) <= tol;
}

Point at(const Vertex& v) { return {v.x, v.y}; }

bool isHalfTurn(const Loop& a, const Loop& b, Point g, double tol) {
    return std::ranges::equal(a.vertices, b.vertices, [&](const Vertex& p, const Vertex& q) {
        return same({2.0 * g.x - p.x, 2.0 * g.y - p.y}, at(q), tol);
    });
}

/// Mirrored in the upright line through x; mirroring reversed the order of the corners.
bool isMirror(const Loop& a, const Loop& b, double x, double tol) {
    return std::equal(a.vertices.begin(), a.vertices.end(), b.vertices.rbegin(), b.vertices.rend(),
                      [&](const Vertex& p, const Vertex& q) {
                          return same({2.0 * x - p.x, p.y}, at(q), tol);
                      });
}

/// Two U whose webs touch: the walls of the second are those of the first, half a turn on. The two
/// webs are one wall in the axis, as handbooks take them.
std::optional<double> backToBack(std::vector<Wall> walls, Point g, double tol) {
    if (walls.size() % 2 == 0) return {};
    const Wall& web = walls[walls.size() / 2];
    const Point middle = web.line.point(0.5);
    if (web.line.arc() || std::hypot(middle.x - g.x, middle.y - g.y) > 0.5 * web.tBegin + tol)
        return {};
    for (Wall& wall : walls)
        for (Point* const p : {&wall.line.a, &wall.line.b, &wall.line.centre})
            *p = {p->x + g.x - middle.x, p->y + g.y - middle.y};
    return 2.0 * sectorialMoment(walls, g);
}

Twist twistOfMirrored(std::vector<Wall> walls, double x, double tol) {
    if (walls.empty()) return {x, {}, {}};
    const auto off = [&](Point p) { return std::abs(p.x - x); };
    if (off(walls.back().line.b) <= tol) walls = reversed(walls);
    const Point corner = warping(walls).shearCentre;
    if (off(walls.front().line.a) <= tol) {
        std::vector<Wall> both = walls;
        for (Wall wall : mirrored(walls, x)) {
            if (wall.from >= 0) wall.from += static_cast<int>(walls.size());
            both.push_back(wall);
        }
        const Warping one = warping(both);
        return {x, one.shearCentre.y, one.cw};
    }
    // A stem is no nearer to the axis than its corner, but for the bend.
    const bool back = off(corner) <= std::min(off(walls.front().line.a), off(walls.back().line.b)) +
                                         walls.front().tBegin;
    return {x, back ? std::optional(corner.y) : std::nullopt, {}};
}

/// `walls` of the first loop.
Twist twistOf(const SheetSource& s, const std::vector<Wall>& walls) {
    const Point g{s.properties.xg, s.properties.yg};
    const std::vector<Loop>& loops = s.loops;
    if (loops.empty() || loops.size() > 2) return {};
    if (loops.front().circleRadius > 0.0) return {g.x, g.y, 0.0};
    if (loops.size() == 1) {
        if (walls.empty()) return {};
        const Warping w = warping(walls);
        return {w.shearCentre.x, w.shearCentre.y, w.cw};
    }
    if (loops.back().hole) return {g.x, g.y, {}};
    const double tol = kSame * s.bounds.side();
    if (isHalfTurn(loops.front(), loops.back(), g, tol))
        return {g.x, g.y, backToBack(walls, g, tol)};
    if (isMirror(loops.front(), loops.back(), g.x, tol)) return twistOfMirrored(walls, g.x, tol);
    return {};
}

/// Parts are alike: the walls of the first are those of the others.
std::vector<Element> elementsOf(const SheetSource& s, const std::vector<Wall>& walls) {
    std::vector<Element> elements;
    const Loop& outer = s.loops.front();
    if (s.loops.back().hole) {
        if (outer.circleRadius > 0.0) return {{2.0 * outer.circleRadius, s.espessura}};
        for (std::size_t i = 0; i < outer.vertices.size(); ++i)
            elements.push_back({straight(outer, i), s.espessura});
        return elements;
    }
    for (std::size_t part = 0; part < s.loops.size(); ++part)
        for (const Wall& wall : walls)
            if (wall.element.b > 0.0) elements.push_back(wall.element);
    return elements;
}

/// Without what rounding leaves of a value that is 0.
double clean(double v, double scale) { return std::abs(v) <= 1e-12 * scale ? 0.0 : v; }

void twist(Sheet& sheet, const SheetSource& s, const std::vector<Wall>& walls) {
    const Twist t = twistOf(s, walls);
    const double side = s.bounds.side();
    if (t.x) sheet.x0 = clean(*t.x - s.properties.xg, side);
    if (t.y) sheet.y0 = clean(*t.y - s.properties.yg, side);
    if (t.cw) sheet.cw = clean(*t.cw, s.properties.area * std::pow(side, 4));
    if (sheet.x0 && sheet.y0)
        sheet.r0 = std::sqrt((s.properties.ix + s.properties.iy) / s.properties.area +
                             *sheet.x0 * *sheet.x0 + *sheet.y0 * *sheet.y0);
    if (s.torsion > 0.0) sheet.it = s.torsion;
}

}  // namespace

Sheet sheetOf(const SheetSource& s) {
    Sheet sheet;
    sheet.p = s.properties;
    sheet.p.xg = clean(sheet.p.xg, s.bounds.side());
    sheet.p.yg = clean(sheet.p.yg, s.bounds.side());
    if (!(s.properties.area > 0.0)) return sheet;
    sheet.m2Metro = s.perimetroPintura / 1000.0;
    sheet.xg = s.properties.xg - s.bounds.x0;
    sheet.yg = s.properties.yg - s.bounds.y0;
    const PlasticModuli z = plasticModuli(s.outlines, s.properties);
    sheet.zx = z.zx;
    sheet.zy = z.zy;
    if (s.invalid) return sheet;
    std::vector<Wall> walls = wallsOf(s.loops.front());
    twist(sheet, s, walls);
    sheet.elements = elementsOf(s, walls);
    if (isBent(s.loops.front())) sheet.strip = std::move(walls);
    return sheet;
}

}  // namespace zp::secao
