// SPDX-License-Identifier: MIT
// Command perfil2u: I of two cold-formed U.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_secoes.h"
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

constexpr RoleValue kValues[] = {
    {H, &Medidas::h}, {B1, &Medidas::b}, {B2, &Medidas::b},
    {T, &Medidas::t}, {Ri, &Medidas::t}, {Vao, &Medidas::a},
};

void cotaSecao(PecaCotas& d, const Medidas& m) {
    cotaWVT(d, m);
    cotaVaoBelow(d, m);
}

const PerfilDescription kDescription = {
    .dialog = L"p2ua_geracao",
    .list = L"pua.lst",
    .buildRow = rowOfHbta,
    .slides = L"p2ua",
    .figures = 4,
    .tiles = kTilesHbta,
    .insertions = kFourCorners<halfAcrossVao, halfAltura>,
    .wrong = wrongVao,
    .pecas = kPecaClass<ZpIDobrado, Kind::IDobrado>,
    .values = kValues,
    .cotaSecao = cotaSecao,
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kVao,
    .sides = SidesDrawn::kAll,
    .chapaAltura = ChapaAltura::kClearance,
    .minAltura = [](const Medidas& m) { return m.a - 1.0; },
    .maxAltura = [](const Medidas& m) { return m.a; },
    .layChapas = layOnBothFlanges,
};

}  // namespace

const PerfilCommand pidobrado{kDescription, [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
