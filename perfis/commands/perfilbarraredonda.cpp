// SPDX-License-Identifier: MIT
// Command perfilbarraredonda: round bar.
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/perfil_run.h"
#include "perfis/dialogs/tiles.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

constexpr MedidaTile kTiles[] = {{L"d", &Medidas::d, L"0"}};

constexpr RoleValue kValues[] = {
    {D, &Medidas::d},
};

Medida wrong(const Medidas& m) { return firstNotPositive(m, {&Medidas::d}); }

std::wstring rowOfBarra(ads_hdlg dialog) { return tileText(dialog, L"d"); }

void cotaSecao(PecaCotas& d, const Medidas&) { d.largura(); }

const PerfilDescription kBarraRedonda = {
    .dialog = L"pbr_geracao",
    .list = L"pbr.lst",
    .buildRow = rowOfBarra,
    .slides = L"pbr",
    .figures = 1,
    .tiles = kTiles,
    .insertions = kRoundInsertions,
    .wrong = wrong,
    .barraShift = roundBarraShift,
    .pecas = kPecaClass<ZpBarraRedonda, Kind::BarraRedonda>,
    .values = kValues,
    .cotaSecao = cotaSecao,
};

}  // namespace

const PerfilCommand perfilbarraredonda{kBarraRedonda};

}  // namespace perfis
