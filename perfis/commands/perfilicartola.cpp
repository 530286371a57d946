// SPDX-License-Identifier: MIT
// Command perfilicartola: I of two hat sections, top to top.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_secoes.h"
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

using zp::secao::Kind;
using zp::secao::RoleValues;
using enum zp::secao::Role;

/// The lips stand out of the height h, which is that of the tops.
double halfAlturaWithAbas(const Medidas& m) { return m.h / 2.0 - m.t + m.e; }

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},  {B1, &Medidas::b},  {B2, &Medidas::b},  {T, &Medidas::t},
    {Ri, &Medidas::t}, {Vao, &Medidas::a}, {Aba, &Medidas::e}, {Species, kCartolas},
};

void cotaSecao(PecaCotas& d, const Medidas& m) {
    d.largura();
    d.altura();
    d.add(d.face(2) - d.by(m.t, 0.0), d.face(2), d.face(2) + d.off(0.0, kNearLine));
    cotaVaoBelow(d, m);
    d.add(d.face(2) - d.by(0.0, m.e), d.face(2), d.face(2) + d.off(kNearLine, 0.0));
}

const PerfilDescription kDescription = {
    .dialog = L"i2c_geracao",
    .list = L"picart.lst",
    .buildRow = rowOfHbta,
    .slides = L"i2c",
    .figures = 4,
    .tiles = kTilesWithAba,
    .insertions = kFourCorners<halfAcrossVao, halfAlturaWithAbas>,
    .wrong = wrongVaoOrAba,
    .pecas = kPecaClass<ZpIDobrado, Kind::IDobrado>,
    .values = kValues,
    .draws = [](const RoleValues& v) { return v[Aba] != 0.0 && v[Species] == kCartolas; },
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

const PerfilCommand perfilicartola{kDescription, [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
