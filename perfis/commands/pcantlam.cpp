// SPDX-License-Identifier: MIT
// Command perfilcl: rolled angle.
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/perfil_run.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

constexpr Insertion kInsertions[] = {
    {L"RIGHT UPPER", [](const Medidas& m) { return Shift(-2.0 * m.b / 3.0, -m.h / 3.0); }},
    {L"LEFT DOWN", [](const Medidas& m) { return Shift(m.b / 3.0, 2.0 * m.h / 3.0); }},
    {L"CENTER", [](const Medidas&) { return Shift(); }},
};

Shift barraShift(const Medidas& m, const BarraPlace& place) {
    const double size = place.vista == 1 || place.vista == 2 ? m.b : m.h;
    return shiftByReach({-2.0 * size / 3.0, size / 3.0}, place);
}

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},
    {B1, &Medidas::b},
    {T, &Medidas::t},
    {Ex, [](const Medidas& m) { return m.b / 3.0; }},
    {Ey, [](const Medidas& m) { return 2.0 * m.h / 3.0; }},
    {Ri, &Medidas::t},
    {M, &Medidas::m},
    {A, areaOfPeso},
};

const PerfilDescription kCantoneiraLaminada = {
    .dialog = L"pllam_geracao",
    .list = L"pl_lam.lst",
    .edits = CatalogueEdits::kNone,
    .pesoColumn = true,
    .slides = L"pl_lam",
    .figures = 4,
    .tiles = kTilesHbt,
    .insertions = kInsertions,
    .wrong = wrongHbt,
    .barraShift = barraShift,
    .pecas = kPecaClass<ZpCantLaminada, Kind::CantLaminada>,
    .values = kValues,
    .cotaSecao = cotaWVT,
};

}  // namespace

const PerfilCommand pcantlam{kCantoneiraLaminada};

}  // namespace perfis
