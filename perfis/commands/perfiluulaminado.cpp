// SPDX-License-Identifier: MIT
// Command perfiluulaminado: box of two rolled U facing each other.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_secoes.h"
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},
    {B1, &Medidas::b},
    {T, &Medidas::t},
    {B2, &Medidas::b},
    {Tf1, &Medidas::t},
    {Tf2, &Medidas::t},
    {Vao, &Medidas::a},
    {Ri, &Medidas::t},
    {A, [](const Medidas& m) { return 2.0 * rolledUArea(m); }},
    {M, [](const Medidas& m) { return 2.0 * m.m; }},
};

const PerfilDescription kDescription = {
    .dialog = L"puulam_geracao",
    .list = L"pu_lam.lst",
    .edits = CatalogueEdits::kNone,
    .pesoColumn = true,
    .slides = L"puulam",
    .figures = 4,
    .tiles = kTilesRolled,
    .insertions = kFourCorners<halfOutsideLargura, halfAltura>,
    .wrong = wrongLargura,
    .pecas = kPecaClass<ZpUULaminado, Kind::UULaminado>,
    .values = kValues,
    .cotaSecao = cotaFacing,
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kLargura,
    .sides = SidesDrawn::kAll,
    .chapaAltura = ChapaAltura::kUser,
    .minAltura = [](const Medidas& m) { return m.a - 2.0 * m.b; },
    .maxAltura = [](const Medidas& m) { return m.a; },
    .layChapas = layOnBothFlanges,
};

}  // namespace

const PerfilCommand perfiluulaminado{kDescription, [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
