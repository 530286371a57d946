// SPDX-License-Identifier: MIT
// Command perfilcantcruzlaminado: star of two rolled angles, laced in one or two planes.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

double legAndHalfAv(const Medidas& m) { return m.h + m.av / 2.0; }

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},   {B1, &Medidas::b},    {T, &Medidas::t}, {Ri, &Medidas::t},
    {Vao, &Medidas::a}, {VaoV, &Medidas::av}, {M, pairPeso},    {A, pairArea},
};

void cotaSecao(PecaCotas& d, const Medidas& m) {
    d.largura();
    d.altura();
    cotaVaoBelow(d, m);
    AcGePoint3d lower = d.at(0.0, -m.av / 2.0);
    lower.x = d.face(1).x;
    d.add(lower, lower + d.by(0.0, m.av), lower + d.off(-kFarLine, 0.0));
    AcGePoint3d back = d.at(m.a / 2.0, 0.0);
    back.y = d.face(0).y;
    d.add(back, back + d.by(m.t, 0.0), back + d.off(0.0, kNearLine));
}

const PerfilDescription kDescription = {
    .dialog = L"pcclam_geracao",
    .list = L"pl_lam.lst",
    .edits = CatalogueEdits::kNone,
    .pesoColumn = true,
    .slides = L"pcclam",
    .figures = 4,
    .tiles = kTilesRolledAv,
    .insertions = kOppositeCorners<halfAcrossVao, legAndHalfAv, legAndHalfAv>,
    .wrong = wrongVaoOrAv,
    .pecas = kPecaClass<ZpCantCruzLaminada, Kind::CantCruzLaminada>,
    .values = kValues,
    .cotaSecao = cotaSecao,
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kVao,
    .sides = SidesDrawn::kAboveAndRight,
    .chapaAltura = ChapaAltura::kUser,
    .minAltura = [](const Medidas& m) { return m.a; },
    .maxAltura = [](const Medidas& m) { return m.a + 2.0 * m.b; },
    .layChapas = layThroughAxis,
    .choosesPlanes = true,
};

}  // namespace

const PerfilCommand perfilcantcruzlaminado{kDescription,
                                           [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
