// SPDX-License-Identifier: MIT
// Loops: fitting of radii, check, lines and arcs.
#include "zp/objects/secao/outline.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zp::secao {
namespace {

constexpr double kPi = std::numbers::pi;

Ponto menos(const Vertice& a, const Vertice& b) { return {a.x - b.x, a.y - b.y}; }
double cruz(Ponto a, Ponto b) { return a.x * b.y - a.y * b.x; }
double escalar(Ponto a, Ponto b) { return a.x * b.x + a.y * b.y; }

/// Sizes are limited to 1e9, so nothing overflows that a slower form would save.
double norma(double x, double y) { return std::sqrt(x * x + y * y); }

/// Corner: unit directions to its neighbours; sine and cosine of its inner angle.
struct Canto {
    Ponto antes;
    Ponto depois;
    double seno = 0.0;
    double cosseno = 0.0;
    double cotangente = 0.0;  ///< of half the angle
    double ladoDepois = 0.0;

    /// Asked for where it is needed only: the functions of angles are what a section costs.
    double angulo() const { return std::atan2(seno, cosseno); }
    /// Below 1e-6 or no angle at all.
    bool fechado() const { return cosseno >= 0.0 && seno <= 1e-6; }
    /// Within 1e-9 of a straight line.
    bool raso() const { return cosseno < 0.0 && seno <= 1e-9; }
    /// 1 where a path that arrives here turns to the left, -1 to the right.
    double giro() const { return cruz(depois, antes) > 0.0 ? 1.0 : -1.0; }
};

std::vector<Canto> cantos(const std::vector<Vertice>& v) {
    const std::size_t n = v.size();
    std::vector<Canto> r(n);
    for (std::size_t i = 0; i < n; ++i) {
        const std::size_t j = (i + 1) % n;
        const Ponto d = menos(v[j], v[i]);
        const double lado = norma(d.x, d.y);
        r[i].ladoDepois = lado;
        const double k = lado > 0.0 ? 1.0 / lado : 0.0;
        r[i].depois = {d.x * k, d.y * k};
        r[j].antes = {-d.x * k, -d.y * k};
    }
    for (Canto& c : r) {
        c.seno = std::abs(cruz(c.antes, c.depois));
        c.cosseno = escalar(c.antes, c.depois);
        // Of the two forms the one that loses no digits.
        c.cotangente = c.cosseno > 0.0 ? (1.0 + c.cosseno) / c.seno : c.seno / (1.0 - c.cosseno);
    }
    return r;
}

double tangente(const Canto& c, double raio) {
    return raio > 0.0 && !c.raso() ? raio * c.cotangente : 0.0;
}

double areaDobrada(const std::vector<Vertice>& v) {
    double soma = 0.0;
    for (std::size_t i = 0; i < v.size(); ++i) {
        const Vertice& a = v[i];
        const Vertice& b = v[(i + 1) % v.size()];
        soma += a.x * b.y - a.y * b.x;
    }
    return soma;
}

/// Whether the stretches from a to b and from c to d of one axis are apart: most pairs of sides
/// are.
bool longe(double a, double b, double c, double d, double tol) {
    return std::max(a, b) + 2.0 * tol < std::min(c, d) ||
           std::max(c, d) + 2.0 * tol < std::min(a, b);
}

/// True when the two sides cross, or lie on each other along more than `tol`. Touching is allowed:
/// a lip may end on another one.
bool cruzam(const Vertice& a, const Vertice& b, const Vertice& c, const Vertice& d, double tol) {
    if (longe(a.x, b.x, c.x, d.x, tol) || longe(a.y, b.y, c.y, d.y, tol)) return false;
    const Ponto u = menos(b, a);
    const Ponto w = menos(d, c);
    const double lu = norma(u.x, u.y);
    const double lw = norma(w.x, w.y);
    const double c1 = cruz(u, menos(c, a)) / lu;
    const double d1 = cruz(u, menos(d, a)) / lu;
    const double a2 = cruz(w, menos(a, c)) / lw;
    const double b2 = cruz(w, menos(b, c)) / lw;
    if (std::abs(c1) <= tol && std::abs(d1) <= tol) {
        const double s0 = escalar(u, menos(c, a)) / lu;
        const double s1 = escalar(u, menos(d, a)) / lu;
        return std::min(lu, std::max(s0, s1)) - std::max(0.0, std::min(s0, s1)) > tol;
    }
    return std::min(c1, d1) < -tol && std::max(c1, d1) > tol && std::min(a2, b2) < -tol &&
           std::max(a2, b2) > tol;
}

bool cruzaASiMesmo(const std::vector<Vertice>& v, double tol) {
    const std::size_t n = v.size();
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = i + 2; j < n; ++j) {
            if (i == 0 && j == n - 1) continue;
            if (cruzam(v[i], v[i + 1], v[j], v[(j + 1) % n], tol)) return true;
        }
    return false;
}

