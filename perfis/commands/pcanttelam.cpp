// SPDX-License-Identifier: MIT
// Command cantdteel: T of two rolled angles.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCantTEELaminada>(point, request.view, m.h, m.b, m.t, 0.0,
                                               2.0 * m.h / 3.0, m.t, m.a, 0.0, 0.0, request.length,
                                               pairMass(m), pairArea(m));
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCantTEELaminada>(start, end, request.view, m.h, m.b, m.t, 0.0,
                                               2.0 * m.h / 3.0, m.t, m.a, 0.0, pairMass(m),
                                               pairArea(m));
}

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
    .onePoint = onePoint,
    .twoPoints = twoPoints,
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

std::unique_ptr<ProfileRun> pcanttelam() { return makeBuiltUp(kDescription, kRule); }

}  // namespace perfis
