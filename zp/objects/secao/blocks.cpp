// SPDX-License-Identifier: MIT
// Building blocks: vertices as tables, tilted flanges, fallback to the nominal box.
#include "zp/objects/secao/blocks.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zp::secao {
namespace {

constexpr double kPi = std::numbers::pi;
using enum Arredonda;

/// Sizes come from users and files: whatever is no size counts as 0.
double medida(double v) { return std::isfinite(v) && v > 0.0 ? std::min(v, 1e9) : 0.0; }

Laco retanguloEntre(double x0, double y0, double x1, double y1) {
    return {{{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}}, false, 0.0, {}};
}

/// The loop itself when it can be drawn and its thickness is below half the smaller size, else the
/// rectangle.
Bloco protege(std::vector<Vertice> vertices, bool espessuraBoa, const Laco& nominal) {
    Bloco bloco;
    bloco.laco.vertices = std::move(vertices);
    if (espessuraBoa && ajusta(bloco.laco)) return bloco;
    bloco.laco = nominal;
    bloco.invalido = true;
    return bloco;
}

bool fina(double t, std::initializer_list<double> tamanhos) {
    return t > 0.0 && 2.0 * t < std::min(tamanhos);
}

/// Angle of a flange away from the right angle, 0 when it is outside the drawable range.
double inclinacao(double angulo) {
    if (!(angulo >= kPi / 6.0 && angulo <= 5.0 * kPi / 6.0)) return 0.0;
    const double delta = angulo - 0.5 * kPi;
    return std::abs(delta) < 1e-9 ? 0.0 : delta;
}

/// Turns an upper right flange about its bend. The sheet's outer faces are x = xExterno and y =
/// topo; `pontas` are the corners beyond the bend, `fora` and `dentro` the two corners of the bend
/// itself. The developed length on the mid-line stays, so the straight part grows by what the bend
/// loses.
struct Dobramento {
    double xExterno;
    double topo;
    double t;
    double ri;
    double delta;
};

void inclina(std::vector<Vertice>& v, const Dobramento& d,
             std::initializer_list<std::size_t> pontas, std::size_t fora, std::size_t dentro,
             bool inferior) {
    if (d.delta == 0.0) return;
    const double sinal = inferior ? -1.0 : 1.0;
    const double r = d.ri + d.t;
    const double cx = d.xExterno + r;
    const double cy = d.topo - r;
    const double c = std::cos(d.delta);
    const double s = std::sin(d.delta);
    const double alonga = (d.ri + 0.5 * d.t) * d.delta;
    for (const std::size_t i : pontas) {
        const double u = v[i].x - cx + alonga;
        const double w = sinal * v[i].y - cy;
        v[i].x = cx + u * c - w * s;
        v[i].y = sinal * (cy + u * s + w * c);
    }
    const auto canto = [&](std::size_t i, double x, double raio) {
        const double avanca = (x - cx + raio * s) / c;
        v[i].x = x;
        v[i].y = sinal * (cy + raio * c + avanca * s);
    };
    canto(fora, d.xExterno, r);
    canto(dentro, d.xExterno + d.t, d.ri);
}

std::vector<Vertice> verticesU(const MedidasU& m, double aba) {
    const double H = 0.5 * m.h;
    const double R = m.ri + m.t;
    const double t = m.t;
    const double ri = m.ri;
    const double b1 = m.bSup;
    const double b2 = m.bInf;
    if (aba > t)
        return {{b2, -H, R, Dobra},          {b2, -H + aba},         {b2 - t, -H + aba},
                {b2 - t, -H + t, ri, Dobra}, {t, -H + t, ri, Dobra}, {t, H - t, ri, Dobra},
                {b1 - t, H - t, ri, Dobra},  {b1 - t, H - aba},      {b1, H - aba},
                {b1, H, R, Dobra},           {0, H, R, Dobra},       {0, -H, R, Dobra}};
    if (-aba > t) {
        const double e = -aba;
        return {{b2 - t, -H, ri, Dobra}, {b2 - t, -H + t - e},   {b2, -H + t - e},
                {b2, -H + t, R, Dobra},  {t, -H + t, ri, Dobra}, {t, H - t, ri, Dobra},
                {b1, H - t, R, Dobra},   {b1, H - t + e},        {b1 - t, H - t + e},
                {b1 - t, H, ri, Dobra},  {0, H, R, Dobra},       {0, -H, R, Dobra}};
    }
    return {{b2, -H},    {b2, -H + t}, {t, -H + t, ri, Dobra}, {t, H - t, ri, Dobra},
            {b1, H - t}, {b1, H},      {0, H, R, Dobra},       {0, -H, R, Dobra}};
}

}  // namespace

