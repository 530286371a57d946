// SPDX-License-Identifier: MIT
// Green's theorem: moments of a region as integrals along its boundary.
#include "zp/objects/secao/properties.h"

#include <cmath>

namespace zp::secao {
namespace {

struct Momentos {
    double a = 0.0;
    double sx = 0.0;
    double sy = 0.0;
    double ix = 0.0;
    double iy = 0.0;
    double ixy = 0.0;
};

void somaLinha(Momentos& m, Ponto p, Ponto q) {
    const double dx = q.x - p.x;
    const double dy = q.y - p.y;
    m.a += 0.5 * (p.x * q.y - p.y * q.x);
    m.sx -= dx * (p.y * p.y + p.y * q.y + q.y * q.y) / 6.0;
    m.sy += dy * (p.x * p.x + p.x * q.x + q.x * q.x) / 6.0;
    m.ix -= dx * (p.y + q.y) * (p.y * p.y + q.y * q.y) / 12.0;
    m.iy += dy * (p.x + q.x) * (p.x * p.x + q.x * q.x) / 12.0;
    m.ixy += dy *
             (3.0 * p.x * p.x * p.y + p.x * p.x * q.y + 2.0 * p.x * q.x * (p.y + q.y) +
              q.x * q.x * p.y + 3.0 * q.x * q.x * q.y) /
             24.0;
}

/// Integrals over the angle of an arc: `ccs` is that of cos^2 sin, and so on.
struct Potencias {
    explicit Potencias(const Segmento& arco);
    double c, s, cc, ss, cs, ccc, sss, ccs, cccc, ssss, cccs;
};

/// The ends of the arc say cosine and sine of its angles.
Potencias::Potencias(const Segmento& arco) {
    const double varre = arco.varre;
    const double c0 = (arco.a.x - arco.centro.x) / arco.raio;
    const double s0 = (arco.a.y - arco.centro.y) / arco.raio;
    const double c1 = (arco.b.x - arco.centro.x) / arco.raio;
    const double s1 = (arco.b.y - arco.centro.y) / arco.raio;
    // Halves of the differences of sin 2t, and eighths of those of sin 4t.
    const double duplo = s1 * c1 - s0 * c0;
    const double quadruplo =
        0.5 * (s1 * c1 * (c1 - s1) * (c1 + s1) - s0 * c0 * (c0 - s0) * (c0 + s0));
    c = s1 - s0;
    s = c0 - c1;
    cc = 0.5 * (varre + duplo);
    ss = 0.5 * (varre - duplo);
    cs = 0.5 * c * (s1 + s0);
    ccc = c - (s1 * s1 * s1 - s0 * s0 * s0) / 3.0;
    ccs = (c0 * c0 * c0 - c1 * c1 * c1) / 3.0;
    sss = s - ccs;
    cccc = 0.375 * varre + 0.5 * duplo + 0.25 * quadruplo;
    ssss = 0.375 * varre - 0.5 * duplo + 0.25 * quadruplo;
    cccs = 0.25 * (c0 * c0 * c0 * c0 - c1 * c1 * c1 * c1);
}

/// Exact: x and y of an arc are cosine and sine of its angle, so every integrand is a polynomial in
/// them.
void somaArco(Momentos& m, const Segmento& arco, Ponto origem) {
    const Potencias p(arco);
    const double x = arco.centro.x - origem.x;
    const double y = arco.centro.y - origem.y;
    const double r = arco.raio;
    m.a += 0.5 * r * (x * p.c + y * p.s + r * arco.varre);
    m.sx += 0.5 * r * (y * y * p.s + r * (2.0 * y * p.ss + r * p.sss));
    m.sy += 0.5 * r * (x * x * p.c + r * (2.0 * x * p.cc + r * p.ccc));
    m.ix +=
        r * (y * y * y * p.s + r * (3.0 * y * y * p.ss + r * (3.0 * y * p.sss + r * p.ssss))) / 3.0;
    m.iy +=
        r * (x * x * x * p.c + r * (3.0 * x * x * p.cc + r * (3.0 * x * p.ccc + r * p.cccc))) / 3.0;
    m.ixy += 0.5 * r *
             (x * x * (y * p.c + r * p.cs) +
              r * (2.0 * x * (y * p.cc + r * p.ccs) + r * (y * p.ccc + r * p.cccs)));
}

void principais(Propriedades& p) {
    const double media = 0.5 * (p.ix + p.iy);
    const double raio = std::hypot(0.5 * (p.ix - p.iy), p.ixy);
    p.i1 = media + raio;
    p.i2 = media - raio;
    if (raio > 1e-12 * media) p.anguloPrincipal = 0.5 * std::atan2(-2.0 * p.ixy, p.ix - p.iy);
    p.rx = std::sqrt(p.ix / p.area);
    p.ry = std::sqrt(p.iy / p.area);
    p.r1 = std::sqrt(p.i1 / p.area);
    p.r2 = std::sqrt(std::max(0.0, p.i2) / p.area);
}

}  // namespace

Propriedades propriedades(const std::vector<Contorno>& contornos) {
    Propriedades p;
    Caixa caixa;
    for (const Contorno& c : contornos) caixa.inclui(c.caixa);
    if (caixa.vazia()) return p;
    // Moments about the middle of the box lose no digits to a far origin.
    const Ponto meio{0.5 * (caixa.x0 + caixa.x1), 0.5 * (caixa.y0 + caixa.y1)};
    Momentos m;
    for (const Contorno& c : contornos)
        for (const Segmento& s : c.segmentos) {
            p.perimetro += s.comprimento();
            if (s.arco())
                somaArco(m, s, meio);
            else
                somaLinha(m, {s.a.x - meio.x, s.a.y - meio.y}, {s.b.x - meio.x, s.b.y - meio.y});
        }
    if (!(m.a > 0.0)) return p;
    const double gx = m.sy / m.a;
    const double gy = m.sx / m.a;
    p.area = m.a;
    p.xg = meio.x + gx;
    p.yg = meio.y + gy;
    p.ix = m.ix - m.a * gy * gy;
    p.iy = m.iy - m.a * gx * gx;
    p.ixy = m.ixy - m.a * gx * gy;
    p.wxSuperior = p.ix / (caixa.y1 - p.yg);
    p.wxInferior = p.ix / (p.yg - caixa.y0);
    p.wyEsquerdo = p.iy / (p.xg - caixa.x0);
    p.wyDireito = p.iy / (caixa.x1 - p.xg);
    principais(p);
    return p;
}

}  // namespace zp::secao
