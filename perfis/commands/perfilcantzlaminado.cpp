// SPDX-License-Identifier: MIT
// Command perfilcantzlaminado: Z of two rolled angles.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

using zp::secao::Classe;
using enum zp::secao::Papel;

/// The upper angle stands av above the lower one.
double halfShiftedHeight(const Medidas& m) { return (m.h + m.av) / 2.0; }

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},   {B1, &Medidas::b},    {T, &Medidas::t}, {Ri, &Medidas::t},
    {Vao, &Medidas::a}, {VaoV, &Medidas::av}, {M, pairMass},    {A, pairArea},
};

void dimensionSection(PieceDimensions& d, const Medidas& m) {
    d.width();
    d.height();
    d.add(d.face(3), d.face(3) + d.by(0.0, m.t), d.face(3) + d.off(kNearLine, 0.0));
    dimensionGapBelow(d, m);
}

const ProfileDescription kDescription = {
    .dialog = L"pczlam_geracao",
    .list = L"pl_lam.lst",
    .edits = CatalogueEdits::kNone,
    .massColumn = true,
    .slides = L"pczlam",
    .figures = 4,
    .tiles = kTilesRolledAv,
    .insertions = kUpperCorners<halfAcrossGap, halfShiftedHeight>,
    .wrong = wrongGapOrAv,
    .memberShift = nullptr,
    .pieces = kPieceClass<ZpCantZLaminada, Classe::CantZLaminada>,
    .values = kValues,
    .dimensionSection = dimensionSection,
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kGap,
    .sides = SidesDrawn::kAboveAndRight,
    .plateHeight = PlateHeight::kUser,
    .minHeight = [](const Medidas& m) { return m.a; },
    .maxHeight = [](const Medidas& m) { return m.a + 2.0 * m.b; },
    .layPlates =
        [](const LacedMember& member) {
            return layOnFace(member, halfShiftedHeight(member.medidas));
        },
};

}  // namespace

const ProfileCommand perfilcantzlaminado{kDescription,
                                         [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
