// SPDX-License-Identifier: MIT
// Command cantdvvl: two rolled angles heel to heel, legs at 45 degrees.
#include <numbers>

#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

constexpr double kRoot2 = std::numbers::sqrt2;

/// From the reference point to the rounded tips, sideways, up and down.
double tipX(const Medidas& m) {
    const double toeRadius = m.t / 2.0;
    return m.a / 2.0 + (m.h + m.t) / kRoot2 - toeRadius * (kRoot2 - 1.0);
}
double tipY(const Medidas& m) { return m.h / kRoot2; }

/// A third of the leg along both of the angle's axes, as the class of one angle takes it.
double axisValue(const Medidas& m) { return -2.0 * m.h / (6.0 * kRoot2); }

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpBNDuplaLaminada>(point, request.view, m.h, m.t, axisValue(m), m.t,
                                               m.a, 0.0, 0.0, request.length, pairMass(m),
                                               pairArea(m));
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpBNDuplaLaminada>(start, end, request.view, m.h, m.t, axisValue(m),
                                               m.t, m.a, 0.0, pairMass(m), pairArea(m));
}

const ProfileDescription kDescription = {
    .dialog = L"plv_lam_geracao",
    .list = L"pl_lam.lst",
    .edits = CatalogueEdits::kNone,
    .massColumn = true,
    .slides = L"plv_lam",
    .figures = 4,
    .tiles = kTilesRolled,
    .insertions = kOppositeCorners<tipX, tipY, tipY>,
    .wrong = wrongGap,
    .memberShift = nullptr,
    .onePoint = onePoint,
    .twoPoints = twoPoints,
    .dimensionSection = [](PieceDimensions& d,
                           const Medidas& m) { dimensionHeels(d, m, m.a / 2.0, m.h); },
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kGap,
    .sides = SidesDrawn::kAboveAndRight,
    .plateHeight = PlateHeight::kClearance,
    .minHeight = [](const Medidas& m) { return m.a - 1.0; },
    .maxHeight = [](const Medidas& m) { return m.a; },
    .layPlates =
        [](const LacedMember& member) { return layOnFace(member, -member.medidas.t / 2.0); },
};

}  // namespace

std::unique_ptr<ProfileRun> pcantcruzlam() { return makeBuiltUp(kDescription, kRule); }

}  // namespace perfis
