// SPDX-License-Identifier: MIT
// Command perfilz: cold-formed Z with lips.
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/perfil_run.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

constexpr Insertion kInsertions[] = {
    {L"RIGHT DOWN", [](const Medidas& m) { return Shift(-(m.b - m.t / 2.0), m.h / 2.0); }},
    {L"LEFT DOWN", [](const Medidas& m) { return Shift(m.b - m.t / 2.0, m.h / 2.0); }},
};

Shift barraShift(const Medidas& m, const BarraPlace& place) {
    return shiftByReach(symmetricReach(m.h, 2.0 * m.b - m.t, place.vista), place);
}

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},  {B1, &Medidas::b},   {Aba, &Medidas::a},  {T, &Medidas::t},
    {Ri, &Medidas::t}, {Ang1, kRightAngle}, {Ang2, kRightAngle},
};

void cotaSecao(PecaCotas& d, const Medidas& m) {
    d.largura();
    d.altura();
    d.add(d.face(3), d.face(3) + d.by(0.0, m.t), d.face(3) + d.off(kNearLine, 0.0));
    d.add(d.face(3), d.face(3) + d.by(0.0, m.a), d.face(3) + d.off(kFarLine, 0.0));
}

const PerfilDescription kPerfilZ = {
    .dialog = L"pz_geracao",
    .list = L"pz.lst",
    .buildRow = rowOfHbta,
    .slides = L"pz",
    .figures = 2,
    .tiles = kTilesHbta,
    .insertions = kInsertions,
    .wrong = wrongHbta,
    .barraShift = barraShift,
    .pecas = kPecaClass<ZpZDobrado, Kind::ZDobrado>,
    .values = kValues,
    .cotaSecao = cotaSecao,
};

}  // namespace

const PerfilCommand pzdobrado{kPerfilZ};

}  // namespace perfis
