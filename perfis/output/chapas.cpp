// SPDX-License-Identifier: MIT
// Lays lacing plates: how many, where, how turned.
#include "perfis/output/chapas.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>

#include "adscodes.h"
#include "perfis/entities/zpfuncoes.h"
#include "texts/number.h"

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

ChapaRule onEdgeSwapped(double y) { return {ZpObject::kVistaSecao, y, kAlong, kSwapped}; }
ChapaRule onEdge(double y) { return {ZpObject::kVistaSecao, y, kAlong, kAlong}; }
ChapaRule flat(double y) { return {ZpObject::kVistaEsquerda, y, kAlong, kAlong}; }

std::vector<double> chapaStations(const ChapaSpacing& spacing, double width) {
    std::vector<double> stations{0.0, spacing.comp - width};
    const int spaces = Arredonda(spacing.comp / spacing.L1);
    for (int k = 1; k < spaces; ++k) stations.push_back(k * spacing.L1);
    return stations;
}

bool rowHolds(const ChapaSpacing& spacing, double width) {
    // One plate more than the rounded number of spaces.
    if (!(spacing.comp / spacing.L1 + 0.5 < kMostChapas)) return false;
    // A spacing made for another length may bring the last plate but one beyond the end.
    return std::ranges::all_of(chapaStations(spacing, width), [&](double at) {
        return at + width <= spacing.comp * (1.0 + kNegligible);
    });
}

AcDbObjectId ChapaSupply::place(ZpObject& member, std::unique_ptr<ZpChapa> plate) {
    AcDbObjectId id;
    if (append(plate.get(), id) != RTNORM) return AcDbObjectId::kNull;
    (void)plate.release()->close();
    (void)member.LinkPos(id);
    return id;
}

AcDbObjectId ChapaMaker::plate(AcGePoint3d point, ZpObject::ZpVistas view, double d1, double d2,
                               double d3, const ChapaTurn& turn) {
    auto chapa = std::make_unique<ZpChapa>(point, view, d1, d2, d3, turn.rot1, turn.rot2);
    wchar_t standard[] = L"vista-chapa";
    (void)chapa->setLayer(ZpLayerToUsr(standard), Adesk::kTrue, false);
    return m_supply.place(m_barra, std::move(chapa));
}

AcDbObjectId ChapaMaker::plate(const AcGePoint3d& point, ZpObject::ZpVistas view,
                               const ChapaTurn& turn) {
    return plate(point, view, m_size.C, m_size.t, m_size.A, turn);
}

std::vector<AcDbObjectId> ChapaMaker::row(const AcGePoint3d& point, const ChapaSpacing& spacing,
                                          const ChapaRule& rule) {
    std::vector<AcDbObjectId> slots;
    for (const double x : chapaStations(spacing, m_size.C)) {
        const ChapaTurn& turn = slots.size() < 2 ? rule.ends : rule.between;
        slots.push_back(
            plate(AcGePoint3d(point.x + x, point.y + rule.y, point.z), rule.view, turn));
    }
    return slots;
}

void tieChapas(ZpObject& member, const std::vector<AcDbObjectId>& plates) {
    for (AcDbObjectId id : plates) (void)member.LinkPos(id);
}

}  // namespace perfis