Bloco uDobrado(const MedidasU& pedidas) {
    MedidasU m = pedidas;
    m.h = medida(m.h);
    m.bSup = medida(m.bSup);
    m.bInf = medida(m.bInf);
    m.t = medida(m.t);
    m.ri = medida(m.ri);
    const double aba = std::isfinite(m.aba) ? m.aba : 0.0;
    std::vector<Vertice> v = verticesU(m, aba);
    const double H = 0.5 * m.h;
    const Caixa nominal{0.0, -H, std::max(m.bSup, m.bInf), H};
    const Dobramento sup{0.0, H, m.t, m.ri, inclinacao(m.angSup)};
    const Dobramento inf{0.0, H, m.t, m.ri, inclinacao(m.angInf)};
    if (v.size() == 8) {
        inclina(v, sup, {4, 5}, 6, 3, false);
        inclina(v, inf, {0, 1}, 7, 2, true);
    } else {
        inclina(v, sup, {6, 7, 8, 9}, 10, 5, false);
        inclina(v, inf, {0, 1, 2, 3}, 11, 4, true);
    }
    return protege(std::move(v), fina(m.t, {m.h, m.bSup, m.bInf}),
                   retanguloEntre(nominal.x0, nominal.y0, nominal.x1, nominal.y1));
}

double contornoExterno(const Bloco& bloco) {
    const std::vector<Vertice>& v = bloco.laco.vertices;
    const Caixa caixa = tracado(bloco.laco).caixa;
    if (v.size() == 12) {
        const double R = v[10].raio;
        return caixa.altura() + 2.0 * caixa.largura() - 6.0 * R + 2.0 * kPi * R;
    }
    const double R = v.size() == 8 ? v[6].raio : 0.0;
    return caixa.altura() + 2.0 * caixa.largura() - 4.0 * R + kPi * R;
}

Bloco cantoneiraDobrada(double h, double b, double t, double ri, double angulo) {
    h = medida(h);
    b = medida(b);
    t = medida(t);
    ri = medida(ri);
    std::vector<Vertice> v{{0, 0, ri + t, Dobra}, {0, -h}, {t, -h},
                           {t, -t, ri, Dobra},    {b, -t}, {b, 0}};
    inclina(v, {0.0, 0.0, t, ri, inclinacao(angulo)}, {4, 5}, 0, 3, false);
    return protege(std::move(v), fina(t, {h, b}), retanguloEntre(0.0, -h, b, 0.0));
}

Bloco cantoneiraLaminada(double h, double b, double t, double raio) {
    h = medida(h);
    b = medida(b);
    t = medida(t);
    raio = medida(raio);
    const double q = std::min(0.5 * raio, t);
    return protege(
        {{0, 0}, {0, -h}, {t, -h, q, Ponta}, {t, -t, raio, Raiz}, {b, -t, q, Ponta}, {b, 0}},
        fina(t, {h, b}), retanguloEntre(0.0, -h, b, 0.0));
}

Bloco zDobrado(double h, double b, double aba, double t, double ri, double angSup, double angInf) {
    h = medida(h);
    b = medida(b);
    t = medida(t);
    ri = medida(ri);
    aba = medida(aba);
    const double H = 0.5 * h;
    const double c = 0.5 * t;
    const double R = ri + t;
    const bool comAba = aba > t;
    // Lower half in clockwise order, ending at the web's outer face.
    const auto metade = [&](double angulo) {
        std::vector<Vertice> v{{c, -H + t, ri, Dobra}};
        if (comAba)
            v.insert(v.end(), {{b - c - t, -H + t, ri, Dobra},
                               {b - c - t, -H + aba},
                               {b - c, -H + aba},
                               {b - c, -H, R, Dobra}});
        else
            v.insert(v.end(), {{b - c, -H + t}, {b - c, -H}});
        v.push_back({-c, -H, R, Dobra});
        const Dobramento d{-c, H, t, ri, inclinacao(angulo)};
        if (comAba)
            inclina(v, d, {1, 2, 3, 4}, 5, 0, true);
        else
            inclina(v, d, {1, 2}, 3, 0, true);
        return v;
    };
    std::vector<Vertice> v = metade(angInf);
    for (Vertice p : metade(angSup)) {
        p.x = -p.x;
        p.y = -p.y;
        v.push_back(p);
    }
    std::reverse(v.begin(), v.end());
    return protege(std::move(v), fina(t, {h, b}), retanguloEntre(-(b - c), -H, b - c, H));
}

Bloco cartola(double h, double b, double t, double ri, double aba) {
    h = medida(h);
    b = medida(b);
    t = medida(t);
    ri = medida(ri);
    aba = medida(aba);
    const double H = 0.5 * h;
    const double B = 0.5 * b;
    const double R = ri + t;
    if (aba <= t)
        return protege({{B, -H},
                        {B, H, R, Dobra},
                        {-B, H, R, Dobra},
                        {-B, -H},
                        {-B + t, -H},
                        {-B + t, H - t, ri, Dobra},
                        {B - t, H - t, ri, Dobra},
                        {B - t, -H}},
                       fina(t, {h, b}), retanguloEntre(-B, -H, B, H));
    const double X = B - t + aba;
    return protege({{B - t, -H, R, Dobra},
                    {X, -H},
                    {X, -H + t},
                    {B, -H + t, ri, Dobra},
                    {B, H, R, Dobra},
                    {-B, H, R, Dobra},
                    {-B, -H + t, ri, Dobra},
                    {-X, -H + t},
                    {-X, -H},
                    {-B + t, -H, R, Dobra},
                    {-B + t, H - t, ri, Dobra},
                    {B - t, H - t, ri, Dobra}},
                   fina(t, {h, b}), retanguloEntre(-X, -H, X, H));
}

