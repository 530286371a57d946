// SPDX-License-Identifier: MIT
// Command perfilbarraredonda: round bar.
#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/profile_run.h"
#include "perfis/dialogs/tiles.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

constexpr DimensionTile kTiles[] = {{L"d", &Medidas::d, L"0"}};

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpBarraRedonda>(point, request.view, m.d, request.length, 0.0);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpBarraRedonda>(start, end, request.view, m.d);
}

Medida wrong(const Medidas& m) { return firstNotPositive(m, {&Medidas::d}); }

std::wstring rowOfBar(ads_hdlg dialog) { return tileText(dialog, L"d"); }

void dimensionSection(PieceDimensions& d, const Medidas&) { d.width(); }

const ProfileDescription kBarraRedonda = {
    .dialog = L"pbr_geracao",
    .list = L"pbr.lst",
    .buildRow = rowOfBar,
    .slides = L"pbr",
    .figures = 1,
    .tiles = kTiles,
    .insertions = kRoundInsertions,
    .wrong = wrong,
    .memberShift = roundMemberShift,
    .onePoint = onePoint,
    .twoPoints = twoPoints,
    .dimensionSection = dimensionSection,
};

}  // namespace

std::unique_ptr<ProfileRun> perfilbarraredonda() {
    return std::make_unique<ProfileRun>(kBarraRedonda);
}

}  // namespace perfis
