// SPDX-License-Identifier: MIT
// Command pcdtee: T of two cold-formed angles.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_secoes.h"
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

constexpr RoleValue kValues[] = {
    {H, &Medidas::h}, {B1, &Medidas::b}, {T, &Medidas::t}, {Ri, &Medidas::t}, {Vao, &Medidas::a},
};

const PerfilDescription kDescription = {
    .dialog = L"p2la_geracao",
    .list = L"pltee.lst",
    .buildRow = rowOfHbta,
    .slides = L"p2la",
    .figures = 4,
    .tiles = kTilesHbta,
    .insertions = kUpperCorners<halfAcrossVao, thirdOfAltura>,
    .wrong = wrongVao,
    .pecas = kPecaClass<ZpCantTDobrada, Kind::CantTDobrada>,
    .values = kValues,
    .cotaSecao = cotaTee,
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kVao,
    .sides = SidesDrawn::kAboveAndRight,
    .chapaAltura = ChapaAltura::kUser,
    .minAltura = [](const Medidas& m) { return m.a; },
    .maxAltura = [](const Medidas& m) { return m.a + 2.0 * m.b; },
    .layChapas =
        [](const BarraTravejada& barra) { return layOnFace(barra, thirdOfAltura(barra.medidas)); },
};

}  // namespace

const PerfilCommand pcanttdob{kDescription, [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
