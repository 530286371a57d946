// SPDX-License-Identifier: MIT
// Command perfil2u: I of two cold-formed U.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_sections.h"
#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpIDobrado>(point, request.view, m.h, m.b, m.b, m.t, m.t, m.a,
                                        request.length, 0.0, 0.0, 0.0);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpIDobrado>(start, end, request.view, m.h, m.b, m.b, m.t, m.t, m.a, 0.0,
                                        0.0);
}

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

std::unique_ptr<ProfileRun> pidobrado() { return makeBuiltUp(kDescription, kRule); }

}  // namespace perfis
