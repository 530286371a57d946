// SPDX-License-Identifier: MIT
// Command cantoneiracaixalaminada: box of two rolled angles.
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/perfil_run.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

using zp::secao::Classe;
using enum zp::secao::Papel;

/// One angle stands on the other's leg.
double halfHeight(const Medidas& m) { return (m.h + m.t) / 2.0; }

constexpr Insertion kInsertions[] = {
    {L"RIGHT DOWN",
     [](const Medidas& m) {
         return Shift{-m.b / 2.0, halfHeight(m)};
     }},
    {L"LEFT DOWN",
     [](const Medidas& m) {
         return Shift{m.b / 2.0, halfHeight(m)};
     }},
    {L"RIGHT UPPER",
     [](const Medidas& m) {
         return Shift{-m.b / 2.0, -halfHeight(m)};
     }},
    {L"LEFT UPPER",
     [](const Medidas& m) {
         return Shift{m.b / 2.0, -halfHeight(m)};
     }},
    {L"CENTER", [](const Medidas&) { return Shift{}; }},
};

Shift memberShift(const Medidas& m, const MemberPlace& place) {
    return shiftByReach(symmetricReach(2.0 * halfHeight(m), m.b, place.view), place);
}

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},
    {B1, &Medidas::b},
    {T, &Medidas::t},
    {Ri, &Medidas::t},
    {M, [](const Medidas& m) { return 2.0 * m.m; }},
    {A, [](const Medidas& m) { return 2.0 * kAreaOfMass * m.m; }},
};

const ProfileDescription kCaixaDeCantoneiras = {
    .dialog = L"pllam_geracao",
    .list = L"pl_lam.lst",
    .edits = CatalogueEdits::kNone,
    .massColumn = true,
    .slides = L"pccl",
    .figures = 2,
    .tiles = kTilesHbt,
    .insertions = kInsertions,
    .wrong = wrongHbt,
    .memberShift = memberShift,
    .pieces = kPieceClass<ZpCantLaminadaCaixa, Classe::CantLaminadaCaixa>,
    .values = kValues,
    .dimensionSection = dimensionWVT,
};

}  // namespace

const ProfileCommand cantoneiracaixalaminada{kCaixaDeCantoneiras};

}  // namespace perfis
