// SPDX-License-Identifier: MIT
// Command perfiluulaminado: box of two rolled U facing each other.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_sections.h"
#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpUULaminado>(point, request.view, m.h, m.b, m.t, m.b, m.t, m.t, m.a,
                                          m.t, 0.0, 0.0, request.length, 2.0 * rolledUArea(m),
                                          2.0 * m.m);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpUULaminado>(start, end, request.view, m.h, m.b, m.t, m.b, m.t, m.t,
                                          m.a, m.t, 0.0, 2.0 * rolledUArea(m), 2.0 * m.m);
}

const ProfileDescription kDescription = {
    .dialog = L"puulam_geracao",
    .list = L"pu_lam.lst",
    .edits = CatalogueEdits::kNone,
    .massColumn = true,
    .slides = L"puulam",
    .figures = 4,
    .tiles = kTilesRolled,
    .insertions = kFourCorners<halfOutsideWidth, halfHeight>,
    .wrong = wrongWidth,
    .memberShift = nullptr,
    .onePoint = onePoint,
    .twoPoints = twoPoints,
    .dimensionSection = dimensionFacing,
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kWidth,
    .sides = SidesDrawn::kAll,
    .plateHeight = PlateHeight::kUser,
    .minHeight = [](const Medidas& m) { return m.a - 2.0 * m.b; },
    .maxHeight = [](const Medidas& m) { return m.a; },
    .layPlates = layOnBothFlanges,
};

}  // namespace

std::unique_ptr<ProfileRun> perfiluulaminado() { return makeBuiltUp(kDescription, kRule); }

}  // namespace perfis
