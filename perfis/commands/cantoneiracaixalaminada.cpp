// SPDX-License-Identifier: MIT
// Command cantoneiracaixalaminada: box of two rolled angles.
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/perfil_run.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

/// One angle stands on the other's leg.
double halfAltura(const Medidas& m) { return (m.h + m.t) / 2.0; }

constexpr Insertion kInsertions[] = {
    {L"RIGHT DOWN", [](const Medidas& m) { return Shift(-m.b / 2.0, halfAltura(m)); }},
    {L"LEFT DOWN", [](const Medidas& m) { return Shift(m.b / 2.0, halfAltura(m)); }},
    {L"RIGHT UPPER", [](const Medidas& m) { return Shift(-m.b / 2.0, -halfAltura(m)); }},
    {L"LEFT UPPER", [](const Medidas& m) { return Shift(m.b / 2.0, -halfAltura(m)); }},
    {L"CENTER", [](const Medidas&) { return Shift(); }},
};

Shift barraShift(const Medidas& m, const BarraPlace& place) {
    return shiftByReach(symmetricReach(2.0 * halfAltura(m), m.b, place.vista), place);
}

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},
    {B1, &Medidas::b},
    {T, &Medidas::t},
    {Ri, &Medidas::t},
    {M, [](const Medidas& m) { return 2.0 * m.m; }},
    {A, [](const Medidas& m) { return 2.0 * kAreaOfPeso * m.m; }},
};

const PerfilDescription kCaixaDeCantoneiras = {
    .dialog = L"pllam_geracao",
    .title = L"Cantoneira caixa laminada",
    .list = L"pl_lam.lst",
    .edits = CatalogueEdits::kNone,
    .pesoColumn = true,
    .slides = L"pccl",
    .figures = 2,
    .tiles = kTilesHbt,
    .insertions = kInsertions,
    .wrong = wrongHbt,
    .barraShift = barraShift,
    .pecas = kPecaClass<ZpCantLaminadaCaixa, Kind::CantLaminadaCaixa>,
    .values = kValues,
    .cotaSecao = cotaWVT,
};

}  // namespace

const PerfilCommand cantoneiracaixalaminada{kCaixaDeCantoneiras};

}  // namespace perfis