double deslocamentoFlange(double b, double t) { return (b - t) / 12.0; }

Bloco uLaminado(const MedidasUR& pedidas) {
    MedidasUR m = pedidas;
    for (double* p : {&m.h, &m.bSup, &m.bInf, &m.t, &m.tfSup, &m.tfInf, &m.raio}) *p = medida(*p);
    const double H = 0.5 * m.h;
    const auto queda = [&](double b, double tf) {
        return std::min(deslocamentoFlange(b, m.t), 2.0 * tf / 3.0);
    };
    const double di = queda(m.bInf, m.tfInf);
    const double ds = queda(m.bSup, m.tfSup);
    const double qi = std::min(0.5 * m.raio, 0.5 * (m.tfInf - di));
    const double qs = std::min(0.5 * m.raio, 0.5 * (m.tfSup - ds));
    return protege({{0, -H},
                    {m.bInf, -H},
                    {m.bInf, -H + m.tfInf - di, qi, Ponta},
                    {m.t, -H + m.tfInf + di, m.raio, Raiz},
                    {m.t, H - m.tfSup - ds, m.raio, Raiz},
                    {m.bSup, H - m.tfSup + ds, qs, Ponta},
                    {m.bSup, H},
                    {0, H}},
                   fina(m.t, {m.h, m.bSup, m.bInf}) && m.tfInf > 0.0 && m.tfSup > 0.0 &&
                       m.tfInf + m.tfSup < m.h,
                   retanguloEntre(0.0, -H, std::max(m.bSup, m.bInf), H));
}

Bloco perfilI(const MedidasI& pedidas) {
    MedidasI m = pedidas;
    for (double* p : {&m.h, &m.bc, &m.bb, &m.tc, &m.tb, &m.tw, &m.raio}) *p = medida(*p);
    const double H = 0.5 * m.h;
    const double w = 0.5 * m.tw;
    std::vector<Vertice> v{{0.5 * m.bb, -H},
                           {0.5 * m.bb, -H + m.tb},
                           {w, -H + m.tb, m.raio, Raiz},
                           {w, H - m.tc, m.raio, Raiz},
                           {0.5 * m.bc, H - m.tc},
                           {0.5 * m.bc, H}};
    for (std::size_t i = 6; i-- > 0;) v.push_back({-v[i].x, v[i].y, v[i].raio, v[i].tipo});
    const double B = 0.5 * std::max(m.bc, m.bb);
    const bool boa =
        m.tw > 0.0 && m.tc > 0.0 && m.tb > 0.0 && m.tw < std::min(m.bc, m.bb) && m.tc + m.tb < m.h;
    return protege(std::move(v), boa, retanguloEntre(-B, -H, B, H));
}

Bloco perfilICunha(double h, double b, double tf, double tw, double raio) {
    h = medida(h);
    b = medida(b);
    tf = medida(tf);
    tw = medida(tw);
    raio = medida(raio);
    const double H = 0.5 * h;
    const double B = 0.5 * b;
    const double w = 0.5 * tw;
    const double d = std::min((b - tw) / 24.0, 2.0 * tf / 3.0);
    const double q = std::min(0.5 * raio, 0.5 * (tf - d));
    std::vector<Vertice> v{{B, -H},
                           {B, -H + tf - d, q, Ponta},
                           {w, -H + tf + d, raio, Raiz},
                           {w, H - tf - d, raio, Raiz},
                           {B, H - tf + d, q, Ponta},
                           {B, H}};
    for (std::size_t i = 6; i-- > 0;) v.push_back({-v[i].x, v[i].y, v[i].raio, v[i].tipo});
    return protege(std::move(v), tw > 0.0 && tf > 0.0 && tw < b && 2.0 * (tf + d) < h,
                   retanguloEntre(-B, -H, B, H));
}

Bloco retangulo(double largura, double altura, double raio, bool furo) {
    const double x = 0.5 * medida(largura);
    const double y = 0.5 * medida(altura);
    raio = medida(raio);
    std::vector<Vertice> v{
        {x, -y, raio, Dobra}, {x, y, raio, Dobra}, {-x, y, raio, Dobra}, {-x, -y, raio, Dobra}};
    Bloco bloco;
    bloco.laco = {std::move(v), furo, 0.0, {}};
    if (furo) std::reverse(bloco.laco.vertices.begin(), bloco.laco.vertices.end());
    bloco.invalido = !ajusta(bloco.laco);
    if (bloco.invalido)
        for (Vertice& p : bloco.laco.vertices) p.raio = 0.0;
    return bloco;
}

}  // namespace zp::secao
