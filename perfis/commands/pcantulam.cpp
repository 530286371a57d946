// SPDX-License-Identifier: MIT
// Command cantdul: U of two rolled angles.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},  {B1, &Medidas::b},
    {T, &Medidas::t},  {Ey, [](const Medidas& m) { return 2.0 * m.h / 3.0; }},
    {Ri, &Medidas::t}, {Vao, &Medidas::a},
    {M, pairPeso},     {A, pairArea},
};

const PerfilDescription kDescription = {
    .dialog = L"plf_lam_geracao",
    .list = L"pl_lam.lst",
    .edits = CatalogueEdits::kNone,
    .pesoColumn = true,
    .slides = L"plf_lam",
    .figures = 4,
    .tiles = kTilesRolled,
    .insertions = kUpperCorners<halfOutsideLargura, thirdOfAltura>,
    .wrong = wrongLargura,
    .pecas = kPecaClass<ZpCantULaminada, Kind::CantULaminada>,
    .values = kValues,
    .cotaSecao = cotaTrough,
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kLargura,
    .sides = SidesDrawn::kAboveAndRight,
    .chapaAltura = ChapaAltura::kUser,
    .minAltura = [](const Medidas& m) { return m.a - 2.0 * m.b; },
    .maxAltura = [](const Medidas& m) { return m.a - 2.0 * m.t; },
    .layChapas =
        [](const BarraTravejada& barra) { return layOnFace(barra, thirdOfAltura(barra.medidas)); },
};

}  // namespace

const PerfilCommand pcantulam{kDescription, [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
