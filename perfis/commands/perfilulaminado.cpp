// SPDX-License-Identifier: MIT
// Command PERFILULAMINADO: rolled U.
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/perfil_run.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

using zp::secao::Classe;
using enum zp::secao::Papel;

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
    d.width();
    d.height();
    d.thickness(rolledUToe(m));
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
    .pieces = kPecaClass<ZpULaminado, Classe::ULaminado>,
    .values = kValues,
    .faces = kChannelFaces,
    .cotaSecao = cotaSecao,
};

}  // namespace

const PerfilCommand perfilulaminado{kPerfilULaminado};

}  // namespace perfis
