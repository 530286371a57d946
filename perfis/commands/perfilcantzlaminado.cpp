// SPDX-License-Identifier: MIT
// Command perfilcantzlaminado: Z of two rolled angles.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

/// The upper angle stands av above the lower one.
double halfShiftedHeight(const Medidas& m) { return (m.h + m.av) / 2.0; }

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCantZLaminada>(point, request.view, m.h, m.b, m.t, m.t, m.a, m.av,
                                             0.0, 0.0, request.length, pairMass(m), pairArea(m));
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCantZLaminada>(start, end, request.view, m.h, m.b, m.t, m.t, m.a,
                                             m.av, 0.0, pairMass(m), pairArea(m));
}

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
    .onePoint = onePoint,
    .twoPoints = twoPoints,
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

std::unique_ptr<ProfileRun> perfilcantzlaminado() { return makeBuiltUp(kDescription, kRule); }

}  // namespace perfis
