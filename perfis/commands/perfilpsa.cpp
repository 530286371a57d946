// SPDX-License-Identifier: MIT
// Command perfilpsa: welded I whose flanges may differ.
#include "perfis/commands/common_secoes.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/i_secoes.h"
#include "perfis/commands/perfil_run.h"
#include "perfis/dialogs/tiles.h"
#include "perfis/entities/zpfuncoes.h"
#include "perfis/entities/zpvigas.h"

namespace perfis {
namespace {

using zp::secao::Kind;
using zp::secao::RoleValues;
using enum zp::secao::Role;

constexpr MedidaTile kTiles[] = {
    {L"h", &Medidas::h, L"0"},   {L"bb", &Medidas::bb, L"0"}, {L"tb", &Medidas::tb, L"0"},
    {L"bc", &Medidas::bc, L"0"}, {L"tc", &Medidas::tc, L"0"}, {L"a", &Medidas::a, L"0"},
};

/// All six numbers, reformatted.
std::wstring newRow(ads_hdlg dialog) {
    std::wstring row;
    for (const MedidaTile& tile : kTiles) {
        if (!row.empty()) row += L'\t';
        row += FormatInString(tileReal(dialog, tile.key));
    }
    return row;
}

Medida wrong(const Medidas& m) {
    const Medida missing = firstNotPositive(m, {&Medidas::h, &Medidas::a});
    if (missing != nullptr) return missing;
    if (m.bb <= m.a) return &Medidas::bb;
    return m.bc <= m.a ? &Medidas::bc : nullptr;
}

/// The form of the class with two flanges has the view among the numbers.
constexpr PecaClass kPecas{
    Kind::ISoldado,
    [](const AcGePoint3d& point, ZpObject::ZpVistas vista,
       const RoleValues& v) -> std::unique_ptr<ZpObject> {
        return std::make_unique<ZpISoldado>(point, v[H], v[Bc], v[Bb], v[Tc], v[Tb], v[Tw], v[L],
                                            vista, 0.0, 0.0, 0.0);
    },
    [](const AcGePoint3d& start, const AcGePoint3d& end, ZpObject::ZpVistas vista,
       const RoleValues& v) -> std::unique_ptr<ZpObject> {
        return std::make_unique<ZpISoldado>(start, end, v[H], v[Bc], v[Bb], v[Tc], v[Tb], v[Tw],
                                            vista, 0.0, 0.0);
    }};

constexpr RoleValue kValues[] = {
    {H, &Medidas::h},   {Bc, &Medidas::bc}, {Bb, &Medidas::bb},
    {Tc, &Medidas::tc}, {Tb, &Medidas::tb}, {Tw, &Medidas::a},
};

/// Both flanges are dimensioned about the web, which stands in the middle of the box.
void cotaSecao(PecaCotas& d, const Medidas& m) {
    const AcGePoint3d upper = d.face(0);
    const double x = (upper.x + d.face(2).x) / 2.0;
    const AcGePoint3d top(x, upper.y, upper.z);
    const AcGePoint3d bottom(x, d.face(1).y, upper.z);
    const AcGeVector3d halfTop = d.by(m.bc / 2.0, 0.0);
    const AcGeVector3d halfBottom = d.by(m.bb / 2.0, 0.0);
    const AcGePoint3d topLeft = top - halfTop;
    const AcGePoint3d bottomLeft = bottom - halfBottom;
    const AcGePoint3d below = bottomLeft + d.off(0.0, -kNearLine);
    d.add(bottomLeft, bottom, below);
    d.add(bottom, bottom + halfBottom, below);
    d.add(bottomLeft, bottom + halfBottom, bottomLeft + d.off(0.0, -kFarLine));
    d.add(topLeft, top + halfTop, topLeft + d.off(0.0, kNearLine));
    d.add(d.face(2), d.face(3), d.face(3) + d.off(kNearLine, 0.0));

    const double left = upper.x - kNearLine * d.scale();
    d.add(topLeft, topLeft - d.by(0.0, m.tc), {left, topLeft.y, upper.z});
    d.add(bottomLeft, bottomLeft + d.by(0.0, m.tb), {left, bottomLeft.y, upper.z});
    const AcGePoint3d web(x, (top.y + bottom.y) / 2.0, upper.z);
    d.add(web - d.by(m.a / 2.0, 0.0), web + d.by(m.a / 2.0, 0.0), {left, web.y, upper.z});
}

const PerfilDescription kPsa = {
    .dialog = L"psa_geracao",
    .list = L"psa.lst",
    .edits = CatalogueEdits::kWrittenBack,
    .buildRow = newRow,
    .slides = L"psa",
    .figures = 4,
    .tiles = kTiles,
    // The width is that of the upper flange, at the lower edge too.
    .insertions = kBoxEdges<&Medidas::bc>,
    .wrong = wrong,
    .pecas = kPecas,
    .values = kValues,
    .draws = [](const RoleValues& v) { return v.variant == 1; },
    .cotaSecao = cotaSecao,
    .insertionPrompt = kIInsertionPrompt,
    .startPrompt = L"\nIndique o ponto inicial do perfil:",
    .turning = Turning::kSet,
    .listsAtOwnPoint = true,
    // Four tiles, of which the dialog has two: such a row keeps H and tw only.
    .buildReplacement = rowOfHbta,
};

/// Remembers numbers instead of texts.
class PsaRun : public PerfilRun {
public:
    PsaRun() : PerfilRun(kPsa) {}

protected:
    void showMedidas(ads_hdlg dialog) override {
        for (const MedidaTile& tile : kTiles)
            setTile(dialog, tile.key, FormatInString(state().medidas.*tile.value));
    }
};

}  // namespace

const PerfilCommand perfilpsa{kPsa, newRunOf<PsaRun>};

}  // namespace perfis
