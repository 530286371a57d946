// SPDX-License-Identifier: MIT
// Command perfilc: hat section.
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/travejamento_run.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

/// Half the width over the lips, which are measured from the inner face of the sides.
double halfLargura(const Medidas& m) { return m.b / 2.0 - m.t + m.a; }

constexpr Insertion kInsertions[] = {
    {L"RIGHT DOWN", [](const Medidas& m) { return Shift(-halfLargura(m), m.h / 2.0); }},
    {L"MID DOWN", [](const Medidas& m) { return Shift(0.0, m.h / 2.0); }},
    {L"LEFT DOWN", [](const Medidas& m) { return Shift(halfLargura(m), m.h / 2.0); }},
    {L"MID UPPER", [](const Medidas& m) { return Shift(0.0, -m.h / 2.0); }},
};

Shift barraShift(const Medidas& m, const BarraPlace& place) {
    return shiftByReach(symmetricReach(m.h, 2.0 * halfLargura(m), place.vista), place);
}

constexpr RoleValue kValues[] = {
    {H, &Medidas::h}, {B1, &Medidas::b}, {T, &Medidas::t}, {Ri, &Medidas::t}, {Aba, &Medidas::a},
};

void cotaSecao(PecaCotas& d, const Medidas& m) {
    d.largura();
    d.altura();
    d.add(d.face(3), d.face(3) + d.by(0.0, m.t), d.face(3) + d.off(kNearLine, 0.0));
    const AcGePoint3d top = d.at(-m.b / 2.0, m.h / 2.0);
    d.add(top, d.at(m.b / 2.0, m.h / 2.0), top + d.off(0.0, kNearLine));
    d.add(d.face(3) - d.by(m.a, 0.0), d.face(3), d.face(3) + d.off(0.0, -kFarLine));
}

const PerfilDescription kCartola = {
    .dialog = L"pc_geracao",
    .list = L"pc.lst",
    .buildRow = rowOfHbta,
    .slides = L"pc",
    .figures = 2,
    .tiles = kTilesHbta,
    .insertions = kInsertions,
    .wrong = wrongHbta,
    .barraShift = barraShift,
    .pecas = kPecaClass<ZpCartola, Kind::Cartola>,
    .values = kValues,
    .cotaSecao = cotaSecao,
};

/// The plates close the open side.
constexpr ToggleTravejamento kTravejamento = {
    .maxAltura = [](const Medidas& m) { return m.b + 2.0 * m.a - 2.0 * m.t; },
    .edgeRow = [](const Medidas& m) { return -m.h / 2.0 - m.t / 2.0; },
};

}  // namespace

const PerfilCommand pcartola{kCartola, [] { return makeTravejado(kCartola, kTravejamento); }};

}  // namespace perfis