void acrescenta(Contorno& c, const Segmento& s) {
    c.segmentos.push_back(s);
    c.caixa.inclui(caixaDe(s));
}

Contorno circulo(const Laco& laco) {
    Contorno c;
    c.furo = laco.furo;
    c.circulo = true;
    const double r = laco.raioCirculo;
    const double varre = laco.furo ? -kPi : kPi;
    for (const double inicio : {0.0, kPi}) {
        const double sinal = inicio == 0.0 ? 1.0 : -1.0;
        acrescenta(c, {{laco.centro.x + sinal * r, laco.centro.y},
                       {laco.centro.x - sinal * r, laco.centro.y},
                       laco.centro,
                       r,
                       inicio,
                       varre});
    }
    return c;
}

}  // namespace

double Caixa::lado() const { return std::max(largura(), altura()); }

void Caixa::inclui(const Caixa& outra) {
    if (outra.vazia()) return;
    inclui(outra.x0, outra.y0);
    inclui(outra.x1, outra.y1);
}

double Segmento::comprimento() const {
    return arco() ? raio * std::abs(varre) : norma(b.x - a.x, b.y - a.y);
}

double Segmento::bulge() const { return arco() ? std::tan(0.25 * varre) : 0.0; }

Ponto Segmento::ponto(double fracao) const {
    if (!arco()) return {a.x + (b.x - a.x) * fracao, a.y + (b.y - a.y) * fracao};
    const double angulo = inicio + varre * fracao;
    return {centro.x + raio * std::cos(angulo), centro.y + raio * std::sin(angulo)};
}

Caixa caixaDe(const Segmento& s) {
    Caixa caixa;
    caixa.inclui(s.a.x, s.a.y);
    caixa.inclui(s.b.x, s.b.y);
    if (!s.arco()) return caixa;
    const double menor = std::min(s.inicio, s.inicio + s.varre);
    const double maior = std::max(s.inicio, s.inicio + s.varre);
    for (int q = static_cast<int>(std::ceil(menor / (0.5 * kPi))); q * 0.5 * kPi <= maior; ++q) {
        const int quadrante = ((q % 4) + 4) % 4;
        constexpr double kCos[4] = {1.0, 0.0, -1.0, 0.0};
        constexpr double kSen[4] = {0.0, 1.0, 0.0, -1.0};
        caixa.inclui(s.centro.x + s.raio * kCos[quadrante], s.centro.y + s.raio * kSen[quadrante]);
    }
    return caixa;
}

bool ajusta(Laco& laco) {
    std::vector<Vertice>& v = laco.vertices;
    if (v.size() < 3) return false;
    Caixa caixa;
    for (const Vertice& p : v) {
        if (!std::isfinite(p.x) || !std::isfinite(p.y)) return false;
        caixa.inclui(p.x, p.y);
    }
    const double tol = 1e-9 * caixa.lado();
    if (caixa.largura() <= tol || caixa.altura() <= tol) return false;
    const std::vector<Canto> canto = cantos(v);
    double k = 1.0;
    for (std::size_t i = 0; i < v.size(); ++i) {
        if (canto[i].ladoDepois <= tol || canto[i].fechado()) return false;
        const std::size_t j = (i + 1) % v.size();
        const double soma = tangente(canto[i], v[i].raio) + tangente(canto[j], v[j].raio);
        if (soma > 0.0) k = std::min(k, canto[i].ladoDepois / soma);
    }
    if (k < 1.0)
        for (Vertice& p : v) p.raio *= k;
    const double area = areaDobrada(v);
    if (laco.furo ? area >= 0.0 : area <= 0.0) return false;
    return !cruzaASiMesmo(v, tol);
}

