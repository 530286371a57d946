// SPDX-License-Identifier: MIT
// Command perfilcl: rolled angle.
#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/profile_run.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

constexpr Insertion kInsertions[] = {
    {L"RIGHT UPPER",
     [](const Medidas& m) {
         return Shift{-2.0 * m.b / 3.0, -m.h / 3.0};
     }},
    {L"LEFT DOWN",
     [](const Medidas& m) {
         return Shift{m.b / 3.0, 2.0 * m.h / 3.0};
     }},
    {L"CENTER", [](const Medidas&) { return Shift{}; }},
};

Shift memberShift(const Medidas& m, const MemberPlace& place) {
    const double size = place.view == 1 || place.view == 2 ? m.b : m.h;
    return shiftByReach({-2.0 * size / 3.0, size / 3.0}, place);
}

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCantLaminada>(point, request.view, m.h, m.b, m.t, m.b / 3.0,
                                            2.0 * m.h / 3.0, m.t, 0.0, 0.0, request.length, m.m,
                                            kAreaOfMass * m.m);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCantLaminada>(start, end, request.view, m.h, m.b, m.t, m.b / 3.0,
                                            2.0 * m.h / 3.0, m.t, 0.0, m.m, kAreaOfMass * m.m);
}

const ProfileDescription kCantoneiraLaminada = {
    .dialog = L"pllam_geracao",
    .list = L"pl_lam.lst",
    .edits = CatalogueEdits::kNone,
    .massColumn = true,
    .slides = L"pl_lam",
    .figures = 4,
    .tiles = kTilesHbt,
    .insertions = kInsertions,
    .wrong = wrongHbt,
    .memberShift = memberShift,
    .onePoint = onePoint,
    .twoPoints = twoPoints,
    .dimensionSection = dimensionWVT,
};

}  // namespace

std::unique_ptr<ProfileRun> pcantlam() { return std::make_unique<ProfileRun>(kCantoneiraLaminada); }

}  // namespace perfis
