// SPDX-License-Identifier: MIT
// Lays lacing plates: how many, where, how turned.
#include "perfis/output/chapas.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <utility>

#include "acutads.h"
#include "adscodes.h"
#include "perfis/entities/zpfuncoes.h"
#include "texts/number.h"
#include "zp/objects/cortes.h"

namespace perfis {
namespace {
constexpr double kHalfPi = std::numbers::pi / 2.0;
constexpr ChapaTurn kAlong{0.0, -kHalfPi};
constexpr ChapaTurn kSwapped{-kHalfPi, 0.0};

constexpr double kMostChapas = 10000.0;
/// Share of a member's length that rounding may add to it.
constexpr double kNegligible = 1e-9;
}  // namespace

int Arredonda(double x) {
    const int whole = texts::realToInt(x);
    return x - whole < 0.5 ? whole : texts::realToInt(whole + 1.0);
}

ChapaRule onEdgeSwapped(double y, std::vector<zp::secao::Bounds> bodies) {
    return {ZpObject::kVistaSecao, y, kAlong, kSwapped, std::move(bodies)};
}
ChapaRule onEdge(double y, std::vector<zp::secao::Bounds> bodies) {
    return {ZpObject::kVistaSecao, y, kAlong, kAlong, std::move(bodies)};
}
ChapaRule flat(double y, std::vector<zp::secao::Bounds> bodies) {
    return {ZpObject::kVistaEsquerda, y, kAlong, kAlong, std::move(bodies)};
}

std::vector<double> chapaStations(const ChapaSpacing& spacing, double largura) {
    std::vector<double> stations{0.0, spacing.comp - largura};
    const int spaces = Arredonda(spacing.comp / spacing.L1);
    for (int k = 1; k < spaces; ++k) stations.push_back(k * spacing.L1);
    return stations;
}

bool rowHolds(const ChapaSpacing& spacing, double largura) {
    // One plate more than the rounded number of spaces.
    if (!(spacing.comp / spacing.L1 + 0.5 < kMostChapas)) return false;
    // A spacing made for another length may bring the last plate but one beyond the end.
    return std::ranges::all_of(chapaStations(spacing, largura), [&](double at) {
        return at + largura <= spacing.comp * (1.0 + kNegligible);
    });
}

void LaidChapas::add(const std::vector<AcDbObjectId>& chapas) {
    if (chapas.empty()) return;
    const AcDbObjectId listed = chapas.size() > 1 ? chapas[1] : chapas.front();
    rows.push_back({listed, static_cast<int>(chapas.size()), {}});
    ids.insert(ids.end(), chapas.begin(), chapas.end());
}

void ChapaSupply::tellLeftOut() const {
    if (m_leftOut == 0) return;
    (void)acutPrintf(
        m_leftOut == 1
            ? L"\n%d chapa além do corte da ponta não é desenhada nem listada.\n"
            : L"\n%d chapas além dos cortes das pontas não são desenhadas nem listadas.\n",
        m_leftOut);
}

AcDbObjectId ChapaSupply::place(ZpObject& barra, std::unique_ptr<ZpChapa> chapa) {
    AcDbObjectId id;
    if (append(chapa.get(), id) != RTNORM) return AcDbObjectId::kNull;
    (void)chapa.release()->close();
    (void)barra.LinkPos(id);
    return id;
}

AcDbObjectId ChapaMaker::chapa(AcGePoint3d point, ZpObject::ZpVistas vista, double d1, double d2,
                               double d3, const ChapaTurn& turn) {
    auto chapa = std::make_unique<ZpChapa>(point, vista, d1, d2, d3, turn.rot1, turn.rot2);
    wchar_t standard[] = L"vista-chapa";
    (void)chapa->setLayer(ZpLayerToUsr(standard), Adesk::kTrue, false);
    return m_supply.place(m_barra, std::move(chapa));
}

AcDbObjectId ChapaMaker::chapa(const AcGePoint3d& point, ZpObject::ZpVistas vista,
                               const ChapaTurn& turn) {
    return chapa(point, vista, m_size.C, m_size.t, m_size.A, turn);
}

bool ChapaMaker::isBeyondEnd(const ChapaRule& rule, double x) const {
    using namespace zp::cortes;
    const zp::Peca& barra = zp::Access::of(m_barra);
    if (!oblique(barra)) return false;
    const auto beyond = [&](const zp::secao::Bounds& body) {
        const zp::secao::VistaPoint a = zp::secao::see(barra.vista, {body.x0, body.y0});
        const zp::secao::VistaPoint b = zp::secao::see(barra.vista, {body.x1, body.y1});
        return x >= barra.comprimento + reachOver(barra, kEnd, a, b).most ||
               x + m_size.C <= -reachOver(barra, kStart, a, b).most;
    };
    return std::ranges::all_of(rule.bodies, beyond);
}

std::vector<AcDbObjectId> ChapaMaker::row(const AcGePoint3d& point, const ChapaSpacing& spacing,
                                          const ChapaRule& rule) {
    std::vector<AcDbObjectId> slots;
    std::size_t slot = 0;
    for (const double x : chapaStations(spacing, m_size.C)) {
        const ChapaTurn& turn = slot++ < 2 ? rule.ends : rule.between;
        if (isBeyondEnd(rule, x)) {
            m_supply.leaveOut();
            continue;
        }
        slots.push_back(
            chapa(AcGePoint3d(point.x + x, point.y + rule.y, point.z), rule.vista, turn));
    }
    return slots;
}

void tieChapas(ZpObject& barra, const std::vector<AcDbObjectId>& chapas) {
    for (AcDbObjectId id : chapas) (void)barra.LinkPos(id);
}

}  // namespace perfis
