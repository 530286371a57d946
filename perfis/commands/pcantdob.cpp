// SPDX-License-Identifier: MIT
// Command pcantoneira: cold-formed angle.
#include <numbers>

#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/laced_run.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

constexpr double kPi = std::numbers::pi;

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

/// Views 1 and 4 are drawn as the opposite face of a piece turned by half a circle.
Shift memberShift(const Medidas& m, const MemberPlace& place) {
    switch (place.view) {
        case 1:
            return shiftByReach({-m.b / 3.0, 2.0 * m.b / 3.0}, place);
        case 2:
            return shiftByReach({-2.0 * m.b / 3.0, m.b / 3.0}, place);
        case 4:
            return shiftByReach({-m.h / 3.0, 2.0 * m.h / 3.0}, place);
        default:
            return shiftByReach({-2.0 * m.h / 3.0, m.h / 3.0}, place);
    }
}

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    const bool fromAbove = request.view == ZpObject::kVistaSuperior;
    const bool fromLeft = request.view == ZpObject::kVistaEsquerda;
    const ZpObject::ZpVistas view = fromAbove  ? ZpObject::kVistaInferior
                                    : fromLeft ? ZpObject::kVistaDireita
                                               : request.view;
    const double turn = fromAbove || fromLeft ? kPi : 0.0;
    return std::make_unique<ZpCantoneiraDobrada>(point, view, m.h, m.b, m.t, m.t, kPi / 2,
                                                 request.length, turn, 0.0, 0.0);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCantoneiraDobrada>(start, end, request.view, m.h, m.b, m.t, m.t,
                                                 kPi / 2, 0.0, 0.0);
}

/// The inverse of what onePoint does with the views.
int figureOf(ZpObject::ZpVistas view, double turn) {
    if (turn == 0.0) return view;
    return view == ZpObject::kVistaInferior ? ZpObject::kVistaSuperior : ZpObject::kVistaEsquerda;
}

const ProfileDescription kCantoneira = {
    .dialog = L"pl_geracao",
    .list = L"pl.lst",
    .buildRow = rowOfHbta,
    .slides = L"pl",
    .figures = 4,
    .tiles = kTilesHbta,
    .insertions = kInsertions,
    .wrong = wrongHbt,
    .memberShift = memberShift,
    .onePoint = onePoint,
    .twoPoints = twoPoints,
    .dimensionSection = dimensionWVT,
    .figureOf = figureOf,
};

constexpr ToggleLacing kLacing = {
    .maxHeight = [](const Medidas& m) { return 2.0 * m.b / 3.0; },
    .edgeRow = [](const Medidas& m) { return m.h / 3.0 + m.t / 2.0; },
};

}  // namespace

std::unique_ptr<ProfileRun> pcantdob() { return makeLaced(kCantoneira, kLacing); }

}  // namespace perfis
