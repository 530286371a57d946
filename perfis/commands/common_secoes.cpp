// SPDX-License-Identifier: MIT
// Parts that several single-piece commands have in common.
#include "perfis/commands/common_secoes.h"

#include "perfis/dialogs/tiles.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

constexpr MedidaTile kHbta[] = {
    {L"h", &Medidas::h, L"0"},
    {L"b", &Medidas::b, L"0"},
    {L"t", &Medidas::t, L"0.00"},
    {L"a", &Medidas::a, L"0"},
};

constexpr double kOneThird = 1.0 / 3.0;
constexpr double kTwoThirds = 2.0 / 3.0;

constexpr Insertion kUCorners[] = {
    {L"RIGHT DOWN", [](const Medidas& m) { return Shift(-kTwoThirds * m.b, m.h / 2.0); }},
    {L"LEFT DOWN", [](const Medidas& m) { return Shift(kOneThird * m.b, m.h / 2.0); }},
    {L"RIGHT UPPER", [](const Medidas& m) { return Shift(-kTwoThirds * m.b, -m.h / 2.0); }},
    {L"LEFT UPPER", [](const Medidas& m) { return Shift(kOneThird * m.b, -m.h / 2.0); }},
    {L"CENTER", [](const Medidas&) { return Shift(); }},
};

constexpr Insertion kRoundEdges[] = {
    {L"DOWN", [](const Medidas& m) { return Shift(0.0, m.d / 2.0); }},
    {L"RIGHT", [](const Medidas& m) { return Shift(-m.d / 2.0, 0.0); }},
    {L"LEFT", [](const Medidas& m) { return Shift(m.d / 2.0, 0.0); }},
    {L"CENTER", [](const Medidas&) { return Shift(); }},
};

}  // namespace

constinit const std::span<const MedidaTile> kTilesHbt(kHbta, 3);
constinit const std::span<const MedidaTile> kTilesHbta(kHbta);
constinit const std::span<const Insertion> kUInsertions(kUCorners);
constinit const std::span<const Insertion> kRoundInsertions(kRoundEdges);

double areaOfPeso(const Medidas& medidas) { return kAreaOfPeso * medidas.m; }

double equalCantoneiraAxis(const Medidas& medidas) {
    return -2.0 * medidas.h / (6.0 * std::numbers::sqrt2);
}

void readEqualLegs(Medidas& medidas, const zp::secao::RoleValues& values) {
    medidas.b = values[zp::secao::Role::H];
}

double rolledUArea(const Medidas& medidas) { return medidas.m * 100.0 * 1.271848; }

/// The mean thickness follows from the area; the inner face falls half of its fall further out. A
/// section without mass is drawn with flanges as thick as its web.
double rolledUToe(const Medidas& medidas) {
    const double t = medidas.t;
    if (medidas.m == 0.0 || medidas.b == t) return t;
    const double mean = (rolledUArea(medidas) - medidas.h * t) / (2.0 * (medidas.b - t));
    return mean - ZpULaminado::calcDeslocF(medidas.b, t);
}

std::wstring rowOfHbta(ads_hdlg dialog) {
    return buildRow(tileText(dialog, L"h"), tileText(dialog, L"b"), tileText(dialog, L"t"),
                    tileText(dialog, L"a"));
}

Medida wrongHbt(const Medidas& medidas) {
    return firstNotPositive(medidas, {&Medidas::h, &Medidas::b, &Medidas::t});
}

Medida wrongHbta(const Medidas& medidas) {
    return firstNotPositive(medidas, {&Medidas::h, &Medidas::b, &Medidas::t, &Medidas::a});
}

void cotaWVT(PecaCotas& cotas, const Medidas& medidas) {
    cotas.largura();
    cotas.altura();
    cotas.espessura(medidas.t);
}

Shift boxBarraShift(const Medidas& medidas, const BarraPlace& place) {
    return shiftByReach(symmetricReach(medidas.h, medidas.b, place.vista), place);
}

Shift roundBarraShift(const Medidas& medidas, const BarraPlace& place) {
    return shiftByReach(symmetricReach(medidas.d, medidas.d, place.vista), place);
}

}  // namespace perfis
