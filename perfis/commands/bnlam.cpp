// SPDX-License-Identifier: MIT
// Command bnlaminado: rolled equal angle turned by 45 degrees.
#include <numbers>

#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/perfil_run.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

constexpr double kRoot2 = std::numbers::sqrt2;

/// Distance from the reference point to the heel: a third of each leg from both backs.
double heelDistance(const Medidas& m) { return kRoot2 * m.h / 3.0; }
/// Half the height over the tips of the legs.
double tipAltura(const Medidas& m) { return m.h / kRoot2; }
/// From the reference point to the rounded tips.
double tipDistance(const Medidas& m) {
    const double toeRadius = m.t / 2.0;
    return (m.h + m.t) / kRoot2 - heelDistance(m) - toeRadius * (kRoot2 - 1.0);
}

constexpr Insertion kInsertions[] = {
    {L"RIGHT UPPER", [](const Medidas& m) { return Shift(-tipDistance(m), -tipAltura(m)); }},
    {L"RIGHT DOWN", [](const Medidas& m) { return Shift(-tipDistance(m), tipAltura(m)); }},
    {L"CENTER", [](const Medidas&) { return Shift(); }},
};

Shift barraShift(const Medidas& m, const BarraPlace& place) {
    const bool above = place.vista == ZpObject::kVistaSuperior;
    return shiftByReach(
        above ? Reach{-tipDistance(m), heelDistance(m)} : Reach{-tipAltura(m), tipAltura(m)},
        place);
}

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},  {T, &Medidas::t}, {E, equalCantoneiraAxis},
    {Ri, &Medidas::t}, {M, &Medidas::m}, {A, areaOfPeso},
};

void cotaSecao(PecaCotas& d, const Medidas& m) {
    const AcGePoint3d heel = d.at(-heelDistance(m), 0.0);
    const AcGePoint3d tip = heel + d.by(m.h / kRoot2, m.h / kRoot2);
    const double near = kNearLine / kRoot2;
    d.add(heel, tip, heel + d.off(-near, near));
    d.add(tip, tip + d.by(m.t / kRoot2, -m.t / kRoot2), tip + d.off(near, near));
}

const PerfilDescription kCantoneiraGirada = {
    .dialog = L"bnlam_geracao",
    .list = L"pl_lam.lst",
    .edits = CatalogueEdits::kNone,
    .pesoColumn = true,
    .slides = L"bnlam",
    .figures = 2,
    .tiles = kTilesHbt,
    .insertions = kInsertions,
    .wrong = wrongHbt,
    .barraShift = barraShift,
    .pecas = kPecaClass<ZpBNLaminado, Kind::BNLaminado>,
    .values = kValues,
    .readBack = readEqualLegs,
    .cotaSecao = cotaSecao,
};

}  // namespace

const PerfilCommand bnlam{kCantoneiraGirada};

}  // namespace perfis
