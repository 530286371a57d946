// SPDX-License-Identifier: MIT
// Command perfiltubo: round tube.
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/perfil_run.h"
#include "perfis/dialogs/tiles.h"
#include "perfis/entities/zpdobrados.h"

namespace perfis {
namespace {

using zp::secao::Kind;
using zp::secao::RoleValues;
using enum zp::secao::Role;

constexpr MedidaTile kTiles[] = {
    {L"d", &Medidas::d, L"0"},
    {L"di", &Medidas::di, L"0"},
};

std::unique_ptr<ZpObject> between(const AcGePoint3d& start, const AcGePoint3d& end,
                                  ZpObject::ZpVistas vista, const RoleValues& v) {
    return std::make_unique<ZpTubo>(start, end, vista, v[D], v[Dint]);
}

/// The class has no form with one point.
constexpr PecaClass kPecas{
    Kind::Tubo,
    [](const AcGePoint3d& point, ZpObject::ZpVistas vista, const RoleValues& v) {
        return between(point, point + AcGeVector3d::kXAxis * v[L], vista, v);
    },
    between};

/// The dialog has the wall, the class the inner diameter.
void paredeOf(Medidas& m, const RoleValues& v) { m.di = (v[D] - v[Dint]) / 2.0; }

constexpr RoleValue kValues[] = {
    {D, &Medidas::d},
    {Dint, [](const Medidas& m) { return m.d - 2.0 * m.di; }},
};

/// A wall of half the diameter or more passes: the tube is then solid.
Medida wrong(const Medidas& m) {
    const Medida missing = firstNotPositive(m, {&Medidas::d, &Medidas::di});
    return missing == nullptr && m.d <= m.di ? &Medidas::di : missing;
}

std::wstring rowOfTubo(ads_hdlg dialog) {
    return tileText(dialog, L"d") + L'\t' + tileText(dialog, L"di");
}

/// The limit points of a tube's section stand on its inner diameter.
void cotaSecao(PecaCotas& d, const Medidas& m) {
    const AcGePoint3d left = d.face(1) + d.by(-m.di, -m.di);
    const AcGePoint3d right = d.face(3) + d.by(m.di, -m.di);
    d.add(left, right, left + d.off(0.0, -kNearLine));
    const AcGePoint3d outside = d.at(m.d / 2.0, 0.0);
    d.add(d.at(m.d / 2.0 - m.di, 0.0), outside, outside + d.off(kNearLine, 0.0));
}

const PerfilDescription kTubo = {
    .dialog = L"ptb_geracao",
    .list = L"ptb.lst",
    .buildRow = rowOfTubo,
    .slides = L"ptb",
    .figures = 1,
    .tiles = kTiles,
    .insertions = kRoundInsertions,
    .wrong = wrong,
    .barraShift = roundBarraShift,
    .pecas = kPecas,
    .values = kValues,
    .readBack = paredeOf,
    .cotaSecao = cotaSecao,
    .keepsComprimentoInSecao = true,
};

}  // namespace

const PerfilCommand perfiltubo{kTubo};

}  // namespace perfis
