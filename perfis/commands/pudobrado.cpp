// SPDX-License-Identifier: MIT
// Command perfilu: cold-formed plain U.
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/perfil_run.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},  {B1, &Medidas::b},   {B2, &Medidas::b},   {T, &Medidas::t},
    {Ri, &Medidas::t}, {Ang1, kRightAngle}, {Ang2, kRightAngle},
};

const PerfilDescription kPerfilU = {
    .dialog = L"pu_geracao",
    .list = L"pu.lst",
    .edits = CatalogueEdits::kWrittenBack,
    .buildRow = rowOfHbta,
    .slides = L"pu",
    .figures = 4,
    .tiles = kTilesHbt,
    .insertions = kUInsertions,
    .wrong = wrongHbt,
    .barraShift = uBarraShift,
    .pecas = kPecaClass<ZpUDobrado, Kind::UDobrado>,
    .values = kValues,
    .faces = kChannelFaces,
    .cotaSecao = cotaWVT,
};

}  // namespace

const PerfilCommand pudobrado{kPerfilU};

}  // namespace perfis
