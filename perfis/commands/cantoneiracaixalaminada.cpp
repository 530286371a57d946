// SPDX-License-Identifier: MIT
// Command cantoneiracaixalaminada: box of two rolled angles.
#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/profile_run.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

/// One angle stands on the other's leg.
double halfHeight(const Medidas& m) { return (m.h + m.t) / 2.0; }

constexpr Insertion kInsertions[] = {
    {L"RIGHT DOWN",
     [](const Medidas& m) {
         return Shift{-m.b / 2.0, halfHeight(m)};
     }},
    {L"LEFT DOWN",
     [](const Medidas& m) {
         return Shift{m.b / 2.0, halfHeight(m)};
     }},
    {L"RIGHT UPPER",
     [](const Medidas& m) {
         return Shift{-m.b / 2.0, -halfHeight(m)};
     }},
    {L"LEFT UPPER",
     [](const Medidas& m) {
         return Shift{m.b / 2.0, -halfHeight(m)};
     }},
    {L"CENTER", [](const Medidas&) { return Shift{}; }},
};

Shift memberShift(const Medidas& m, const MemberPlace& place) {
    return shiftByReach(symmetricReach(2.0 * halfHeight(m), m.b, place.view), place);
}

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCantLaminadaCaixa>(point, request.view, m.h, m.b, m.t, m.t, 0.0, 0.0,
                                                 request.length, 2.0 * m.m,
                                                 2.0 * kAreaOfMass * m.m);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCantLaminadaCaixa>(start, end, request.view, m.h, m.b, m.t, m.t, 0.0,
                                                 2.0 * m.m, 2.0 * kAreaOfMass * m.m);
}

const ProfileDescription kCaixaDeCantoneiras = {
    .dialog = L"pllam_geracao",
    .list = L"pl_lam.lst",
    .edits = CatalogueEdits::kNone,
    .massColumn = true,
    .slides = L"pccl",
    .figures = 2,
    .tiles = kTilesHbt,
    .insertions = kInsertions,
    .wrong = wrongHbt,
    .memberShift = memberShift,
    .onePoint = onePoint,
    .twoPoints = twoPoints,
    .dimensionSection = dimensionWVT,
};

}  // namespace

std::unique_ptr<ProfileRun> cantoneiracaixalaminada() {
    return std::make_unique<ProfileRun>(kCaixaDeCantoneiras);
}

}  // namespace perfis
