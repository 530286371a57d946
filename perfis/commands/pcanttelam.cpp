// SPDX-License-Identifier: MIT
// Command cantdteel: T of two rolled angles.
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
    .dialog = L"p2la_lam_geracao",
    .list = L"pl_lam.lst",
    .edits = CatalogueEdits::kNone,
    .massColumn = true,
    .slides = L"pla_lam",
    .figures = 4,
    .tiles = kTilesRolled,
    .insertions = kUpperCorners<halfAcrossGap, thirdOfHeight>,
    .wrong = wrongGap,
    .memberShift = nullptr,
    .pieces = kPieceClass<ZpCantTEELaminada, Classe::CantTEELaminada>,
    .values = kValues,
    .dimensionSection = dimensionTee,
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kGap,
    .sides = SidesDrawn::kAboveAndRight,
    .plateHeight = PlateHeight::kUser,
    .minHeight = [](const Medidas& m) { return m.a; },
    .maxHeight = [](const Medidas& m) { return m.a + 2.0 * m.b; },
    .layPlates =
        [](const LacedMember& member) { return layOnFace(member, thirdOfHeight(member.medidas)); },
};

}  // namespace

const ProfileCommand pcanttelam{kDescription, [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
