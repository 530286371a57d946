// SPDX-License-Identifier: MIT
// Command perfil2uenr: I of two cold-formed lipped U.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_secoes.h"
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

using zp::secao::Kind;
using zp::secao::RoleValues;
using enum zp::secao::Role;

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},  {B1, &Medidas::b},  {B2, &Medidas::b},  {T, &Medidas::t},
    {Ri, &Medidas::t}, {Vao, &Medidas::a}, {Aba, &Medidas::e},
};

void cotaSecao(PecaCotas& d, const Medidas& m) {
    cotaWVT(d, m);
    cotaVaoBelow(d, m);
    d.add(d.face(2), d.face(2) - d.by(0.0, m.e), d.face(2) + d.off(kFarLine, 0.0));
}

const PerfilDescription kDescription = {
    .dialog = L"p2uenr_geracao",
    .list = L"puaenr.lst",
    .buildRow = rowOfHbta,
    .slides = L"p2uenr",
    .figures = 4,
    .tiles = kTilesWithAba,
    .insertions = kFourCorners<halfAcrossVao, halfAltura>,
    .wrong = wrongVaoOrAba,
    .pecas = kPecaClass<ZpIDobrado, Kind::IDobrado>,
    .values = kValues,
    .draws = [](const RoleValues& v) { return v[Aba] != 0.0 && v[Species] != kCartolas; },
    .cotaSecao = cotaSecao,
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kVao,
    .sides = SidesDrawn::kAll,
    .chapaAltura = ChapaAltura::kUser,
    .minAltura = [](const Medidas& m) { return m.a; },
    .maxAltura = [](const Medidas& m) { return m.a + 2.0 * m.b; },
    .layChapas = layOnBothFlanges,
};

}  // namespace

const PerfilCommand pienrdobrado{kDescription, [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
