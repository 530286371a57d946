// SPDX-License-Identifier: MIT
// Rebuilding of a piece: values, plates, dimensions, material list.
#include "perfis/commands/peca_rebuild.h"

#include <algorithm>

#include "acutads.h"
#include "adscodes.h"
#include "perfis/commands/perfil_generator.h"
#include "perfis/commands/travejamento_values.h"
#include "perfis/output/shared_cota.h"
#include "zp/matlist/follow.h"
#include "zp/objects/edit.h"

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

/// Counts and measures without drawing.
class NoChapas : public ChapaSupply {
public:
    AcDbObjectId place(ZpObject&, std::unique_ptr<ZpChapa>) override { return {}; }
};

AcGePoint3d startOf(const ZpObject& peca) {
    AcGePoint3d start;
    (void)peca.StartPoint(start);
    return start;
}

/// The piece as the command makes it, at its start and along X.
std::unique_ptr<ZpObject> makeModel(const PerfilDescription& description, const RunState& state,
                                    const PecaValues& peca, AcGePoint3d start) {
    const PecaRequest request = requestFor(state, chosenVista(state.vistas));
    const AcGePoint3d end = start + AcGeVector3d::kXAxis * state.vistas.comprimento;
    const bool between = peca.twoPoints && !state.vistas.secaoOnly;
    std::unique_ptr<ZpObject> model = between ? makeBetween(description, start, end, request)
                                              : makeAtPoint(description, start, request);
    (void)model->settipoBarra(static_cast<ZpObject::TipoBarra>(state.tipoBarra));
    if (description.finish != nullptr) description.finish(*model, request);
    return model;
}

/// What the command remembers of the piece as it was.
RunState stateBefore(const PerfilDescription& description, const RunState& state,
                     const PecaValues& peca) {
    RunState before = state;
    before.medidas = medidasOf(description, peca.values);
    before.vistas.secaoOnly = peca.vista == ZpObject::kVistaSecao;
    before.vistas.vista = peca.vista;
    before.vistas.comprimento = peca.comprimento;
    return before;
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

/// Rows of the material list that the plates stand in, each once.
std::vector<AcDbObjectId> rowsOfChapas(const PecaValues& peca) {
    std::vector<AcDbObjectId> rows;
    for (const ChapaValues& chapa : peca.chapas) {
        const AcDbObjectId row = zp::matlist::recordOf(chapa.id);
        if (!row.isNull() && std::ranges::find(rows, row) == rows.end()) rows.push_back(row);
    }
    return rows;
}

/// The rows of a piece that is in the list; `rows` are those of its plates before the change.
void updateList(const VistasChoice& vistas, const PecaValues& peca,
                const std::vector<AcDbObjectId>& rows, LaidChapas& laid) {
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
    for (std::size_t i = 0; i < laid.rows.size(); ++i)
        if (i < rows.size())
            (void)zp::matlist::enterChapas(laid.rows[i].chapa, rows[i]);
        else
            (void)MatListChapas(peca.id, pecaCount(vistas), laid.rows[i]);
}

void reportUnchanged(Acad::ErrorStatus status) {
    (void)acutPrintf(status == Acad::eOnLockedLayer
                         ? L"\nA camada da peça está bloqueada; desbloqueie-a para editar.\n"
                         : L"\nA peça não pode ser alterada agora.\n");
}

}  // namespace

int rebuildPeca(const PerfilDescription& description, const RunState& state, const PecaValues& peca,
                const ChapaLaying& layChapas, double shownPitch) {
    const std::vector<AcDbObjectId> rows = rowsOfChapas(peca);
    Edit edit(peca.id);
    if (edit.status() != Acad::eOk) {
        reportUnchanged(edit.status());
        return RTERROR;
    }
    const AcGePoint3d start = startOf(edit.peca());
    const RunState before = stateBefore(description, state, peca);
    const std::unique_ptr<ZpObject> model = makeModel(description, state, peca, start);
    // Another row of a catalogue is another section; else values that no tile shows stay.
    if (state.medidas.m == before.medidas.m)
        zp::edit::keepOwnValues(edit.peca(), *makeModel(description, before, peca, start), *model);
    NoChapas none;
    const double pitch = layChapas ? layChapas(*model, start, none).pitch : 0.0;
    const ChangedCotas cotas = compare(layOutCotas(description, before, edit.peca(), shownPitch),
                                       layOutCotas(description, state, *model, pitch), start);
    const bool wanted = sharedCotaFlag() != 0;
    const bool again = !peca.hasCotas || cotas.otherOnes || model->vista() != peca.vista;
    if (!wanted || again)
        for (const AcDbObjectId& id : zp::edit::cotasOf(edit.peca())) edit.eraseLinked(id);

    (void)edit.remake(*model, cotas.moved);  // the command makes pieces of one class
    LaidChapas laid;
    ReusedChapas supply(edit);
    if (layChapas) laid = layChapas(edit.peca(), start, supply);
    supply.eraseRest();
    if (wanted && again) (void)cotaPeca(description, state, edit.peca(), laid);
    edit.finish();

    Companions companions;
    if (peca.listed)
        updateList(state.vistas, peca, rows, laid);
    else
        enterInMaterialList(state.vistas, start, peca.id, laid, companions);
    return RTNORM;
}

std::optional<std::vector<AcDbObjectId>> pecasToRebuild(const PerfilDescription& description,
                                                        const RunState& state,
                                                        const PecaValues& peca) {
    const AcDbObjectPointer<ZpObject> standing(peca.id, AcDb::kForRead);
    if (standing.openStatus() != Acad::eOk) return std::vector<AcDbObjectId>();
    const AcGePoint3d start = startOf(*standing.object());
    const std::unique_ptr<ZpObject> model = makeModel(description, state, peca, start);
    return zp::edit::alikeOf(*standing.object(), *model);
}

void layChapasAgain(const PerfilDescription& description, const RunState& state,
                    const PecaValues& peca, const ChapaLaying& layChapas) {
    const std::vector<AcDbObjectId> rows = rowsOfChapas(peca);
    Edit edit(peca.id);
    if (edit.status() != Acad::eOk) return;
    const AcGePoint3d start = startOf(edit.peca());
    const double pitchBefore = chapaPitch(peca);
    LaidChapas laid;
    ReusedChapas supply(edit);
    if (layChapas) laid = layChapas(edit.peca(), start, supply);
    supply.eraseRest();
    // The piece itself is as it is to be; the dimension of the pitch goes with the plates.
    if (laid.pitch > 0.0) {
        const ChangedCotas cotas =
            compare(layOutCotas(description, state, edit.peca(), pitchBefore),
                    layOutCotas(description, state, edit.peca(), laid.pitch), start);
        (void)edit.remake(edit.peca(), cotas.moved);  // of its own class
    }
    edit.finish();
    if (peca.listed) updateList(state.vistas, peca, rows, laid);
}

}  // namespace perfis
