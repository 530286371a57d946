// SPDX-License-Identifier: MIT
// Command perfilpsa: welded I whose flanges may differ.
#include "perfis/commands/common_sections.h"
#include "perfis/commands/handlers.h"
#include "perfis/commands/i_sections.h"
#include "perfis/commands/profile_run.h"
#include "perfis/dialogs/tiles.h"
#include "perfis/entities/zpfuncoes.h"
#include "perfis/entities/zpvigas.h"

namespace perfis {
namespace {

constexpr DimensionTile kTiles[] = {
    {L"h", &Medidas::h, L"0"},   {L"bb", &Medidas::bb, L"0"}, {L"tb", &Medidas::tb, L"0"},
    {L"bc", &Medidas::bc, L"0"}, {L"tc", &Medidas::tc, L"0"}, {L"a", &Medidas::a, L"0"},
};

/// All six numbers, reformatted.
std::wstring newRow(ads_hdlg dialog) {
    std::wstring row;
    for (const DimensionTile& tile : kTiles) {
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

std::unique_ptr<ZpObject> onePoint(AcGePoint3d& point, const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpISoldado>(point, m.h, m.bc, m.bb, m.tc, m.tb, m.a, request.length,
                                        request.view, 0.0, 0.0, 0.0);
}

std::unique_ptr<ZpObject> twoPoints(AcGePoint3d& start, AcGePoint3d& end,
                                    const PieceRequest& request) {
    const Medidas& m = request.medidas;
    return std::make_unique<ZpISoldado>(start, end, m.h, m.bc, m.bb, m.tc, m.tb, m.a, request.view,
                                        0.0, 0.0);
}

/// Both flanges are dimensioned about the web, which stands in the middle of the box.
void dimensionSection(PieceDimensions& d, const Medidas& m) {
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

const ProfileDescription kPsa = {
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
    .memberShift = nullptr,
    .onePoint = onePoint,
    .twoPoints = twoPoints,
    .dimensionSection = dimensionSection,
    .insertionPrompt = kIInsertionPrompt,
    .startPrompt = L"\nIndique o ponto inicial do perfil:",
    .turning = Turning::kSet,
    .listsAtOwnPoint = true,
    // Four tiles, of which the dialog has two: such a row keeps H and tw only.
    .buildReplacement = rowOfHbta,
};

/// Remembers numbers instead of texts.
class PsaRun : public ProfileRun {
public:
    PsaRun() : ProfileRun(kPsa) {}

protected:
    void showDimensions(ads_hdlg dialog) override {
        for (const DimensionTile& tile : kTiles)
            setTile(dialog, tile.key, FormatInString(state().medidas.*tile.value));
    }
};

}  // namespace

std::unique_ptr<ProfileRun> perfilpsa() { return std::make_unique<PsaRun>(); }

}  // namespace perfis
