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

using zp::edicao::Edicao;

/// Takes the member's plates one by one before it makes new ones, so that marks, links and handles
/// stay.
class ReusedChapas : public ChapaSupply {
public:
    explicit ReusedChapas(Edicao& edit) : m_edit(edit) {}

    AcDbObjectId place(ZpObject& member, std::unique_ptr<ZpChapa> plate) override {
        while (m_next < m_edit.chapas().size()) {
            const AcDbObjectId id = m_edit.chapas()[m_next++];
            if (m_edit.refazChapa(id, *plate)) return id;
        }
        return ChapaSupply::place(member, std::move(plate));
    }
    void eraseRest() {
        while (m_next < m_edit.chapas().size()) m_edit.apaga(m_edit.chapas()[m_next++]);
    }

private:
    Edicao& m_edit;
    std::size_t m_next = 0;
};

/// Counts and measures without drawing.
class NoChapas : public ChapaSupply {
public:
    AcDbObjectId place(ZpObject&, std::unique_ptr<ZpChapa>) override { return {}; }
};

AcGePoint3d startOf(const ZpObject& piece) {
    AcGePoint3d start;
    (void)piece.StartPoint(start);
    return start;
}

/// The piece as the command makes it, at its start and along X.
std::unique_ptr<ZpObject> makeModel(const PerfilDescription& description, const RunState& state,
                                    const PecaValues& piece, AcGePoint3d start) {
    const PecaRequest request = requestFor(state, chosenVista(state.views));
    const AcGePoint3d end = start + AcGeVector3d::kXAxis * state.views.length;
    const bool between = piece.twoPoints && !state.views.secaoOnly;
    std::unique_ptr<ZpObject> model = between ? makeBetween(description, start, end, request)
                                              : makeAtPoint(description, start, request);
    (void)model->settipoBarra(static_cast<ZpObject::TipoBarra>(state.barType));
    if (description.finish != nullptr) description.finish(*model, request);
    return model;
}

/// What the command remembers of the piece as it was.
RunState stateBefore(const PerfilDescription& description, const RunState& state,
                     const PecaValues& piece) {
    RunState before = state;
    before.medidas = medidasOf(description, piece.values);
    before.views.secaoOnly = piece.view == ZpObject::kVistaSecao;
    before.views.view = piece.view;
    before.views.length = piece.length;
    return before;
}

zp::edicao::Cota inPeca(const CotaLine& line, const AcGePoint3d& start) {
    const AcGeVector3d origin = start.asVector();
    return {line.from - origin, line.to - origin, line.line - origin};
}

struct ChangedCotas {
    std::vector<zp::edicao::CotaMudada> moved;
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

/// Rows of plates that were in the material list: the plate that stands for each.
std::vector<AcDbObjectId> listedChapas(const PecaValues& piece) {
    std::vector<AcDbObjectId> listed;
    for (const ChapaValues& plate : piece.plates)
        if (zp::lista::quantidadeListada(plate.id) > 0) listed.push_back(plate.id);
    return listed;
}

/// The rows of a piece that is in the list.
void updateList(const VistasChoice& views, const PecaValues& piece,
                const std::vector<AcDbObjectId>& listed, LaidChapas& laid) {
    // A section is not entered, but one that is there stays.
    const bool allowed = !views.secaoOnly || piece.view == ZpObject::kVistaSecao;
    const bool stays = views.materialList && allowed;
    const int pieces = pecaCount(views);
    if (stays)
        (void)zp::lista::mudaListada(piece.id, piece.id, pieces);
    else
        zp::lista::retiraListada(piece.id);
    for (std::size_t i = 0; i < std::max(listed.size(), laid.rows.size()); ++i) {
        const bool wasListed = i < listed.size();
        if (!stays || i >= laid.rows.size()) {
            if (wasListed) zp::lista::retiraListada(listed[i]);
        } else if (wasListed) {
            (void)zp::lista::mudaListada(listed[i], laid.rows[i].plate,
                                         laid.rows[i].count * pieces);
        } else {
            (void)MatListChapas(piece.id, pieces, laid.rows[i]);
            (void)zp::lista::amarra(laid.rows[i].mark, laid.rows[i].plate);
        }
    }
}

/// A piece that was in no list enters it. A mark looks for its piece among the new ones, to which
/// this one and its plates need not belong.
void enterInList(const VistasChoice& views, const PecaValues& piece, const AcGePoint3d& start,
                 LaidChapas& laid) {
    Companions companions;
    enterInMaterialList(views, start, piece.id, laid, companions);
    // A mark that was not drawn needs no piece.
    (void)zp::lista::amarra(companions.marks[0], piece.id);
    for (std::size_t i = 0; i < laid.rows.size(); ++i)
        (void)zp::lista::amarra(companions.marks[i + 1], laid.rows[i].plate);
}

void reportUnchanged(Acad::ErrorStatus status) {
    (void)acutPrintf(status == Acad::eOnLockedLayer
                         ? L"\nA camada da peça está bloqueada; desbloqueie-a para editar.\n"
                         : L"\nA peça não pode ser alterada agora.\n");
}

}  // namespace

