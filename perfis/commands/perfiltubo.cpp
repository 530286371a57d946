// SPDX-License-Identifier: MIT
// Command perfiltubo: round tube.
#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/profile_run.h"
#include "perfis/dialogs/tiles.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

constexpr DimensionTile kTiles[] = {
    {L"d", &Medidas::d, L"0"},
    {L"di", &Medidas::di, L"0"},
};

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    // The class has no form with one point.
    AcGePoint3d end = point + AcGeVector3d::kXAxis * request.length;
    return std::make_unique<ZpTubo>(point, end, request.view, m.d, m.d - 2.0 * m.di);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpTubo>(start, end, request.view, m.d, m.d - 2.0 * m.di);
}

/// A wall of half the diameter or more passes: the tube is then solid.
Medida wrong(const Medidas& m) {
    const Medida missing = firstNotPositive(m, {&Medidas::d, &Medidas::di});
    return missing == nullptr && m.d <= m.di ? &Medidas::di : missing;
}

std::wstring rowOfTube(ads_hdlg dialog) {
    return tileText(dialog, L"d") + L'\t' + tileText(dialog, L"di");
}

/// The limit points of a tube's section stand on its inner diameter.
void dimensionSection(PieceDimensions& d, const Medidas& m) {
    const AcGePoint3d left = d.face(1) + d.by(-m.di, -m.di);
    const AcGePoint3d right = d.face(3) + d.by(m.di, -m.di);
    d.add(left, right, left + d.off(0.0, -kNearLine));
    const AcGePoint3d outside = d.at(m.d / 2.0, 0.0);
    d.add(d.at(m.d / 2.0 - m.di, 0.0), outside, outside + d.off(kNearLine, 0.0));
}

const ProfileDescription kTubo = {
    .dialog = L"ptb_geracao",
    .list = L"ptb.lst",
    .buildRow = rowOfTube,
    .slides = L"ptb",
    .figures = 1,
    .tiles = kTiles,
    .insertions = kRoundInsertions,
    .wrong = wrong,
    .memberShift = roundMemberShift,
    .onePoint = onePoint,
    .twoPoints = twoPoints,
    .dimensionSection = dimensionSection,
    .keepsLengthInSection = true,
};

}  // namespace

std::unique_ptr<ProfileRun> perfiltubo() { return std::make_unique<ProfileRun>(kTubo); }

}  // namespace perfis
