// SPDX-License-Identifier: MIT
// Command perfilur: cold-formed lipped U.
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
         return Shift{-2.0 * m.b / 3.0, m.h / 2.0};
     }},
    {L"LEFT DOWN",
     [](const Medidas& m) {
         return Shift{m.b / 3.0, m.h / 2.0};
     }},
    {L"MID LEFT",
     [](const Medidas& m) {
         return Shift{m.b / 3.0, 0.0};
     }},
};

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    const double turn = request.view == ZpObject::kVistaInferior ? kPi : 0.0;
    return std::make_unique<ZpUDobrado>(point, request.view, m.h, m.b, m.b, m.t, m.t, kPi / 2,
                                        kPi / 2, request.length, turn, 0.0, m.a);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpUDobrado>(start, end, request.view, m.h, m.b, m.b, m.t, m.t, kPi / 2,
                                        kPi / 2, 0.0, m.a);
}

void dimensionSection(PieceDimensions& d, const Medidas& m) {
    dimensionWVT(d, m);
    d.add(d.face(2), d.face(2) - d.by(0.0, m.a), d.face(2) + d.off(kFarLine, 0.0));
}

const ProfileDescription kPerfilUEnrijecido = {
    .dialog = L"pur_geracao",
    .list = L"pur.lst",
    .buildRow = rowOfHbta,
    .slides = L"pur",
    .figures = 3,
    .tiles = kTilesHbta,
    .insertions = kInsertions,
    .wrong = wrongHbta,
    .memberShift = uMemberShift,
    .onePoint = onePoint,
    .twoPoints = twoPoints,
    .dimensionSection = dimensionSection,
};

}  // namespace

std::unique_ptr<ProfileRun> pudoben() { return std::make_unique<ProfileRun>(kPerfilUEnrijecido); }

}  // namespace perfis
