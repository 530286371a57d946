// SPDX-License-Identifier: MIT
// Rebuilding of a piece: values, plates, dimensions, material list.
#include "perfis/commands/peca_rebuild.h"

#include <algorithm>
#include <cmath>

#include "acutads.h"
#include "adscodes.h"
#include "dbdim.h"
#include "perfis/commands/perfil_generator.h"
#include "perfis/entities/zpfuncoes.h"
#include "perfis/output/shared_cota.h"
#include "texts/number.h"
#include "zp/matlist/check.h"
#include "zp/matlist/follow.h"
#include "zp/objects/cortes.h"
#include "zp/objects/edit.h"
#include "zp/objects/member.h"
#include "zp/objects/published.h"

namespace perfis {
namespace {

using zp::edit::Edit;

/// Takes the member's plates one by one before it makes new ones, so that marks, links and handles
/// stay.
class ReusedChapas : public ChapaSupply {
public:
    explicit ReusedChapas(Edit& edit) : m_edit(edit) {}

    AcDbObjectId place(ZpObject& barra, std::unique_ptr<ZpChapa> chapa) override {
        while (m_next < m_edit.chapas().size()) {
            const AcDbObjectId id = m_edit.chapas()[m_next++];
            if (m_edit.remakeChapa(id, *chapa)) return id;
        }
        return ChapaSupply::place(barra, std::move(chapa));
    }
    void eraseRest() {
        while (m_next < m_edit.chapas().size()) m_edit.eraseLinked(m_edit.chapas()[m_next++]);
    }

private:
    Edit& m_edit;
    std::size_t m_next = 0;
};

/// "1 que tinha sido movida e 2 apagadas voltam ao lugar da regra", behind what is laid.
void sayLaid(const PecaEdit& edit, const RuledPeca& after, std::size_t laid) {
    const std::size_t ruled = edit.before.chapas.size();
    const std::size_t standing = edit.peca.chapas.size();
    if (ruled == 0 || laid == 0) return;
    std::wstring text =
        L"\nTravejamento refeito: " + std::to_wstring(laid) + (laid == 1 ? L" chapa" : L" chapas");
    const std::size_t moved = movedChapas(edit.peca, edit.before, after);
    const std::size_t erased = ruled > standing ? ruled - standing : 0;
    if (standing > 0) {
        if (moved + erased == 0) return;
        text += L"; ";
        if (moved > 0)
            text += std::to_wstring(moved) +
                    (moved == 1 ? L" que tinha sido movida" : L" que tinham sido movidas");
        if (moved > 0 && erased > 0) text += L" e ";
        if (erased > 0)
            text += std::to_wstring(erased) + (erased == 1 ? L" apagada" : L" apagadas");
        text += moved + erased == 1 ? L" volta" : L" voltam";
        text += L" ao lugar da regra";
    }
    (void)acutPrintf(L"%ls.\n", text.c_str());
}

bool laysAgain(const PecaEdit& edit, const RuledPeca& after) {
    return edit.laysAgain || edit.peca.chapas.empty() || !sameChapas(edit.before, after);
}

zp::edit::Cota inPeca(const CotaLine& line, const AcGePoint3d& start) {
    const AcGeVector3d origin = start.asVector();
    return {line.from - origin, line.to - origin, line.line - origin};
}

struct ChangedCotas {
    std::vector<zp::edit::ChangedCota> moved;
    bool otherOnes = false;  ///< the rule makes more of them, or fewer
};

ChangedCotas compare(const PecaCotas& before, const PecaCotas& after, const AcGePoint3d& start) {
    ChangedCotas changed;
    changed.otherOnes = before.lines().size() != after.lines().size();
    for (std::size_t i = 0; !changed.otherOnes && i < before.lines().size(); ++i) {
        const CotaLine& was = before.lines()[i];
        const CotaLine& is = after.lines()[i];
        changed.otherOnes = was.isEmpty() != is.isEmpty();
        if (!was.isEmpty()) changed.moved.push_back({inPeca(was, start), inPeca(is, start)});
    }
    return changed;
}

/// Scale for which the dimensions of a piece were made; the drawing's when none is left.
double scaleOfCotas(const ZpObject& peca) {
    for (const AcDbObjectId& id : zp::edit::cotasOf(peca)) {
        const AcDbObjectPointer<AcDbDimension> cota(id, AcDb::kForRead);
        if (cota.object() != nullptr && cota->dimscale() > 0.0) return cota->dimscale();
    }
    return GetScale();
}

/// They, their arrows and texts get the drawing's scale; what lies on a locked layer stays. The
/// number of those that changed.
int takeScale(const std::vector<AcDbObjectId>& cotas) {
    const double scale = GetScale();
    int changed = 0;
    for (const AcDbObjectId& id : cotas) {
        const AcDbObjectPointer<AcDbDimension> cota(id, AcDb::kForRead);
        if (cota.object() == nullptr || cota->dimscale() == scale ||
            zp::edit::onLockedLayer(*cota.object()) || cota->upgradeOpen() != Acad::eOk)
            continue;
        if (cota->setDimscale(scale) == Acad::eOk) ++changed;
    }
    return changed;
}

/// Rows of the material list that the plates stand in, each once.
std::vector<AcDbObjectId> rowsOfChapas(const PecaValues& peca) {
    std::vector<AcDbObjectId> rows;
    for (const ChapaValues& chapa : peca.chapas) {
        const AcDbObjectId row = zp::matlist::recordOf(chapa.id);
        if (!row.isNull() && std::ranges::find(rows, row) == rows.end()) rows.push_back(row);
    }
    return rows;
}

/// Plates that were left as they are, by the rows that the list would have of them.
LaidChapas standing(const PecaValues& peca) {
    LaidChapas chapas;
    std::vector<ZpObject::ZpVistas> vistas;
    for (const ChapaValues& chapa : peca.chapas) {
        chapas.ids.push_back(chapa.id);
        const auto row = std::ranges::find(vistas, chapa.vista) - vistas.begin();
        if (row == std::ssize(vistas)) {
            vistas.push_back(chapa.vista);
            chapas.rows.push_back({chapa.id, 0, {}});
        }
        ChapaRow& listed = chapas.rows[static_cast<std::size_t>(row)];
        if (++listed.count == 2) listed.chapa = chapa.id;  // as if they were laid
    }
    return chapas;
}

/// What is done with the plates of a piece.
enum class Chapas { Stay, LaidAgain };

/// The rows of a piece that is in the list; `rows` are those of its plates before the change.
void updateList(const VistasChoice& vistas, const PecaValues& peca,
                const std::vector<AcDbObjectId>& rows, Chapas what, LaidChapas& laid) {
    // A section is not entered, but one that is there stays.
    const bool allowed = !vistas.secaoOnly || peca.vista == ZpObject::kVistaSecao;
    if (!vistas.materialList || !allowed) {
        zp::matlist::leaveRow(peca.id);
        for (const AcDbObjectId& chapa : laid.ids) zp::matlist::leaveRow(chapa);
        return;
    }
    // The dialog asks for one at least; a further view that was left at that stays one.
    const bool stillVista = peca.count == 0 && vistas.pecas == 1;
    (void)zp::matlist::enterRow(peca.id, zp::matlist::recordOf(peca.id),
                                stillVista ? 0 : vistas.pecas);
    if (what == Chapas::Stay) return;
    for (std::size_t i = 0; i < laid.rows.size(); ++i) {
        const AcDbObjectId chapa = laid.rows[i].chapa;
        const AcDbObjectId row = i < rows.size() ? rows[i] : zp::matlist::rowOfSiblings(chapa);
        if (!row.isNull())
            (void)zp::matlist::enterChapas(chapa, row);
        else if (MatListChapas(peca.id, pecaCount(vistas), laid.rows[i]) == RTNORM)
            zp::matlist::takeOldRow(chapa);
    }
}

void reportUnchanged(Acad::ErrorStatus status) {
    (void)acutPrintf(status == Acad::eOnLockedLayer
                         ? L"\nA camada da peça está bloqueada; desbloqueie-a para editar.\n"
                         : L"\nA peça não pode ser alterada agora.\n");
}

/// The plates that stand are used first, those that are too many go.
LaidChapas layAll(Edit& edit, const PecaEdit& asked, const AcGePoint3d& start) {
    LaidChapas laid;
    ReusedChapas supply(edit);
    if (asked.layChapas) laid = asked.layChapas(edit.peca(), start, supply);
    supply.eraseRest();
    supply.tellLeftOut();
    return laid;
}

/// A member that keeps its sizes takes what the table of its size has by now.
void sayMass(const ZpObject& peca, const ZpObject& after) {
    constexpr double kSameMass = 0.0005;
    const double was = peca.getLinearWeight();
    const double is = after.getLinearWeight();
    if (std::abs(is - was) <= kSameMass ||
        !zp::edit::sameShape(zp::edit::valuesOf(peca), zp::edit::valuesOf(after)))
        return;
    (void)acutPrintf(L"\n%ls: %ls kg/m, pela %ls; pesava %ls.\n",
                     zp::matlist::sizeOf(after).c_str(), texts::withComma(is, 3).c_str(),
                     zp::published::massWords(zp::Access::of(after)).c_str(),
                     texts::withComma(was, 3).c_str());
}

}  // namespace

int rebuildPeca(const PerfilDescription& description, const RunState& state,
                const PecaEdit& asked) {
    const PecaValues& peca = asked.peca;
    const std::vector<AcDbObjectId> rows = rowsOfChapas(peca);
    const RuledPeca after = ruledPeca(description, state, peca, asked.layChapas);
    if (const std::wstring fault = zp::cortes::fault(zp::Access::of(*after.peca)); !fault.empty()) {
        (void)acutPrintf(L"\n%ls\n", fault.c_str());
        return RTERROR;
    }
    const Chapas what = laysAgain(asked, after) ? Chapas::LaidAgain : Chapas::Stay;
    if (what == Chapas::LaidAgain && hasLockedChapa(peca)) {
        (void)acutPrintf(L"\n%ls\n", kLockedChapas);
        return RTERROR;
    }
    Edit edit(peca.id);
    if (edit.status() != Acad::eOk) {
        reportUnchanged(edit.status());
        return RTERROR;
    }
    // Another row of a catalogue is another section; else values that no tile shows stay.
    if (state.medidas.m == asked.before.state.medidas.m)
        zp::edit::keepOwnValues(edit.peca(), *asked.before.peca, *after.peca);
    const ChangedCotas cotas =
        compare(layOutCotas(description, asked.before.state, edit.peca(), asked.before.pitch,
                            scaleOfCotas(edit.peca())),
                layOutCotas(description, state, *after.peca, after.pitch, GetScale()), peca.start);
    const bool wanted = sharedCotaFlag() != 0;
    const bool again = !peca.hasCotas || cotas.otherOnes || after.peca->vista() != peca.vista;
    if (!wanted || again)
        for (const AcDbObjectId& id : zp::edit::cotasOf(edit.peca())) edit.eraseLinked(id);

    sayMass(edit.peca(), *after.peca);
    (void)edit.remake(*after.peca, cotas.moved);  // the command makes pieces of one class
    LaidChapas laid = what == Chapas::Stay ? standing(peca) : layAll(edit, asked, peca.start);
    laid.pitch = after.pitch;
    if (what == Chapas::LaidAgain) sayLaid(asked, after, laid.ids.size());
    zp::member::lace(edit.peca(), zp::member::of(*after.peca).lacing);
    if (wanted && again) (void)cotaPeca(description, state, edit.peca(), laid);
    (void)takeScale(zp::edit::cotasOf(edit.peca()));
    edit.finish();

    Companions companions;
    if (peca.listed)
        updateList(state.vistas, peca, rows, what, laid);
    else
        enterInMaterialList(state.vistas, peca.start, peca.id, laid, companions);
    return RTNORM;
}

std::optional<std::vector<AcDbObjectId>> pecasToRebuild(const PerfilDescription& description,
                                                        const RunState& state,
                                                        const PecaValues& peca,
                                                        const ChapaLaying& layChapas) {
    const AcDbObjectPointer<ZpObject> standing(peca.id, AcDb::kForRead);
    if (standing.openStatus() != Acad::eOk) return std::vector<AcDbObjectId>();
    const RuledPeca model = ruledPeca(description, state, peca, layChapas);
    return zp::edit::alikeOf(*standing.object(), *model.peca);
}

int layCotasAgain(const PerfilDescription& description, const RuledPeca& ruled,
                  const PecaValues& peca) {
    Edit edit(peca.id);
    if (edit.status() != Acad::eOk) return 0;
    const std::vector<AcDbObjectId> cotas = zp::edit::cotasOf(edit.peca());
    const double was = scaleOfCotas(edit.peca());
    const double is = GetScale();
    if (was == is ||
        std::ranges::any_of(cotas, [](AcDbObjectId id) { return zp::edit::onLockedLayer(id); }))
        return 0;
    const auto laidOut = [&](double scale) {
        return layOutCotas(description, ruled.state, edit.peca(), ruled.pitch, scale);
    };
    const ChangedCotas changed = compare(laidOut(was), laidOut(is), peca.start);
    (void)edit.remake(edit.peca(), changed.moved);  // of its own class
    edit.finish();
    return takeScale(cotas);
}

void layChapasAgain(const PerfilDescription& description, const RunState& state,
                    const PecaEdit& asked) {
    const PecaValues& peca = asked.peca;
    const std::vector<AcDbObjectId> rows = rowsOfChapas(peca);
    const RuledPeca after = ruledPeca(description, state, peca, asked.layChapas);
    // Where none stands the user erased them, unless there was no room for any.
    const bool mayLay =
        !peca.chapas.empty() || (asked.before.chapas.empty() && !after.chapas.empty());
    const bool lays = mayLay && laysAgain(asked, after);
    if (!lays && zp::member::of(*after.peca).lacing == peca.lacing) return;
    Edit edit(peca.id);
    if (edit.status() != Acad::eOk) return;
    zp::member::lace(edit.peca(), zp::member::of(*after.peca).lacing);
    if (!lays) return;
    LaidChapas laid = layAll(edit, asked, peca.start);
    sayLaid(asked, after, laid.ids.size());
    // The piece itself is as it is to be; the dimension of the pitch goes with the plates.
    if (laid.pitch > 0.0) {
        const double scale = scaleOfCotas(edit.peca());
        const ChangedCotas cotas =
            compare(layOutCotas(description, state, edit.peca(), asked.before.pitch, scale),
                    layOutCotas(description, state, edit.peca(), laid.pitch, scale), peca.start);
        (void)edit.remake(edit.peca(), cotas.moved);  // of its own class
    }
    edit.finish();
    if (peca.listed) updateList(state.vistas, peca, rows, Chapas::LaidAgain, laid);
}

}  // namespace perfis
