// SPDX-License-Identifier: MIT
// One builder per class over the blocks.
#include "zp/objects/secao/assembly.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <numbers>

#include "zp/objects/secao/blocks.h"

namespace zp::secao {
namespace {

using enum Papel;
constexpr double kPi = std::numbers::pi;
constexpr double kRaiz2 = std::numbers::sqrt2;
/// cot(phi/2) - (pi - phi)/2 for phi = pi/2 + atan(1/6): area of the fillet in a tapered corner
/// over r^2.
const double kFileteCunha = [] {
    const double phi = 0.5 * kPi + std::atan(1.0 / 6.0);
    return 1.0 / std::tan(0.5 * phi) - 0.5 * (kPi - phi);
}();

struct Faixa {
    double comprimento;
    double espessura;
};

/// Torsion constant of open thin strips: sum of l t^3 / 3.
double torcaoAberta(std::initializer_list<Faixa> faixas) {
    double soma = 0.0;
    for (const Faixa& f : faixas)
        soma += std::max(0.0, f.comprimento) * f.espessura * f.espessura * f.espessura / 3.0;
    return soma;
}

/// Strip of constant thickness: its mid-line is as long as area over thickness.
double torcaoChapa(const Laco& laco, double t) {
    return t > 0.0 ? torcaoAberta({{area(laco) / t, t}}) : 0.0;
}

Montagem uma(Bloco bloco, double torcao) {
    return {{std::move(bloco.laco)}, bloco.invalido, torcao, 0.0};
}

/// Two pieces of equal torsion.
Montagem duas(Bloco primeira, Bloco segunda, double torcao) {
    const bool invalida = primeira.invalido || segunda.invalido;
    return {{std::move(primeira.laco), std::move(segunda.laco)}, invalida, 2.0 * torcao, 0.0};
}

Montagem comMeiaVolta(const Bloco& bloco, double torcao) {
    Bloco outra = bloco;
    meiaVolta(outra.laco);
    return duas(bloco, std::move(outra), torcao);
}

Montagem comEspelho(const Bloco& bloco, double torcao) {
    Bloco outra = bloco;
    espelha(outra.laco);
    return duas(bloco, std::move(outra), torcao);
}

double finito(double v) { return std::isfinite(v) ? std::clamp(v, -1e9, 1e9) : 0.0; }

MedidasU medidasU(const Dados& d, double aba) {
    const double b2 = d[B2] != 0.0 ? d[B2] : d[B1];
    return {d[H], d[B1], b2, d[T], d[Ri], d[Ang1], d[Ang2], aba};
}

/// Outside width of two pieces of width b, at least that of the pieces touching.
double larguraTotal(double w, double b) { return std::max(finito(w), 2.0 * finito(b)); }

Laco circulo(double d, bool furo) { return {{}, furo, 0.5 * d, {}}; }

double torcaoL(const Dados& d) {
    const double b = d[B1] != 0.0 ? d[B1] : d[H];
    return torcaoAberta({{finito(d[H]) + finito(b) - finito(d[T]), finito(d[T])}});
}

Bloco lLaminado(const Dados& d) {
    return cantoneiraLaminada(d[H], d[B1] != 0.0 ? d[B1] : d[H], d[T], d[Ri]);
}

/// Rolled angle with the heel lower left, legs b to the right and h up: the mirror image in y of
/// the standing one.
Bloco lDePe(const Dados& d) {
    Bloco l = lLaminado(d);
    espelha(l.laco);
    meiaVolta(l.laco);
    return l;
}

/// One rolled U of a section of n equal ones, web back on x = 0.
struct UmU {
    Bloco bloco;
    double torcao;
};

UmU umU(const Dados& d, int n) {
    const double b2 = d[B2] != 0.0 ? d[B2] : d[B1];
    const double area = finito(d[A]) / n;
    const double tfS = flangeMedia(area, d[H], d[B1], b2, d[T], d[Tf1]);
    const double tfI = flangeMedia(area, d[H], d[B1], b2, d[T], d[Tf2]);
    const double t = finito(d[T]);
    const double j = torcaoAberta({{finito(d[H]) - 0.5 * (tfS + tfI), t},
                                   {finito(d[B1]) - 0.5 * t, tfS},
                                   {finito(b2) - 0.5 * t, tfI}});
    return {uLaminado({d[H], d[B1], b2, d[T], tfS, tfI, d[Ri]}), j};
}

double raizRolada(double resto, double divisor, double cabe) {
    return resto > 0.0 ? std::min(std::sqrt(resto / divisor), cabe) : 0.0;
}

}  // namespace

double flangeMedia(double area, double h, double bSup, double bInf, double t, double declarada) {
    const double aba = finito(bSup) + finito(bInf) - 2.0 * finito(t);
    if (!(finito(area) > 0.0) || !(aba > 0.0)) return finito(declarada);
    const double tf = (finito(area) - finito(h) * finito(t)) / aba;
    return std::max(0.5 * finito(t), std::min(tf, 0.25 * finito(h)));
}

double abaEfetiva(double aba, double t) {
    return std::abs(finito(aba)) > finito(t) ? finito(aba) : 0.0;
}

Montagem montagem::nenhuma(const Dados&) { return {}; }

Montagem montagem::uDobradoSimples(const Dados& d) {
    Bloco u = uDobrado(medidasU(d, d[Aba]));
    move(u.laco, -finito(d[B1]) / 3.0, 0.0);
    const double j = torcaoChapa(u.laco, d[T]);
    return uma(std::move(u), j);
}

Montagem montagem::z(const Dados& d) {
    Bloco b = zDobrado(d[H], d[B1], d[Aba], d[T], d[Ri], d[Ang1], d[Ang2]);
    const double j = torcaoChapa(b.laco, d[T]);
    return uma(std::move(b), j);
}

Montagem montagem::chapeu(const Dados& d) {
    Bloco b = cartola(d[H], d[B1], d[T], d[Ri], d[Aba]);
    const double j = torcaoChapa(b.laco, d[T]);
    return uma(std::move(b), j);
}

Montagem montagem::cantoneira(const Dados& d) {
    Bloco b = cantoneiraDobrada(d[H], d[B1], d[T], d[Ri], d[Ang1]);
    move(b.laco, -finito(d[B1]) / 3.0, finito(d[H]) / 3.0);
    const double j = torcaoChapa(b.laco, d[T]);
    return uma(std::move(b), j);
}

Montagem montagem::caixaDobrado(const Dados& d) {
    Bloco u = uDobrado(medidasU(d, std::max(0.0, finito(d[Aba]))));
    const double w = larguraTotal(d[Vao], d[B1]);
    const double j = torcaoChapa(u.laco, d[T]);
    const double externo = w > 2.0 * finito(d[B1]) ? 0.0 : 2.0 * contornoExterno(u);
    move(u.laco, -0.5 * w, 0.0);
    Montagem m = comMeiaVolta(u, j);
    m.contornoExterno = externo;
    return m;
}

Montagem montagem::tuboRetangular(const Dados& d) {
    const double h = d[H];
    const double b = d[B1];
    const double t = d[T];
    const double ri = std::max(0.0, finito(d[Ri]));
    const bool oco = t > 0.0 && 2.0 * t < std::min(h, b);
    Bloco fora = retangulo(b, h, oco ? ri + t : 0.0, false);
    Montagem m{{fora.laco}, fora.invalido || !oco, 0.0, 0.0};
    if (!oco) return m;
    Bloco furo = retangulo(b - 2.0 * t, h - 2.0 * t, ri, true);
    m.lacos.push_back(std::move(furo.laco));
    // Bredt on the mid-line, whose corners have the mean of both radii.
    const double raio = 0.5 * (m.lacos[0].vertices[0].raio + m.lacos[1].vertices[0].raio);
    const double area = (b - t) * (h - t) - (4.0 - kPi) * raio * raio;
    const double volta = 2.0 * (b + h - 2.0 * t) - (8.0 - 2.0 * kPi) * raio;
    m.torcao = 4.0 * area * area * t / volta;
    return m;
}

Montagem montagem::redondo(const Dados& d) {
    const double fora = std::max(0.0, finito(d[D]));
    const double dentro = finito(d[Dint]);
    if (!(fora > 0.0)) return {{retangulo(0.0, 0.0, 0.0, false).laco}, true, 0.0, 0.0};
    Montagem m{{circulo(fora, false)}, dentro >= fora, 0.0, 0.0};
    const bool oco = dentro > 0.0 && dentro < fora;
    if (!oco) {
        m.torcao = kPi * fora * fora * fora * fora / 32.0;
        return m;
    }
    m.lacos.push_back(circulo(dentro, true));
    const double raio = 0.25 * (fora + dentro);
    m.torcao = 2.0 * kPi * raio * raio * raio * 0.5 * (fora - dentro);
    return m;
}

Montagem montagem::bn(const Dados& d) {
    Bloco l = lLaminado(d);
    gira(l.laco, 0.25 * kPi);
    move(l.laco, 2.0 * finito(d[E]), 0.0);
    return uma(std::move(l), torcaoL(d));
}

Montagem montagem::cantLaminada(const Dados& d) {
    Bloco l = lLaminado(d);
    move(l.laco, -finito(d[Ex]), finito(d[H]) - finito(d[Ey]));
    return uma(std::move(l), torcaoL(d));
}

Montagem montagem::caixaDeCantoneiras(const Dados& d) {
    Bloco l = lDePe(d);
    const double t = finito(d[T]);
    const double q = l.invalido ? 0.0 : std::min({0.5 * std::max(0.0, finito(d[Ri])), t});
    const double externo = 2.0 * (finito(d[H]) + finito(d[B1]) + t + 0.5 * kPi * q);
    move(l.laco, -0.5 * finito(d[B1]), -0.5 * (finito(d[H]) + t));
    Montagem m = comMeiaVolta(l, torcaoL(d));
    m.contornoExterno = externo;
    return m;
}

Montagem montagem::uLaminadoSimples(const Dados& d) {
    UmU u = umU(d, 1);
    move(u.bloco.laco, -finito(d[Ex]), 0.0);
    return uma(std::move(u.bloco), u.torcao);
}

Montagem montagem::tDobrada(const Dados& d) {
    Bloco l = cantoneiraDobrada(d[H], d[B1], d[T], d[Ri], 0.5 * kPi);
    const double j = torcaoChapa(l.laco, d[T]);
    move(l.laco, 0.5 * finito(d[Vao]), finito(d[H]) / 3.0);
    return comEspelho(l, j);
}

Montagem montagem::uDeDobradas(const Dados& d) {
    Bloco l = cantoneiraDobrada(d[H], d[B1], d[T], d[Ri], 0.5 * kPi);
    const double j = torcaoChapa(l.laco, d[T]);
    move(l.laco, -0.5 * larguraTotal(d[Vao], d[B1]), finito(d[H]) / 3.0);
    return comEspelho(l, j);
}

Montagem montagem::xDobrado(const Dados& d) {
    Bloco l = cantoneiraDobrada(d[H], d[B1], d[T], d[Ri], 0.5 * kPi);
    const double j = torcaoChapa(l.laco, d[T]);
    // The bend, not the unrounded heel, touches the gap.
    const double raio = l.laco.vertices[0].raio;
    gira(l.laco, 0.25 * kPi);
    move(l.laco, 0.5 * finito(d[Vao]) - raio * (kRaiz2 - 1.0), 0.0);
    return comEspelho(l, j);
}

Montagem montagem::tLaminada(const Dados& d) {
    Bloco l = lLaminado(d);
    move(l.laco, 0.5 * finito(d[Vao]), finito(d[H]) - finito(d[Ey]));
    return comEspelho(l, torcaoL(d));
}

Montagem montagem::uDeLaminadas(const Dados& d) {
    Bloco l = lLaminado(d);
    move(l.laco, -0.5 * larguraTotal(d[Vao], d[B1]), finito(d[H]) - finito(d[Ey]));
    return comEspelho(l, torcaoL(d));
}

Montagem montagem::bnDupla(const Dados& d) {
    Bloco l = lLaminado(d);
    gira(l.laco, 0.25 * kPi);
    move(l.laco, 0.5 * finito(d[Vao]), 0.0);
    return comEspelho(l, torcaoL(d));
}

Montagem montagem::cruz(const Dados& d) {
    Bloco l = lDePe(d);
    move(l.laco, 0.5 * finito(d[Vao]), 0.5 * finito(d[VaoV]));
    return comMeiaVolta(l, torcaoL(d));
}

Montagem montagem::zDeLaminadas(const Dados& d) {
    Bloco l = lLaminado(d);
    espelha(l.laco);
    move(l.laco, -0.5 * finito(d[Vao]), 0.5 * (finito(d[H]) + finito(d[VaoV])));
    return comMeiaVolta(l, torcaoL(d));
}

Montagem montagem::uULaminado(const Dados& d) {
    UmU u = umU(d, 2);
    move(u.bloco.laco, -0.5 * larguraTotal(d[Vao], d[B1]), 0.0);
    return comMeiaVolta(u.bloco, u.torcao);
}

Montagem montagem::doisULaminado(const Dados& d) {
    UmU u = umU(d, 2);
    move(u.bloco.laco, 0.5 * finito(d[Vao]), 0.0);
    return comMeiaVolta(u.bloco, u.torcao);
}

Montagem montagem::iDobrado(const Dados& d) {
    const double aba = std::abs(finito(d[Aba]));
    Bloco u = uDobrado(medidasU(d, d[Especie] == 1.0 ? -aba : aba));
    const double j = torcaoChapa(u.laco, d[T]);
    move(u.laco, 0.5 * finito(d[Vao]), 0.0);
    return comMeiaVolta(u, j);
}

Montagem montagem::iSoldado(const Dados& d) {
    const double tb = d.variante == 1 ? d[Tb] : d[Tc];
    Bloco b = perfilI({d[H], d[Bc], d[Bb], d[Tc], tb, d[Tw], 0.0});
    return uma(std::move(b),
               torcaoAberta({{finito(d[H]) - 0.5 * (finito(d[Tc]) + finito(tb)), finito(d[Tw])},
                             {finito(d[Bc]), finito(d[Tc])},
                             {finito(d[Bb]), finito(tb)}}));
}

Montagem montagem::iLaminado(const Dados& d) {
    const double h = finito(d[H]);
    const double b = finito(d[B1]);
    const double tw = finito(d[Tw]);
    const double tf = finito(d[Tf1]);
    const double resto = finito(d[A]) - 2.0 * b * tf - (h - 2.0 * tf) * tw;
    const double cabe = std::max(0.0, 0.5 * std::min(b - tw, h - 2.0 * tf));
    const double j = torcaoAberta({{h - tf, tw}, {b, tf}, {b, tf}});
    if (d[Tipo] == 2.0)
        return uma(perfilICunha(h, b, tf, tw, raizRolada(resto, 3.0 * kFileteCunha, cabe)), j);
    return uma(perfilI({h, b, b, tf, tf, tw, raizRolada(resto, 4.0 - kPi, cabe)}), j);
}

}  // namespace zp::secao
