// SPDX-License-Identifier: MIT
// Command perfilur: cold-formed lipped U.
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/perfil_run.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

using zp::secao::Kind;
using zp::secao::RoleValues;
using enum zp::secao::Role;

constexpr Insertion kInsertions[] = {
    {L"RIGHT DOWN", [](const Medidas& m) { return Shift(-2.0 * m.b / 3.0, m.h / 2.0); }},
    {L"LEFT DOWN", [](const Medidas& m) { return Shift(m.b / 3.0, m.h / 2.0); }},
    {L"MID LEFT", [](const Medidas& m) { return Shift(m.b / 3.0, 0.0); }},
};

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},  {B1, &Medidas::b},   {B2, &Medidas::b},   {T, &Medidas::t},
    {Ri, &Medidas::t}, {Ang1, kRightAngle}, {Ang2, kRightAngle}, {Aba, &Medidas::a},
};

void cotaSecao(PecaCotas& d, const Medidas& m) {
    cotaWVT(d, m);
    d.add(d.face(2), d.face(2) - d.by(0.0, m.a), d.face(2) + d.off(kFarLine, 0.0));
}

const PerfilDescription kPerfilUEnrijecido = {
    .dialog = L"pur_geracao",
    .list = L"pur.lst",
    .buildRow = rowOfHbta,
    .slides = L"pur",
    .figures = 3,
    .tiles = kTilesHbta,
    .insertions = kInsertions,
    .wrong = wrongHbta,
    .barraShift = uBarraShift,
    .pecas = kPecaClass<ZpUDobrado, Kind::UDobrado>,
    .values = kValues,
    .faces = kChannelFaces,
    .draws = [](const RoleValues& v) { return v[Aba] != 0.0; },
    .cotaSecao = cotaSecao,
};

}  // namespace

const PerfilCommand pudoben{kPerfilUEnrijecido};

}  // namespace perfis
