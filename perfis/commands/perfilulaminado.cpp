// SPDX-License-Identifier: MIT
// Command PERFILULAMINADO: rolled U.
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/perfil_run.h"
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
    {A, rolledUArea},
    {M, &Medidas::m},
};

void cotaSecao(PecaCotas& d, const Medidas& m) {
    d.largura();
    d.altura();
    d.espessura(rolledUToe(m));
}

const PerfilDescription kPerfilULaminado = {
    .dialog = L"pulam_geracao",
    .list = L"pu_lam.lst",
    .edits = CatalogueEdits::kNone,
    .pesoColumn = true,
    .slides = L"pulam",
    .figures = 4,
    .tiles = kTilesHbt,
    .insertions = kUInsertions,
    .wrong = wrongHbt,
    .barraShift = uBarraShift,
    .pecas = kPecaClass<ZpULaminado, Kind::ULaminado>,
    .values = kValues,
    .faces = kChannelFaces,
    .cotaSecao = cotaSecao,
};

}  // namespace

const PerfilCommand perfilulaminado{kPerfilULaminado};

}  // namespace perfis
