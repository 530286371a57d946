// SPDX-License-Identifier: MIT
// Command perfilcantzlaminado: Z of two rolled angles.
#include "perfis/commands/built_up_run.h"
#include "perfis/commands/built_up_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/entities/zplaminados.h"

namespace perfis {
namespace {

/// The upper angle stands av above the lower one.
double halfShiftedAltura(const Medidas& m) { return (m.h + m.av) / 2.0; }

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},   {B1, &Medidas::b},    {T, &Medidas::t}, {Ri, &Medidas::t},
    {Vao, &Medidas::a}, {VaoV, &Medidas::av}, {M, pairPeso},    {A, pairArea},
};

void cotaSecao(PecaCotas& d, const Medidas& m) {
    d.largura();
    d.altura();
    d.add(d.face(3), d.face(3) + d.by(0.0, m.t), d.face(3) + d.off(kNearLine, 0.0));
    cotaVaoBelow(d, m);
}

const PerfilDescription kDescription = {
    .dialog = L"pczlam_geracao",
    .list = L"pl_lam.lst",
    .edits = CatalogueEdits::kNone,
    .pesoColumn = true,
    .slides = L"pczlam",
    .figures = 4,
    .tiles = kTilesRolledAv,
    .insertions = kUpperCorners<halfAcrossVao, halfShiftedAltura>,
    .wrong = wrongVaoOrAv,
    .pecas = kPecaClass<ZpCantZLaminada, Kind::CantZLaminada>,
    .values = kValues,
    .cotaSecao = cotaSecao,
};

constexpr BuiltUpRule kRule = {
    .clearance = Clearance::kVao,
    .sides = SidesDrawn::kAboveAndRight,
    .chapaAltura = ChapaAltura::kUser,
    .minAltura = [](const Medidas& m) { return m.a; },
    .maxAltura = [](const Medidas& m) { return m.a + 2.0 * m.b; },
    .layChapas =
        [](const BarraTravejada& barra) {
            return layOnFace(barra, halfShiftedAltura(barra.medidas));
        },
};

}  // namespace

const PerfilCommand perfilcantzlaminado{kDescription,
                                        [] { return makeBuiltUp(kDescription, kRule); }};

}  // namespace perfis
