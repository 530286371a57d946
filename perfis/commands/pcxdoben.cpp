// SPDX-License-Identifier: MIT
// Command perfilcaixa: closed box of two lipped U.
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/travejamento_run.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

using zp::secao::Kind;
using zp::secao::RoleValues;
using enum zp::secao::Role;

constexpr Insertion kInsertions[] = {
    {L"RIGHT DOWN", [](const Medidas& m) { return Shift(-m.b, m.h / 2.0); }},
    {L"MID DOWN", [](const Medidas& m) { return Shift(0.0, m.h / 2.0); }},
    {L"LEFT DOWN", [](const Medidas& m) { return Shift(m.b, m.h / 2.0); }},
    {L"MID LEFT", [](const Medidas& m) { return Shift(m.b, 0.0); }},
    {L"CENTER", [](const Medidas&) { return Shift(); }},
};

Shift barraShift(const Medidas& m, const BarraPlace& place) {
    return shiftByReach(symmetricReach(m.h, 2.0 * m.b, place.vista), place);
}

constexpr RoleValue kValues[] = {
    {H, &Medidas::h}, {B1, &Medidas::b}, {T, &Medidas::t}, {Ri, &Medidas::t}, {Aba, &Medidas::a},
};

const PerfilDescription kCaixa = {
    .dialog = L"pcaixa_geracao",
    .list = L"pur.lst",
    .buildRow = rowOfHbta,
    .slides = L"pcaixa",
    .figures = 2,
    .tiles = kTilesHbta,
    .insertions = kInsertions,
    .wrong = wrongHbta,
    .barraShift = barraShift,
    .pecas = kPecaClass<ZpCaixaDobrado, Kind::CaixaDobrado>,
    .values = kValues,
    .draws = [](const RoleValues& v) { return v[Aba] != 0.0 && v[Vao] == 0.0; },
    .cotaSecao = cotaWVT,
};

constexpr ToggleTravejamento kTravejamento = {
    .maxAltura = [](const Medidas& m) { return 2.0 * m.b; },
    .edgeRow = [](const Medidas& m) { return m.h / 2.0 + m.t / 2.0; },
};

}  // namespace

const PerfilCommand pcxdoben{kCaixa, [] { return makeTravejado(kCaixa, kTravejamento); }};

}  // namespace perfis
