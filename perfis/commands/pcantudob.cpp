// SPDX-License-Identifier: MIT
// Command pcantoneiradu: U of two cold-formed angles.
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
    .dialog = L"plf_geracao",
    .list = L"plf.lst",
    .buildRow = rowOfHbta,
    .slides = L"plf",
    .figures = 4,
    .tiles = kTilesHbta,
    .insertions = kUpperCorners<halfOutsideLargura, thirdOfAltura>,
    .wrong = wrongLargura,
    .pecas = kPecaClass<ZpCantUDobrada, Kind::CantUDobrada>,
    .values = kValues,
    .cotaSecao = cotaTrough,
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kLargura,
    .sides = SidesDrawn::kAboveAndRight,
    .chapaAltura = ChapaAltura::kUser,
    .minAltura = [](const Medidas& m) { return m.a - 2.0 * m.b; },
    .maxAltura = [](const Medidas& m) { return m.a + 2.0 * m.b; },
    .layChapas =
        [](const BarraTravejada& barra) { return layOnFace(barra, thirdOfAltura(barra.medidas)); },
};

}  // namespace

const PerfilCommand pcantudob{kDescription, [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
