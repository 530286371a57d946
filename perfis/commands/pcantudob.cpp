// SPDX-License-Identifier: MIT
// Command pcantoneiradu: U of two cold-formed angles.
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
    .dialog = L"plf_geracao",
    .list = L"plf.lst",
    .buildRow = rowOfHbta,
    .slides = L"plf",
    .figures = 4,
    .tiles = kTilesHbta,
    .insertions = kUpperCorners<halfOutsideWidth, thirdOfHeight>,
    .wrong = wrongWidth,
    .memberShift = nullptr,
    .pieces = kPieceClass<ZpCantUDobrada, Classe::CantUDobrada>,
    .values = kValues,
    .dimensionSection = dimensionTrough,
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kWidth,
    .sides = SidesDrawn::kAboveAndRight,
    .plateHeight = PlateHeight::kUser,
    .minHeight = [](const Medidas& m) { return m.a - 2.0 * m.b; },
    .maxHeight = [](const Medidas& m) { return m.a + 2.0 * m.b; },
    .layPlates =
        [](const LacedMember& member) { return layOnFace(member, thirdOfHeight(member.medidas)); },
};

}  // namespace

const ProfileCommand pcantudob{kDescription, [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
