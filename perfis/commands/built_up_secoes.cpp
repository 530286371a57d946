// SPDX-License-Identifier: MIT
// Parts that several built-up commands have in common.
#include "perfis/commands/built_up_secoes.h"

#include <algorithm>
#include <numbers>

#include "perfis/commands/common_secoes.h"

namespace perfis {
namespace {

constexpr MedidaTile kRolled[] = {
    {L"h", &Medidas::h, L"0"},
    {L"b", &Medidas::b, L"0"},
    {L"t", &Medidas::t, L"0.00"},
    {L"a", &Medidas::a, L"0", RowUse::kNone},
    {L"av", &Medidas::av, L"0", RowUse::kNone},
};

constexpr MedidaTile kWithAba[] = {
    {L"h", &Medidas::h, L"0"}, {L"b", &Medidas::b, L"0"}, {L"t", &Medidas::t, L"0.00"},
    {L"a", &Medidas::a, L"0"}, {L"e", &Medidas::e, L"0"},
};

Medida orElse(Medida wrong, bool otherToo, Medida other) {
    return wrong == nullptr && otherToo ? other : wrong;
}

/// Point of the picture at x from the reference point, at the lower edge.
AcGePoint3d atLowerEdge(const PecaCotas& d, double x) {
    AcGePoint3d point = d.at(x, 0.0);
    point.y = d.face(1).y;
    return point;
}

}  // namespace

constinit const std::span<const MedidaTile> kTilesRolled(kRolled, 4);
constinit const std::span<const MedidaTile> kTilesRolledAv(kRolled);
constinit const std::span<const MedidaTile> kTilesWithAba(kWithAba);

Medida wrongVao(const Medidas& medidas) {
    return orElse(wrongHbt(medidas), medidas.a < 0.0, &Medidas::a);
}

Medida wrongVaoOrAba(const Medidas& medidas) {
    return orElse(wrongVao(medidas), medidas.e <= 0.0, &Medidas::e);
}

Medida wrongVaoOrAv(const Medidas& medidas) {
    return orElse(wrongVao(medidas), medidas.av < 0.0, &Medidas::av);
}

Medida wrongLargura(const Medidas& medidas) {
    const bool touching = medidas.a == 0.0;
    return orElse(wrongHbt(medidas), !touching && medidas.a < 2.0 * medidas.b, &Medidas::a);
}

double outsideLargura(const Medidas& medidas) { return std::max(medidas.a, 2.0 * medidas.b); }
double halfAcrossVao(const Medidas& medidas) { return medidas.b + medidas.a / 2.0; }
double halfOutsideLargura(const Medidas& medidas) { return outsideLargura(medidas) / 2.0; }
double halfAltura(const Medidas& medidas) { return medidas.h / 2.0; }
double thirdOfAltura(const Medidas& medidas) { return medidas.h / 3.0; }

void cotaTee(PecaCotas& d, const Medidas& m) {
    cotaWVT(d, m);
    const AcGePoint3d left = d.at(-m.a / 2.0, -2.0 * m.h / 3.0);
    d.add(left, d.at(m.a / 2.0, -2.0 * m.h / 3.0), left + d.off(0.0, -kFarLine));
}

void cotaTrough(PecaCotas& d, const Medidas& m) {
    cotaWVT(d, m);
    const double half = halfOutsideLargura(m) - m.b;
    const AcGePoint3d left = d.at(-half, m.h / 3.0);
    d.add(left, d.at(half, m.h / 3.0), left + d.off(0.0, kNearLine));
}

void cotaHeels(PecaCotas& d, const Medidas& m, double heelX, double leg) {
    constexpr double kCosine = 1.0 / std::numbers::sqrt2;
    d.largura();
    d.altura();
    d.add(d.at(-m.a / 2.0, 0.0), d.at(m.a / 2.0, 0.0), d.face(1) + d.off(0.0, -kFarLine));
    const AcGePoint3d tip = d.at(heelX + leg * kCosine, leg * kCosine);
    d.add(tip, tip + d.by(m.t * kCosine, -m.t * kCosine),
          tip + d.off(kNearLine * kCosine, kNearLine * kCosine));
}

void cotaFacing(PecaCotas& d, const Medidas& m) {
    d.largura();
    d.altura();
    const double half = halfOutsideLargura(m);
    const AcGePoint3d back = d.at(half, 0.0);
    d.add(d.at(half - m.t, 0.0), back, back + d.off(kNearLine, 0.0));
    const AcGePoint3d left = atLowerEdge(d, m.b - half);
    d.add(left, atLowerEdge(d, half - m.b), left + d.off(0.0, -kFarLine));
}

void cotaVaoBelow(PecaCotas& d, const Medidas& m) {
    const AcGePoint3d left = atLowerEdge(d, -m.a / 2.0);
    d.add(left, atLowerEdge(d, m.a / 2.0), left + d.off(0.0, -kFarLine));
}

}  // namespace perfis
