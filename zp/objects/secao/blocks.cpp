// SPDX-License-Identifier: MIT
// Building blocks: vertices as tables, tilted flanges, fallback to the nominal box.
#include "zp/objects/secao/blocks.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zp::secao {
namespace {

constexpr double kPi = std::numbers::pi;
using enum Rounding;

/// Sizes come from users and files: whatever is no size counts as 0.
double medida(double v) { return std::isfinite(v) && v > 0.0 ? std::min(v, 1e9) : 0.0; }

/// Of a tapered flange so thick at its toe; `toe` is negative where nobody says.
double toeRadius(double toe, double root, double espessura) {
    return toe >= 0.0 ? medida(toe) : std::min(0.5 * root, 0.5 * espessura);
}

Loop rectangleBetween(double x0, double y0, double x1, double y1) {
    return {{{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}}, false, 0.0, {}};
}

/// The loop itself when it can be drawn and its thickness is below half the smaller size, else the
/// rectangle.
Block orBox(std::vector<Vertex> vertices, bool goodEspessura, const Loop& nominal) {
    Block block;
    block.loop.vertices = std::move(vertices);
    if (goodEspessura && fitRadii(block.loop)) return block;
    block.loop = nominal;
    block.invalid = true;
    return block;
}

bool thin(double t, std::initializer_list<double> sizes) {
    return t > 0.0 && 2.0 * t < std::min(sizes);
}

/// Angle of a flange away from the right angle, 0 when it is outside the drawable range.
double tiltOf(double angle) {
    if (!(angle >= kPi / 6.0 && angle <= 5.0 * kPi / 6.0)) return 0.0;
    const double delta = angle - 0.5 * kPi;
    return std::abs(delta) < 1e-9 ? 0.0 : delta;
}

/// Turns an upper right flange about its bend. The sheet's outer faces are x = xOuter and y =
/// topo; `toes` are the corners beyond the bend, `outside` and `inside` the two corners of the bend
/// itself. The developed length on the mid-line stays, so the straight part grows by what the bend
/// loses.
struct Bending {
    double xOuter;
    double top;
    double t;
    double ri;
    double delta;
};

void tilt(std::vector<Vertex>& v, const Bending& d, std::initializer_list<std::size_t> toes,
          std::size_t outside, std::size_t inside, bool isLower) {
    if (d.delta == 0.0) return;
    const double sign = isLower ? -1.0 : 1.0;
    const double r = d.ri + d.t;
    const double cx = d.xOuter + r;
    const double cy = d.top - r;
    const double c = std::cos(d.delta);
    const double s = std::sin(d.delta);
    const double growth = (d.ri + 0.5 * d.t) * d.delta;
    for (const std::size_t i : toes) {
        const double u = v[i].x - cx + growth;
        const double w = sign * v[i].y - cy;
        v[i].x = cx + u * c - w * s;
        v[i].y = sign * (cy + u * s + w * c);
    }
    const auto corner = [&](std::size_t i, double x, double radius) {
        const double advance = (x - cx + radius * s) / c;
        v[i].x = x;
        v[i].y = sign * (cy + radius * c + advance * s);
    };
    corner(outside, d.xOuter, r);
    corner(inside, d.xOuter + d.t, d.ri);
}

std::vector<Vertex> uVertices(const MedidasU& m, double aba) {
    const double H = 0.5 * m.h;
    const double R = m.ri + m.t;
    const double t = m.t;
    const double ri = m.ri;
    const double b1 = m.bUpper;
    const double b2 = m.bLower;
    if (aba > t)
        return {{b2, -H, R, Bend},          {b2, -H + aba},        {b2 - t, -H + aba},
                {b2 - t, -H + t, ri, Bend}, {t, -H + t, ri, Bend}, {t, H - t, ri, Bend},
                {b1 - t, H - t, ri, Bend},  {b1 - t, H - aba},     {b1, H - aba},
                {b1, H, R, Bend},           {0, H, R, Bend},       {0, -H, R, Bend}};
    if (-aba > t) {
        const double e = -aba;
        return {{b2 - t, -H, ri, Bend}, {b2 - t, -H + t - e},  {b2, -H + t - e},
                {b2, -H + t, R, Bend},  {t, -H + t, ri, Bend}, {t, H - t, ri, Bend},
                {b1, H - t, R, Bend},   {b1, H - t + e},       {b1 - t, H - t + e},
                {b1 - t, H, ri, Bend},  {0, H, R, Bend},       {0, -H, R, Bend}};
    }
    return {{b2, -H},    {b2, -H + t}, {t, -H + t, ri, Bend}, {t, H - t, ri, Bend},
            {b1, H - t}, {b1, H},      {0, H, R, Bend},       {0, -H, R, Bend}};
}

}  // namespace

