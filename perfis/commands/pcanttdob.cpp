// SPDX-License-Identifier: MIT
// Command pcdtee: T of two cold-formed angles.
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
    {H, &Medidas::h}, {B1, &Medidas::b}, {T, &Medidas::t}, {Ri, &Medidas::t}, {Vao, &Medidas::a},
};

const ProfileDescription kDescription = {
    .dialog = L"p2la_geracao",
    .list = L"pltee.lst",
    .buildRow = rowOfHbta,
    .slides = L"p2la",
    .figures = 4,
    .tiles = kTilesHbta,
    .insertions = kUpperCorners<halfAcrossGap, thirdOfHeight>,
    .wrong = wrongGap,
    .memberShift = nullptr,
    .pieces = kPieceClass<ZpCantTDobrada, Classe::CantTDobrada>,
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

const ProfileCommand pcanttdob{kDescription, [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