int rebuildPeca(const PerfilDescription& description, const RunState& state,
                const PecaValues& piece, const ChapaLaying& layChapas, double shownPitch) {
    const std::vector<AcDbObjectId> listed = listedChapas(piece);
    Edicao edit(piece.id);
    if (edit.status() != Acad::eOk) {
        reportUnchanged(edit.status());
        return RTERROR;
    }
    const AcGePoint3d start = startOf(edit.peca());
    const RunState before = stateBefore(description, state, piece);
    const std::unique_ptr<ZpObject> model = makeModel(description, state, piece, start);
    // Another row of a catalogue is another section; else values that no tile shows stay.
    if (state.medidas.m == before.medidas.m)
        zp::edicao::mantem(edit.peca(), *makeModel(description, before, piece, start), *model);
    NoChapas none;
    const double pitch = layChapas ? layChapas(*model, start, none).pitch : 0.0;
    const ChangedCotas dimensions =
        compare(layOutCotas(description, before, edit.peca(), shownPitch),
                layOutCotas(description, state, *model, pitch), start);
    const bool wanted = sharedCotaFlag() != 0;
    const bool again = !piece.dimensioned || dimensions.otherOnes || model->vista() != piece.view;
    if (!wanted || again)
        for (const AcDbObjectId& id : zp::edicao::cotasDe(edit.peca())) edit.apaga(id);

    (void)edit.refaz(*model, dimensions.moved);  // the command makes pieces of one class
    LaidChapas laid;
    ReusedChapas supply(edit);
    if (layChapas) laid = layChapas(edit.peca(), start, supply);
    supply.eraseRest();
    if (wanted && again) (void)cotaPeca(description, state, edit.peca(), laid);
    edit.termina();

    if (piece.listed > 0)
        updateList(state.views, piece, listed, laid);
    else
        enterInList(state.views, piece, start, laid);
    return RTNORM;
}

void layChapasAgain(const PerfilDescription& description, const RunState& state,
                    const PecaValues& piece, const ChapaLaying& layChapas) {
    const std::vector<AcDbObjectId> listed = listedChapas(piece);
    Edicao edit(piece.id);
    if (edit.status() != Acad::eOk) return;
    const AcGePoint3d start = startOf(edit.peca());
    const double pitchBefore = chapaPitch(piece);
    LaidChapas laid;
    ReusedChapas supply(edit);
    if (layChapas) laid = layChapas(edit.peca(), start, supply);
    supply.eraseRest();
    // The piece itself is as it is to be; the dimension of the pitch goes with the plates.
    if (laid.pitch > 0.0) {
        const ChangedCotas dimensions =
            compare(layOutCotas(description, state, edit.peca(), pitchBefore),
                    layOutCotas(description, state, edit.peca(), laid.pitch), start);
        (void)edit.refaz(edit.peca(), dimensions.moved);  // of its own class
    }
    edit.termina();
    if (piece.listed > 0) updateList(state.views, piece, listed, laid);
}

}  // namespace perfis