Block uDobrado(const MedidasU& given) {
    MedidasU m = given;
    m.h = medida(m.h);
    m.bUpper = medida(m.bUpper);
    m.bLower = medida(m.bLower);
    m.t = medida(m.t);
    m.ri = medida(m.ri);
    const double aba = std::isfinite(m.aba) ? m.aba : 0.0;
    std::vector<Vertex> v = uVertices(m, aba);
    const double H = 0.5 * m.h;
    const Bounds nominal{0.0, -H, std::max(m.bUpper, m.bLower), H};
    const Bending upper{0.0, H, m.t, m.ri, tiltOf(m.angUpper)};
    const Bending lower{0.0, H, m.t, m.ri, tiltOf(m.angLower)};
    if (v.size() == 8) {
        tilt(v, upper, {4, 5}, 6, 3, false);
        tilt(v, lower, {0, 1}, 7, 2, true);
    } else {
        tilt(v, upper, {6, 7, 8, 9}, 10, 5, false);
        tilt(v, lower, {0, 1, 2, 3}, 11, 4, true);
    }
    return orBox(std::move(v), thin(m.t, {m.h, m.bUpper, m.bLower}),
                 rectangleBetween(nominal.x0, nominal.y0, nominal.x1, nominal.y1));
}

double outerOutline(const Block& block) {
    const std::vector<Vertex>& v = block.loop.vertices;
    const Bounds bounds = trace(block.loop).bounds;
    if (v.size() == 12) {
        const double R = v[10].radius;
        return bounds.altura() + 2.0 * bounds.largura() - 6.0 * R + 2.0 * kPi * R;
    }
    const double R = v.size() == 8 ? v[6].radius : 0.0;
    return bounds.altura() + 2.0 * bounds.largura() - 4.0 * R + kPi * R;
}

Block cantoneiraDobrada(double h, double b, double t, double ri, double angle) {
    h = medida(h);
    b = medida(b);
    t = medida(t);
    ri = medida(ri);
    std::vector<Vertex> v{{0, 0, ri + t, Bend}, {0, -h}, {t, -h},
                          {t, -t, ri, Bend},    {b, -t}, {b, 0}};
    tilt(v, {0.0, 0.0, t, ri, tiltOf(angle)}, {4, 5}, 0, 3, false);
    return orBox(std::move(v), thin(t, {h, b}), rectangleBetween(0.0, -h, b, 0.0));
}

Block cantoneiraLaminada(double h, double b, double t, double root, double toe) {
    h = medida(h);
    b = medida(b);
    t = medida(t);
    root = medida(root);
    const double q = std::min(medida(toe), t);
    return orBox({{0, 0}, {0, -h}, {t, -h, q, Toe}, {t, -t, root, Root}, {b, -t, q, Toe}, {b, 0}},
                 thin(t, {h, b}), rectangleBetween(0.0, -h, b, 0.0));
}

Block zDobrado(double h, double b, double aba, double t, double ri, double angUpper,
               double angLower) {
    h = medida(h);
    b = medida(b);
    t = medida(t);
    ri = medida(ri);
    aba = medida(aba);
    const double H = 0.5 * h;
    const double c = 0.5 * t;
    const double R = ri + t;
    const bool withAba = aba > t;
    // Lower half in clockwise order, ending at the web's outer face.
    const auto half = [&](double angle) {
        std::vector<Vertex> v{{c, -H + t, ri, Bend}};
        if (withAba)
            v.insert(v.end(), {{b - c - t, -H + t, ri, Bend},
                               {b - c - t, -H + aba},
                               {b - c, -H + aba},
                               {b - c, -H, R, Bend}});
        else
            v.insert(v.end(), {{b - c, -H + t}, {b - c, -H}});
        v.push_back({-c, -H, R, Bend});
        const Bending d{-c, H, t, ri, tiltOf(angle)};
        if (withAba)
            tilt(v, d, {1, 2, 3, 4}, 5, 0, true);
        else
            tilt(v, d, {1, 2}, 3, 0, true);
        return v;
    };
    std::vector<Vertex> v = half(angLower);
    for (Vertex p : half(angUpper)) {
        p.x = -p.x;
        p.y = -p.y;
        v.push_back(p);
    }
    std::reverse(v.begin(), v.end());
    return orBox(std::move(v), thin(t, {h, b}), rectangleBetween(-(b - c), -H, b - c, H));
}

Block cartola(double h, double b, double t, double ri, double aba) {
    h = medida(h);
    b = medida(b);
    t = medida(t);
    ri = medida(ri);
    aba = medida(aba);
    const double H = 0.5 * h;
    const double B = 0.5 * b;
    const double R = ri + t;
    if (aba <= t)
        return orBox({{B, -H},
                      {B, H, R, Bend},
                      {-B, H, R, Bend},
                      {-B, -H},
                      {-B + t, -H},
                      {-B + t, H - t, ri, Bend},
                      {B - t, H - t, ri, Bend},
                      {B - t, -H}},
                     thin(t, {h, b}), rectangleBetween(-B, -H, B, H));
    const double X = B - t + aba;
    return orBox({{B - t, -H, R, Bend},
                  {X, -H},
                  {X, -H + t},
                  {B, -H + t, ri, Bend},
                  {B, H, R, Bend},
                  {-B, H, R, Bend},
                  {-B, -H + t, ri, Bend},
                  {-X, -H + t},
                  {-X, -H},
                  {-B + t, -H, R, Bend},
                  {-B + t, H - t, ri, Bend},
                  {B - t, H - t, ri, Bend}},
                 thin(t, {h, b}), rectangleBetween(-X, -H, X, H));
}

