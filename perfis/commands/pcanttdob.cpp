// SPDX-License-Identifier: MIT
// Command pcdtee: T of two cold-formed angles.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_sections.h"
#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCantTDobrada>(point, request.view, m.h, m.b, m.t, m.t, m.a,
                                            request.length, 0.0, 0.0, 0.0);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCantTDobrada>(start, end, request.view, m.h, m.b, m.t, m.t, m.a, 0.0,
                                            0.0);
}

const ProfileDescription kDescription = {
    .dialog = L"p2la_geracao",
    .list = L"pltee.lst",
    .buildRow = rowOfHbta,
    .slides = L"p2la",
    .figures = 4,
    .tiles = kTilesHbta,
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

std::unique_ptr<ProfileRun> pcanttdob() { return makeBuiltUp(kDescription, kRule); }

}  // namespace perfis
