// SPDX-License-Identifier: MIT
// Command perfil2ulam: I of two rolled U.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_secoes.h"
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},
    {B1, &Medidas::b},
    {T, &Medidas::t},
    {B2, &Medidas::b},
    {Tf1, &Medidas::t},
    {Tf2, &Medidas::t},
    {Ex, [](const Medidas& m) { return m.b / 3.0; }},
    {Ri, &Medidas::t},
    {Vao, &Medidas::a},
    {A, [](const Medidas& m) { return 2.0 * rolledUArea(m); }},
    {M, [](const Medidas& m) { return 2.0 * m.m; }},
};

void cotaSecao(PecaCotas& d, const Medidas& m) {
    d.largura();
    d.altura();
    d.espessura(rolledUToe(m));
    cotaVaoBelow(d, m);
}

const PerfilDescription kDescription = {
    .dialog = L"p2ulam_geracao",
    .list = L"pu_lam.lst",
    .edits = CatalogueEdits::kNone,
    .pesoColumn = true,
    .slides = L"p2ulam",
    .figures = 4,
    .tiles = kTilesRolled,
    .insertions = kFourCorners<halfAcrossVao, halfAltura>,
    .wrong = wrongVao,
    .pecas = kPecaClass<Zp2ULaminado, Kind::DoisULaminado>,
    .values = kValues,
    .cotaSecao = cotaSecao,
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kVao,
    .sides = SidesDrawn::kAll,
    .chapaAltura = ChapaAltura::kClearance,
    .minAltura = [](const Medidas& m) { return m.a - 1.0; },
    .maxAltura = [](const Medidas& m) { return m.a; },
    .layChapas = layOnBothFlanges,
};

}  // namespace

const PerfilCommand perfil2ulam{kDescription, [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
