// SPDX-License-Identifier: MIT
// Command pcantoneiradu: U of two cold-formed angles.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_sections.h"
#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCantUDobrada>(point, request.view, m.h, m.b, m.t, m.t, m.a,
                                            request.length, 0.0, 0.0, 0.0);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCantUDobrada>(start, end, request.view, m.h, m.b, m.t, m.t, m.a, 0.0,
                                            0.0);
}

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
    .onePoint = onePoint,
    .twoPoints = twoPoints,
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

std::unique_ptr<ProfileRun> pcantudob() { return makeBuiltUp(kDescription, kRule); }

}  // namespace perfis
