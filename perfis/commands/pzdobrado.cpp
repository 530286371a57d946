// SPDX-License-Identifier: MIT
// Command perfilz: cold-formed Z with lips.
#include <numbers>

#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/profile_run.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

constexpr double kPi = std::numbers::pi;

constexpr Insertion kInsertions[] = {
    {L"RIGHT DOWN",
     [](const Medidas& m) {
         return Shift{-(m.b - m.t / 2.0), m.h / 2.0};
     }},
    {L"LEFT DOWN",
     [](const Medidas& m) {
         return Shift{m.b - m.t / 2.0, m.h / 2.0};
     }},
};

Shift memberShift(const Medidas& m, const MemberPlace& place) {
    return shiftByReach(symmetricReach(m.h, 2.0 * m.b - m.t, place.view), place);
}

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpZDobrado>(point, request.view, m.h, m.b, m.a, m.t, m.t, kPi / 2,
                                        kPi / 2, request.length, 0.0, 0.0, 0.0, 0.0);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpZDobrado>(start, end, request.view, m.h, m.b, m.a, m.t, m.t, kPi / 2,
                                        kPi / 2, 0.0, 0.0, 0.0);
}

void dimensionSection(PieceDimensions& d, const Medidas& m) {
    d.width();
    d.height();
    d.add(d.face(3), d.face(3) + d.by(0.0, m.t), d.face(3) + d.off(kNearLine, 0.0));
    d.add(d.face(3), d.face(3) + d.by(0.0, m.a), d.face(3) + d.off(kFarLine, 0.0));
}

const ProfileDescription kPerfilZ = {
    .dialog = L"pz_geracao",
    .list = L"pz.lst",
    .buildRow = rowOfHbta,
    .slides = L"pz",
    .figures = 2,
    .tiles = kTilesHbta,
    .insertions = kInsertions,
    .wrong = wrongHbta,
    .memberShift = memberShift,
    .onePoint = onePoint,
    .twoPoints = twoPoints,
    .dimensionSection = dimensionSection,
};

}  // namespace

std::unique_ptr<ProfileRun> pzdobrado() { return std::make_unique<ProfileRun>(kPerfilZ); }

}  // namespace perfis
