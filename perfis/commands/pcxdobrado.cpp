// SPDX-License-Identifier: MIT
// Command perfilduc: box of two cold-formed U facing each other.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_secoes.h"
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

constexpr RoleValue kValues[] = {
    {H, &Medidas::h}, {B1, &Medidas::b}, {T, &Medidas::t}, {Ri, &Medidas::t}, {Vao, &Medidas::a},
};

const PerfilDescription kDescription = {
    .dialog = L"p2uf_geracao",
    .list = L"puf.lst",
    .buildRow = rowOfHbta,
    .slides = L"puf",
    .figures = 4,
    .tiles = kTilesHbta,
    .insertions = kFourCorners<halfOutsideLargura, halfAltura>,
    .wrong = wrongLargura,
    .pecas = kPecaClass<ZpCaixaDobrado, Kind::CaixaDobrado>,
    .values = kValues,
    .cotaSecao = cotaFacing,
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kLargura,
    .sides = SidesDrawn::kAll,
    .chapaAltura = ChapaAltura::kUser,
    .minAltura = [](const Medidas& m) { return m.a - 2.0 * m.b; },
    .maxAltura = [](const Medidas& m) { return m.a; },
    .layChapas = layOnBothFlanges,
};

}  // namespace

const PerfilCommand pcxdobrado{kDescription, [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
