// SPDX-License-Identifier: MIT
// Command perfilduc: box of two cold-formed U facing each other.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_sections.h"
#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCaixaDobrado>(point, request.view, m.h, m.b, m.t, m.t, m.a,
                                            request.length, 0.0, 0.0, 0.0);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCaixaDobrado>(start, end, request.view, m.h, m.b, m.t, m.t, m.a, 0.0,
                                            0.0);
}

const ProfileDescription kDescription = {
    .dialog = L"p2uf_geracao",
    .list = L"puf.lst",
    .buildRow = rowOfHbta,
    .slides = L"puf",
    .figures = 4,
    .tiles = kTilesHbta,
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

std::unique_ptr<ProfileRun> pcxdobrado() { return makeBuiltUp(kDescription, kRule); }

}  // namespace perfis
