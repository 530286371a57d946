// SPDX-License-Identifier: MIT
// Command perfil2uenr: I of two cold-formed lipped U.
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
                                        request.length, m.e, 0.0, 0.0);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpIDobrado>(start, end, request.view, m.h, m.b, m.b, m.t, m.t, m.a, m.e,
                                        0.0);
}

void dimensionSection(PieceDimensions& d, const Medidas& m) {
    dimensionWVT(d, m);
    dimensionGapBelow(d, m);
    d.add(d.face(2), d.face(2) - d.by(0.0, m.e), d.face(2) + d.off(kFarLine, 0.0));
}

const ProfileDescription kDescription = {
    .dialog = L"p2uenr_geracao",
    .list = L"puaenr.lst",
    .buildRow = rowOfHbta,
    .slides = L"p2uenr",
    .figures = 4,
    .tiles = kTilesLipped,
    .insertions = kFourCorners<halfAcrossGap, halfHeight>,
    .wrong = wrongGapOrLip,
    .memberShift = nullptr,
    .onePoint = onePoint,
    .twoPoints = twoPoints,
    .dimensionSection = dimensionSection,
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kGap,
    .sides = SidesDrawn::kAll,
    .plateHeight = PlateHeight::kUser,
    .minHeight = [](const Medidas& m) { return m.a; },
    .maxHeight = [](const Medidas& m) { return m.a + 2.0 * m.b; },
    .layPlates = layOnBothFlanges,
};

}  // namespace

std::unique_ptr<ProfileRun> pienrdobrado() { return makeBuiltUp(kDescription, kRule); }

}  // namespace perfis
