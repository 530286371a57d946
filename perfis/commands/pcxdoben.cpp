// SPDX-License-Identifier: MIT
// Command perfilcaixa: closed box of two lipped U.
#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/laced_run.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

constexpr Insertion kInsertions[] = {
    {L"RIGHT DOWN",
     [](const Medidas& m) {
         return Shift{-m.b, m.h / 2.0};
     }},
    {L"MID DOWN",
     [](const Medidas& m) {
         return Shift{0.0, m.h / 2.0};
     }},
    {L"LEFT DOWN",
     [](const Medidas& m) {
         return Shift{m.b, m.h / 2.0};
     }},
    {L"MID LEFT",
     [](const Medidas& m) {
         return Shift{m.b, 0.0};
     }},
    {L"CENTER", [](const Medidas&) { return Shift{}; }},
};

Shift memberShift(const Medidas& m, const MemberPlace& place) {
    return shiftByReach(symmetricReach(m.h, 2.0 * m.b, place.view), place);
}

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCaixaDobrado>(point, request.view, m.h, m.b, m.t, m.t, 0.0,
                                            request.length, 0.0, 0.0, m.a);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpCaixaDobrado>(start, end, request.view, m.h, m.b, m.t, m.t, 0.0, 0.0,
                                            m.a);
}

const ProfileDescription kCaixa = {
    .dialog = L"pcaixa_geracao",
    .list = L"pur.lst",
    .buildRow = rowOfHbta,
    .slides = L"pcaixa",
    .figures = 2,
    .tiles = kTilesHbta,
    .insertions = kInsertions,
    .wrong = wrongHbta,
    .memberShift = memberShift,
    .onePoint = onePoint,
    .twoPoints = twoPoints,
    .dimensionSection = dimensionWVT,
};

constexpr ToggleLacing kLacing = {
    .maxHeight = [](const Medidas& m) { return 2.0 * m.b; },
    .edgeRow = [](const Medidas& m) { return m.h / 2.0 + m.t / 2.0; },
};

}  // namespace

std::unique_ptr<ProfileRun> pcxdoben() { return makeLaced(kCaixa, kLacing); }

}  // namespace perfis
