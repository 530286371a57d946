// SPDX-License-Identifier: MIT
// Command perfil2ulam: I of two rolled U.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_sections.h"
#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<Zp2ULaminado>(point, request.view, m.h, m.b, m.t, m.b, m.t, m.t,
                                          m.b / 3.0, m.t, m.a, 0.0, 0.0, request.length,
                                          2.0 * rolledUArea(m), 2.0 * m.m);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<Zp2ULaminado>(start, end, request.view, m.h, m.b, m.t, m.b, m.t, m.t,
                                          m.b / 3.0, m.t, m.a, 0.0, 2.0 * rolledUArea(m),
                                          2.0 * m.m);
}

void dimensionSection(PieceDimensions& d, const Medidas& m) {
    d.width();
    d.height();
    d.thickness(rolledUToe(m));
    dimensionGapBelow(d, m);
}

const ProfileDescription kDescription = {
    .dialog = L"p2ulam_geracao",
    .list = L"pu_lam.lst",
    .edits = CatalogueEdits::kNone,
    .massColumn = true,
    .slides = L"p2ulam",
    .figures = 4,
    .tiles = kTilesRolled,
    .insertions = kFourCorners<halfAcrossGap, halfHeight>,
    .wrong = wrongGap,
    .memberShift = nullptr,
    .onePoint = onePoint,
    .twoPoints = twoPoints,
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

std::unique_ptr<ProfileRun> perfil2ulam() { return makeBuiltUp(kDescription, kRule); }

}  // namespace perfis
