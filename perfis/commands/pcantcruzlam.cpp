// SPDX-License-Identifier: MIT
// Command cantdvvl: two rolled angles heel to heel, legs at 45 degrees.
#include <numbers>

#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_secoes.h"
#include "perfis/commands/common_secoes.h"
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

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},  {T, &Medidas::t},   {E, equalCantoneiraAxis},
    {Ri, &Medidas::t}, {Vao, &Medidas::a}, {M, pairPeso},
    {A, pairArea},
};

const PerfilDescription kDescription = {
    .dialog = L"plv_lam_geracao",
    .list = L"pl_lam.lst",
    .edits = CatalogueEdits::kNone,
    .pesoColumn = true,
    .slides = L"plv_lam",
    .figures = 4,
    .tiles = kTilesRolled,
    .insertions = kOppositeCorners<tipX, tipY, tipY>,
    .wrong = wrongVao,
    .pecas = kPecaClass<ZpBNDuplaLaminada, Kind::BNDuplaLaminada>,
    .values = kValues,
    .readBack = readEqualLegs,
    .cotaSecao = [](PecaCotas& d, const Medidas& m) { cotaHeels(d, m, m.a / 2.0, m.h); },
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kVao,
    .sides = SidesDrawn::kAboveAndRight,
    .chapaAltura = ChapaAltura::kClearance,
    .minAltura = [](const Medidas& m) { return m.a - 1.0; },
    .maxAltura = [](const Medidas& m) { return m.a; },
    .layChapas =
        [](const BarraTravejada& barra) { return layOnFace(barra, -barra.medidas.t / 2.0); },
};

}  // namespace

const PerfilCommand pcantcruzlam{kDescription, [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
