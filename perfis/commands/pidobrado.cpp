// SPDX-License-Identifier: MIT
// Command perfil2u: I of two cold-formed U.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_secoes.h"
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

using zp::secao::Classe;
using enum zp::secao::Papel;

constexpr RoleValue kValues[] = {
    {H, &Medidas::h}, {B1, &Medidas::b}, {B2, &Medidas::b},
    {T, &Medidas::t}, {Ri, &Medidas::t}, {Vao, &Medidas::a},
};

void dimensionSection(PieceDimensions& d, const Medidas& m) {
    dimensionWVT(d, m);
    dimensionGapBelow(d, m);
}

const ProfileDescription kDescription = {
    .dialog = L"p2ua_geracao",
    .list = L"pua.lst",
    .buildRow = rowOfHbta,
    .slides = L"p2ua",
    .figures = 4,
    .tiles = kTilesHbta,
    .insertions = kFourCorners<halfAcrossGap, halfHeight>,
    .wrong = wrongGap,
    .memberShift = nullptr,
    .pieces = kPieceClass<ZpIDobrado, Classe::IDobrado>,
    .values = kValues,
    .dimensionSection = dimensionSection,
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kGap,
    .sides = SidesDrawn::kAll,
    .plateHeight = PlateHeight::kClearance,
    .minHeight = [](const Medidas& m) { return m.a - 1.0; },
    .maxHeight = [](const Medidas& m) { return m.a; },
    .layPlates = layOnBothFlanges,
};

}  // namespace

const ProfileCommand pidobrado{kDescription, [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
