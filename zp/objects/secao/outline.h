// SPDX-License-Identifier: MIT
// Closed loops of a section: corner vertices with roundings, and the lines and arcs made of them.
#pragma once

#include <algorithm>
#include <vector>

namespace zp::secao {

/// Section plane: x to the right, y up, seen from the member's start; mm.
struct Ponto {
    double x = 0.0;
    double y = 0.0;
};

struct Caixa {
    double x0 = 1e300;
    double y0 = 1e300;
    double x1 = -1e300;
    double y1 = -1e300;

    bool vazia() const { return x0 > x1; }
    /// mm.
    double largura() const { return vazia() ? 0.0 : x1 - x0; }
    /// mm.
    double altura() const { return vazia() ? 0.0 : y1 - y0; }
    /// The larger side: the measure of tolerances.
    double lado() const;
    /// mm.
    void inclui(double x, double y) {
        x0 = std::min(x0, x);
        y0 = std::min(y0, y);
        x1 = std::max(x1, x);
        y1 = std::max(y1, y);
    }
    void inclui(const Caixa& outra);
};

/// How a corner is rounded: the bend of a sheet, the concave fillet of a rolled shape, or the
/// rounded inner edge at the end of a rolled leg.
enum class Arredonda { Nenhum, Dobra, Raiz, Ponta };

struct Vertice {
    double x = 0.0;
    double y = 0.0;
    double raio = 0.0;
    Arredonda tipo = Arredonda::Nenhum;
};

/// Corners in order: counter-clockwise for steel, clockwise for holes. A circle has no corners.
struct Laco {
    std::vector<Vertice> vertices;
    bool furo = false;
    double raioCirculo = 0.0;
    Ponto centro;
};

/// Line (varre = 0) or arc from a to b; angles in radians, counter-clockwise positive.
struct Segmento {
    Ponto a;
    Ponto b;
    Ponto centro;
    double raio = 0.0;
    double inicio = 0.0;  ///< angle of a seen from the centre
    double varre = 0.0;   ///< signed sweep

    bool arco() const { return varre != 0.0; }
    /// mm, along the arc.
    double comprimento() const;
    /// tan(sweep / 4).
    double bulge() const;
    /// 0: where it begins, 1: where it ends.
    Ponto ponto(double fracao) const;
};

/// Unrounded corner of a toe and the arc that rounds it.
struct CantoDePonta {
    Ponto canto;
    std::size_t arco = 0;
};

struct Contorno {
    std::vector<Segmento> segmentos;
    std::vector<CantoDePonta> pontas;
    bool furo = false;
    bool circulo = false;
    Caixa caixa;
};

/// Multiplies all radii of the loop by the smallest ratio of a side to the two tangent lengths on
/// it when that ratio is below 1. False when the loop cannot be drawn: a side without length, a
/// corner folded back, wrong direction of travel, or sides that cross. O(n^2) for n corners, n
/// <= 16.
bool ajusta(Laco& laco);

/// Area of a loop that `ajusta` accepted, roundings included; negative for a hole.
double area(const Laco& laco);

/// The lines and arcs of a loop that `ajusta` accepted.
Contorno tracado(const Laco& laco);

/// Exact box of one segment, extremes of arcs included.
Caixa caixaDe(const Segmento& segmento);

// Motions of a loop. Mirroring reverses the order, so that the direction of travel stays.
/// mm.
void move(Laco& laco, double dx, double dy);
void meiaVolta(Laco& laco);
void espelha(Laco& laco);
/// Radians about the origin, counter-clockwise.
void gira(Laco& laco, double angulo);

}  // namespace zp::secao
