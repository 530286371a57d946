// SPDX-License-Identifier: MIT
// Command perfilicartola: I of two hat sections, top to top.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_sections.h"
#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

constexpr double kHats = 1.0;

/// The lips stand out of the height h, which is that of the tops.
double halfHeightWithLips(const Medidas& m) { return m.h / 2.0 - m.t + m.e; }

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpIDobrado>(point, request.view, m.h, m.b, m.b, m.t, m.t, m.a,
                                        request.length, m.e, kHats, 0.0);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpIDobrado>(start, end, request.view, m.h, m.b, m.b, m.t, m.t, m.a, m.e,
                                        kHats);
}

void dimensionSection(PieceDimensions& d, const Medidas& m) {
    d.width();
    d.height();
    d.add(d.face(2) - d.by(m.t, 0.0), d.face(2), d.face(2) + d.off(0.0, kNearLine));
    dimensionGapBelow(d, m);
    d.add(d.face(2) - d.by(0.0, m.e), d.face(2), d.face(2) + d.off(kNearLine, 0.0));
}

const ProfileDescription kDescription = {
    .dialog = L"i2c_geracao",
    .list = L"picart.lst",
    .buildRow = rowOfHbta,
    .slides = L"i2c",
    .figures = 4,
    .tiles = kTilesLipped,
    .insertions = kFourCorners<halfAcrossGap, halfHeightWithLips>,
    .wrong = wrongGapOrLip,
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

std::unique_ptr<ProfileRun> perfilicartola() { return makeBuiltUp(kDescription, kRule); }

}  // namespace perfis
