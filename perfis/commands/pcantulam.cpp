// SPDX-License-Identifier: MIT
// Command cantdul: U of two rolled angles.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

using zp::secao::Classe;
using enum zp::secao::Papel;

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},  {B1, &Medidas::b},
    {T, &Medidas::t},  {Ey, [](const Medidas& m) { return 2.0 * m.h / 3.0; }},
    {Ri, &Medidas::t}, {Vao, &Medidas::a},
    {M, pairMass},     {A, pairArea},
};

const ProfileDescription kDescription = {
    .dialog = L"plf_lam_geracao",
    .list = L"pl_lam.lst",
    .edits = CatalogueEdits::kNone,
    .massColumn = true,
    .slides = L"plf_lam",
    .figures = 4,
    .tiles = kTilesRolled,
    .insertions = kUpperCorners<halfOutsideWidth, thirdOfHeight>,
    .wrong = wrongWidth,
    .memberShift = nullptr,
    .pieces = kPieceClass<ZpCantULaminada, Classe::CantULaminada>,
    .values = kValues,
    .dimensionSection = dimensionTrough,
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kWidth,
    .sides = SidesDrawn::kAboveAndRight,
    .plateHeight = PlateHeight::kUser,
    .minHeight = [](const Medidas& m) { return m.a - 2.0 * m.b; },
    .maxHeight = [](const Medidas& m) { return m.a - 2.0 * m.t; },
    .layPlates =
        [](const LacedMember& member) { return layOnFace(member, thirdOfHeight(member.medidas)); },
};

}  // namespace

const ProfileCommand pcantulam{kDescription, [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
