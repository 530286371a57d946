// SPDX-License-Identifier: MIT
// Command perfilc: hat section.
#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/laced_run.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

/// Half the width over the lips, which are measured from the inner face of the sides.
double halfWidth(const Medidas& m) { return m.b / 2.0 - m.t + m.a; }

constexpr Insertion kInsertions[] = {
    {L"RIGHT DOWN",
     [](const Medidas& m) {
         return Shift{-halfWidth(m), m.h / 2.0};
     }},
    {L"MID DOWN",
     [](const Medidas& m) {
         return Shift{0.0, m.h / 2.0};
     }},
    {L"LEFT DOWN",
     [](const Medidas& m) {
         return Shift{halfWidth(m), m.h / 2.0};
     }},
    {L"MID UPPER",
     [](const Medidas& m) {
         return Shift{0.0, -m.h / 2.0};
     }},
};

Shift memberShift(const Medidas& m, const MemberPlace& place) {
    return shiftByReach(symmetricReach(m.h, 2.0 * halfWidth(m), place.view), place);
}

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCartola>(point, request.view, m.h, m.b, m.t, m.t, m.a, request.length,
                                       0.0, 0.0);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCartola>(start, end, request.view, m.h, m.b, m.t, m.t, m.a, 0.0);
}

void dimensionSection(PieceDimensions& d, const Medidas& m) {
    d.width();
    d.height();
    d.add(d.face(3), d.face(3) + d.by(0.0, m.t), d.face(3) + d.off(kNearLine, 0.0));
    const AcGePoint3d top = d.at(-m.b / 2.0, m.h / 2.0);
    d.add(top, d.at(m.b / 2.0, m.h / 2.0), top + d.off(0.0, kNearLine));
    d.add(d.face(3) - d.by(m.a, 0.0), d.face(3), d.face(3) + d.off(0.0, -kFarLine));
}

const ProfileDescription kCartola = {
    .dialog = L"pc_geracao",
    .list = L"pc.lst",
    .buildRow = rowOfHbta,
    .slides = L"pc",
    .figures = 2,
    .tiles = kTilesHbta,
    .insertions = kInsertions,
    .wrong = wrongHbta,
    .memberShift = memberShift,
    .onePoint = onePoint,
    .twoPoints = twoPoints,
    .dimensionSection = dimensionSection,
};

/// The plates close the open side.
constexpr ToggleLacing kLacing = {
    .maxHeight = [](const Medidas& m) { return m.b + 2.0 * m.a - 2.0 * m.t; },
    .edgeRow = [](const Medidas& m) { return -m.h / 2.0 - m.t / 2.0; },
};

}  // namespace

std::unique_ptr<ProfileRun> pcartola() { return makeLaced(kCartola, kLacing); }

}  // namespace perfis
