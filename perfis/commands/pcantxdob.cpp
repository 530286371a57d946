// SPDX-License-Identifier: MIT
// Command perfildvv: two cold-formed angles bend to bend, legs at 45 degrees.
#include <algorithm>
#include <numbers>

#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_secoes.h"
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

constexpr double kRoot2 = std::numbers::sqrt2;

/// The heels lie a little inside the gap: the bends themselves keep its width.
double heelX(const Medidas& m) { return m.a / 2.0 - 2.0 * m.t * (kRoot2 - 1.0); }
/// From the reference point to the tips, sideways, up and down.
double tipX(const Medidas& m) { return heelX(m) + (std::max(m.h, m.b) + m.t) / kRoot2; }
double upperTip(const Medidas& m) { return m.b / kRoot2; }
double lowerTip(const Medidas& m) { return m.h / kRoot2; }

constexpr RoleValue kValues[] = {
    {H, &Medidas::h}, {B1, &Medidas::b}, {T, &Medidas::t}, {Ri, &Medidas::t}, {Vao, &Medidas::a},
};

const PerfilDescription kDescription = {
    .dialog = L"plv_geracao",
    .list = L"plv.lst",
    .buildRow = rowOfHbta,
    .slides = L"plv",
    .figures = 4,
    .tiles = kTilesHbta,
    .insertions = kOppositeCorners<tipX, upperTip, lowerTip>,
    .wrong = wrongVao,
    .pecas = kPecaClass<ZpXDobrado, Kind::XDobrado>,
    .values = kValues,
    .cotaSecao = [](PecaCotas& d, const Medidas& m) { cotaHeels(d, m, heelX(m), m.b); },
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

const PerfilCommand pcantxdob{kDescription, [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
