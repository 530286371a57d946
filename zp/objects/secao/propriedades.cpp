// SPDX-License-Identifier: MIT
// Green's theorem: moments of a region as integrals along its boundary.
#include "zp/objects/secao/propriedades.h"

#include <cmath>
#include <numbers>

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

/// Gauss-Legendre with 8 points per quarter turn: the integrands are trigonometric polynomials of
/// degree 4, for which the error is below the rounding of doubles.
void somaArco(Momentos& m, const Segmento& s, Ponto origem) {
    constexpr double kNo[4] = {0.1834346424956498, 0.5255324099163290, 0.7966664774136267,
                               0.9602898564975363};
    constexpr double kPeso[4] = {0.3626837833783620, 0.3137066458778873, 0.2223810344533745,
                                 0.1012285362903763};
    const int partes =
        static_cast<int>(std::ceil(std::abs(s.varre) / (0.5 * std::numbers::pi) - 1e-12));
    const double meia = 0.5 * s.varre / partes;
    const double cx = s.centro.x - origem.x;
    const double cy = s.centro.y - origem.y;
    for (int parte = 0; parte < partes; ++parte) {
        const double meio = s.inicio + meia * (2 * parte + 1);
        for (int i = 0; i < 8; ++i) {
            const double no = i < 4 ? kNo[i] : -kNo[i - 4];
            const double peso = kPeso[i % 4] * meia;
            const double c = std::cos(meio + meia * no);
            const double sn = std::sin(meio + meia * no);
            const double x = cx + s.raio * c;
            const double y = cy + s.raio * sn;
            const double dx = -s.raio * sn * peso;
            const double dy = s.raio * c * peso;
            m.a += 0.5 * (x * dy - y * dx);
            m.sx -= 0.5 * y * y * dx;
            m.sy += 0.5 * x * x * dy;
            m.ix -= y * y * y * dx / 3.0;
            m.iy += x * x * x * dy / 3.0;
            m.ixy += 0.5 * x * x * y * dy;
        }
    }
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