double halfFlangeFall(double b, double t) { return (b - t) / 12.0; }

Block uLaminado(const MedidasUR& given) {
    MedidasUR m = given;
    for (double* p : {&m.h, &m.bUpper, &m.bLower, &m.t, &m.tfUpper, &m.tfLower, &m.radius})
        *p = medida(*p);
    const double H = 0.5 * m.h;
    const auto fall = [&](double b, double tf) {
        return std::min(halfFlangeFall(b, m.t), 2.0 * tf / 3.0);
    };
    const double di = fall(m.bLower, m.tfLower);
    const double ds = fall(m.bUpper, m.tfUpper);
    const double qi = toeRadius(m.toe, m.radius, m.tfLower - di);
    const double qs = toeRadius(m.toe, m.radius, m.tfUpper - ds);
    return orBox({{0, -H},
                  {m.bLower, -H},
                  {m.bLower, -H + m.tfLower - di, qi, Toe},
                  {m.t, -H + m.tfLower + di, m.radius, Root},
                  {m.t, H - m.tfUpper - ds, m.radius, Root},
                  {m.bUpper, H - m.tfUpper + ds, qs, Toe},
                  {m.bUpper, H},
                  {0, H}},
                 thin(m.t, {m.h, m.bUpper, m.bLower}) && m.tfLower > 0.0 && m.tfUpper > 0.0 &&
                     m.tfLower + m.tfUpper < m.h,
                 rectangleBetween(0.0, -H, std::max(m.bUpper, m.bLower), H));
}

Block perfilI(const MedidasI& given) {
    MedidasI m = given;
    for (double* p : {&m.h, &m.bc, &m.bb, &m.tc, &m.tb, &m.tw, &m.radius}) *p = medida(*p);
    const double H = 0.5 * m.h;
    const double w = 0.5 * m.tw;
    std::vector<Vertex> v{{0.5 * m.bb, -H},
                          {0.5 * m.bb, -H + m.tb},
                          {w, -H + m.tb, m.radius, Root},
                          {w, H - m.tc, m.radius, Root},
                          {0.5 * m.bc, H - m.tc},
                          {0.5 * m.bc, H}};
    for (std::size_t i = 6; i-- > 0;) v.push_back({-v[i].x, v[i].y, v[i].radius, v[i].type});
    const double B = 0.5 * std::max(m.bc, m.bb);
    const bool good =
        m.tw > 0.0 && m.tc > 0.0 && m.tb > 0.0 && m.tw < std::min(m.bc, m.bb) && m.tc + m.tb < m.h;
    return orBox(std::move(v), good, rectangleBetween(-B, -H, B, H));
}

Block perfilITapered(double h, double b, double tf, double tw, double radius, double toe) {
    h = medida(h);
    b = medida(b);
    tf = medida(tf);
    tw = medida(tw);
    radius = medida(radius);
    const double H = 0.5 * h;
    const double B = 0.5 * b;
    const double w = 0.5 * tw;
    const double d = std::min((b - tw) / 24.0, 2.0 * tf / 3.0);
    const double q = toeRadius(toe, radius, tf - d);
    std::vector<Vertex> v{{B, -H},
                          {B, -H + tf - d, q, Toe},
                          {w, -H + tf + d, radius, Root},
                          {w, H - tf - d, radius, Root},
                          {B, H - tf + d, q, Toe},
                          {B, H}};
    for (std::size_t i = 6; i-- > 0;) v.push_back({-v[i].x, v[i].y, v[i].radius, v[i].type});
    return orBox(std::move(v), tw > 0.0 && tf > 0.0 && tw < b && 2.0 * (tf + d) < h,
                 rectangleBetween(-B, -H, B, H));
}

Block rectangle(double largura, double altura, double radius, bool hole) {
    const double x = 0.5 * medida(largura);
    const double y = 0.5 * medida(altura);
    radius = medida(radius);
    std::vector<Vertex> v{
        {x, -y, radius, Bend}, {x, y, radius, Bend}, {-x, y, radius, Bend}, {-x, -y, radius, Bend}};
    Block block;
    block.loop = {std::move(v), hole, 0.0, {}};
    if (hole) std::reverse(block.loop.vertices.begin(), block.loop.vertices.end());
    block.invalid = !fitRadii(block.loop);
    if (block.invalid)
        for (Vertex& p : block.loop.vertices) p.radius = 0.0;
    return block;
}

}  // namespace zp::secao
