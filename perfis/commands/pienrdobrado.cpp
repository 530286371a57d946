// SPDX-License-Identifier: MIT
// Command perfil2uenr: I of two cold-formed lipped U.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_secoes.h"
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

using zp::secao::Classe;
using zp::secao::Dados;
using enum zp::secao::Papel;

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},  {B1, &Medidas::b},  {B2, &Medidas::b},  {T, &Medidas::t},
    {Ri, &Medidas::t}, {Vao, &Medidas::a}, {Aba, &Medidas::e},
};

void dimensionSection(PieceDimensions& d, const Medidas& m) {
    dimensionWVT(d, m);
    dimensionGapBelow(d, m);
    d.add(d.face(2), d.face(2) - d.by(0.0, m.e), d.face(2) + d.off(kFarLine, 0.0));
}

const ProfileDescription kDescription = {
    .dialog = L"p2uenr_geracao",
    .list = L"puaenr.lst",
    .buildRow = rowOfHbta,
    .slides = L"p2uenr",
    .figures = 4,
    .tiles = kTilesLipped,
    .insertions = kFourCorners<halfAcrossGap, halfHeight>,
    .wrong = wrongGapOrLip,
    .memberShift = nullptr,
    .pieces = kPieceClass<ZpIDobrado, Classe::IDobrado>,
    .values = kValues,
    .draws = [](const Dados& v) { return v[Aba] != 0.0 && v[Especie] != kHats; },
    .dimensionSection = dimensionSection,
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kGap,
    .sides = SidesDrawn::kAll,
    .plateHeight = PlateHeight::kUser,
    .minHeight = [](const Medidas& m) { return m.a; },
    .maxHeight = [](const Medidas& m) { return m.a + 2.0 * m.b; },
    .layPlates = layOnBothFlanges,
};

}  // namespace

const ProfileCommand pienrdobrado{kDescription, [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