double area(const Laco& laco) {
    if (laco.raioCirculo > 0.0)
        return (laco.furo ? -kPi : kPi) * laco.raioCirculo * laco.raioCirculo;
    const std::vector<Vertice>& v = laco.vertices;
    const std::vector<Canto> canto = cantos(v);
    double soma = 0.5 * areaDobrada(v);
    for (std::size_t i = 0; i < v.size(); ++i) {
        const double t = tangente(canto[i], v[i].raio);
        if (t <= 0.0) continue;
        // Between the two tangents and the arc.
        const double cortada = v[i].raio * (t - 0.5 * v[i].raio * (kPi - canto[i].angulo()));
        soma -= canto[i].giro() * cortada;
    }
    return soma;
}

Contorno tracado(const Laco& laco) {
    if (laco.raioCirculo > 0.0) return circulo(laco);
    Contorno c;
    c.furo = laco.furo;
    const std::vector<Vertice>& v = laco.vertices;
    const std::vector<Canto> canto = cantos(v);
    c.segmentos.reserve(2 * v.size());
    double escala = 0.0;
    for (const Canto& k : canto) escala = std::max(escala, k.ladoDepois);
    Ponto atual;
    const std::size_t n = v.size();
    // The corner at 0 closes the loop, so its leaving tangent point is where the walk begins.
    for (std::size_t passo = 0; passo <= n; ++passo) {
        const std::size_t i = passo % n;
        const double t = tangente(canto[i], v[i].raio);
        const Ponto chega{v[i].x + t * canto[i].antes.x, v[i].y + t * canto[i].antes.y};
        const Ponto sai{v[i].x + t * canto[i].depois.x, v[i].y + t * canto[i].depois.y};
        const Ponto reta{chega.x - atual.x, chega.y - atual.y};
        if (passo > 0 && escalar(reta, reta) > 1e-24 * escala * escala)
            acrescenta(c, {atual, chega, {}, 0.0, 0.0, 0.0});
        atual = sai;
        if (passo == 0 || t <= 0.0) continue;
        const double giro = canto[i].giro();
        // The centre lies at the radius from the side that arrives, on the side the path turns to.
        const Ponto centro{chega.x + giro * v[i].raio * canto[i].antes.y,
                           chega.y - giro * v[i].raio * canto[i].antes.x};
        const double inicio = std::atan2(chega.y - centro.y, chega.x - centro.x);
        if (v[i].tipo == Arredonda::Ponta)
            c.pontas.push_back({{v[i].x, v[i].y}, c.segmentos.size()});
        acrescenta(c, {chega, sai, centro, v[i].raio, inicio, giro * (kPi - canto[i].angulo())});
    }
    return c;
}

void move(Laco& laco, double dx, double dy) {
    for (Vertice& v : laco.vertices) {
        v.x += dx;
        v.y += dy;
    }
    laco.centro.x += dx;
    laco.centro.y += dy;
}

void meiaVolta(Laco& laco) {
    for (Vertice& v : laco.vertices) {
        v.x = -v.x;
        v.y = -v.y;
    }
    laco.centro = {-laco.centro.x, -laco.centro.y};
}

void espelha(Laco& laco) {
    for (Vertice& v : laco.vertices) v.x = -v.x;
    laco.centro.x = -laco.centro.x;
    std::reverse(laco.vertices.begin(), laco.vertices.end());
}

void gira(Laco& laco, double angulo) {
    const double c = std::cos(angulo);
    const double s = std::sin(angulo);
    for (Vertice& v : laco.vertices) {
        const double x = v.x * c - v.y * s;
        v.y = v.x * s + v.y * c;
        v.x = x;
    }
    const double x = laco.centro.x * c - laco.centro.y * s;
    laco.centro.y = laco.centro.x * s + laco.centro.y * c;
    laco.centro.x = x;
}

}  // namespace zp::secao
