// SPDX-License-Identifier: MIT
// Command perfilbox: rectangular box.
#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/profile_run.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

constexpr Insertion kInsertions[] = {
    {L"RIGHT DOWN",
     [](const Medidas& m) {
         return Shift{-m.b / 2.0, m.h / 2.0};
     }},
    {L"LEFT DOWN",
     [](const Medidas& m) {
         return Shift{m.b / 2.0, m.h / 2.0};
     }},
    {L"RIGHT UPPER",
     [](const Medidas& m) {
         return Shift{-m.b / 2.0, -m.h / 2.0};
     }},
    {L"LEFT UPPER",
     [](const Medidas& m) {
         return Shift{m.b / 2.0, -m.h / 2.0};
     }},
    {L"CENTER", [](const Medidas&) { return Shift{}; }},
};

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpBox>(point, request.view, m.h, m.b, m.t, m.t, request.length, 0.0,
                                   0.0);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpBox>(start, end, request.view, m.h, m.b, m.t, m.t, 0.0);
}

const ProfileDescription kBox = {
    .dialog = L"pbox_geracao",
    .list = L"pbox.lst",
    .makeCatalogue = makeStringListCatalogue,
    .edits = CatalogueEdits::kWrittenBack,
    .buildRow = rowOfHbta,
    .slides = L"pbox",
    .figures = 2,
    .tiles = kTilesHbt,
    .insertions = kInsertions,
    .wrong = wrongHbt,
    .memberShift = boxMemberShift,
    .onePoint = onePoint,
    .twoPoints = twoPoints,
    .dimensionSection = dimensionWVT,
};

}  // namespace

std::unique_ptr<ProfileRun> perfilbox() { return std::make_unique<ProfileRun>(kBox); }

}  // namespace perfis
