// SPDX-License-Identifier: MIT
// Command perfilbox: rectangular box.
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/perfil_run.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

constexpr Insertion kInsertions[] = {
    {L"RIGHT DOWN", [](const Medidas& m) { return Shift(-m.b / 2.0, m.h / 2.0); }},
    {L"LEFT DOWN", [](const Medidas& m) { return Shift(m.b / 2.0, m.h / 2.0); }},
    {L"RIGHT UPPER", [](const Medidas& m) { return Shift(-m.b / 2.0, -m.h / 2.0); }},
    {L"LEFT UPPER", [](const Medidas& m) { return Shift(m.b / 2.0, -m.h / 2.0); }},
    {L"CENTER", [](const Medidas&) { return Shift(); }},
};

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},
    {B1, &Medidas::b},
    {T, &Medidas::t},
    {Ri, &Medidas::t},
};

const PerfilDescription kBox = {
    .dialog = L"pbox_geracao",
    .list = L"pbox.lst",
    .makeCatalogue = makeStringListCatalogue,
    .edits = CatalogueEdits::kWrittenBack,
    .buildRow = rowOfHbta,
    .slides = L"pbox",
    .figures = 2,
    .tiles = kTilesHbt,
    .insertions = kInsertions,
    .wrong = wrongHbt,
    .barraShift = boxBarraShift,
    .pecas = kPecaClass<ZpBox, Kind::Box>,
    .values = kValues,
    .cotaSecao = cotaWVT,
};

}  // namespace

const PerfilCommand perfilbox{kBox};

}  // namespace perfis
