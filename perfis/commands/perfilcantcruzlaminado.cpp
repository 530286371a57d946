// SPDX-License-Identifier: MIT
// Command perfilcantcruzlaminado: star of two rolled angles, laced in one or two planes.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

double legAndHalfAv(const Medidas& m) { return m.h + m.av / 2.0; }

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCantCruzLaminada>(point, request.view, m.h, m.b, m.t, m.t, m.a, m.av,
                                                0.0, 0.0, request.length, pairMass(m), pairArea(m));
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCantCruzLaminada>(start, end, request.view, m.h, m.b, m.t, m.t, m.a,
                                                m.av, 0.0, pairMass(m), pairArea(m));
}

void dimensionSection(PieceDimensions& d, const Medidas& m) {
    d.width();
    d.height();
    dimensionGapBelow(d, m);
    AcGePoint3d lower = d.at(0.0, -m.av / 2.0);
    lower.x = d.face(1).x;
    d.add(lower, lower + d.by(0.0, m.av), lower + d.off(-kFarLine, 0.0));
    AcGePoint3d back = d.at(m.a / 2.0, 0.0);
    back.y = d.face(0).y;
    d.add(back, back + d.by(m.t, 0.0), back + d.off(0.0, kNearLine));
}

const ProfileDescription kDescription = {
    .dialog = L"pcclam_geracao",
    .list = L"pl_lam.lst",
    .edits = CatalogueEdits::kNone,
    .massColumn = true,
    .slides = L"pcclam",
    .figures = 4,
    .tiles = kTilesRolledAv,
    .insertions = kOppositeCorners<halfAcrossGap, legAndHalfAv, legAndHalfAv>,
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
    .layPlates = layThroughAxis,
    .choosesPlanes = true,
};

}  // namespace

std::unique_ptr<ProfileRun> perfilcantcruzlaminado() { return makeBuiltUp(kDescription, kRule); }

}  // namespace perfis
