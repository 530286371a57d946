// SPDX-License-Identifier: MIT
// Generation of a profile of one piece.
#include "perfis/commands/perfil_generator.h"

#include <algorithm>
#include <span>

#include "adscodes.h"
#include "perfis/entities/zpfuncoes.h"
#include "perfis/output/material_list.h"
#include "perfis/output/object_jig.h"
#include "perfis/output/open_peca.h"
#include "perfis/output/shared_cota.h"
#include "zp/matlist/follow.h"
#include "zp/objects/cortes.h"
#include "zp/objects/editable_medidas.h"
#include "zp/objects/member.h"

namespace perfis {
namespace {

/// Members without a rule of their own are made at the picked point and then moved to a face point.
/// Returns where the piece's own point stands.
AcGePoint3d alignToFace(const PerfilDescription& description, const RunState& state, ZpObject& peca,
                        const AcGePoint3d& point) {
    if (state.vistas.secaoOnly || description.barraShift != nullptr) return point;
    return moveToFacePoint(peca, state.vistas.alignment);
}

/// Layer, bar type and what the command itself sets.
void finish(const PerfilDescription& description, const RunState& state, const PecaRequest& request,
            ZpObject& peca) {
    prepare(peca, state.tipoBarra);
    if (description.finish != nullptr) description.finish(peca, request);
    // Values that were examined before.
    for (const OwnMedida& own : state.own)
        if (const zp::sheets::Medida* const medida = zp::sheets::medidaFor(own.key))
            (void)zp::sheets::change(zp::Access::of(peca), *medida, own.value / medida->factor);
    zp::Access::of(peca).cortes = state.cortes;
    if (state.aco.empty()) return;
    zp::Member member = zp::member::of(peca);
    member.grade = state.aco;
    zp::member::set(peca, member);
}

void turn(const PerfilDescription& description, const AcGePoint3d& base, AcDbObjectId peca,
          const Companions& companions) {
    if (description.turning == Turning::kPeca) {
        (void)rotateIntoPlace(base, peca, companions);
        return;
    }
    std::vector<AcDbObjectId> set{peca};
    for (const std::span<const AcDbObjectId> ids :
         {std::span(companions.cotas), std::span(companions.others),
          std::span<const AcDbObjectId>(companions.marcas)})
        set.insert(set.end(), ids.begin(), ids.end());
    (void)rotateSet(base, set);
}

int placeOnePeca(const PerfilDescription& description, RunState& state,
                 const ChapaLaying& layChapas) {
    AcGePoint3d picked;
    if (getWCSpoint(picked, description.insertionPrompt) != RTNORM) return RTCAN;
    const std::optional<DrawnPeca> drawn = drawPeca(description, state, layChapas, picked);
    if (!drawn) return RTERROR;
    turn(description, picked, drawn->peca, drawn->companions);
    return RTNORM;
}

}  // namespace

int generatePerfil(const PerfilDescription& description, RunState& state,
                   const ChapaLaying& layChapas) {
    if (!state.vistas.pickAndGo) return placeOnePeca(description, state, layChapas);
    return description.pickAndGo == PickAndGo::kDragsEnd ? dragPecas(description, state)
                                                         : drawBetweenPoints(description, state);
}

NewPeca newPeca(const PerfilDescription& description, RunState& state, const AcGePoint3d& picked) {
    const Shift shift = insertionShift(description, state);
    const AcGePoint3d point = picked + AcGeVector3d(shift.x, shift.y, 0.0);
    if (state.vistas.secaoOnly && !description.keepsComprimentoInSecao && !state.keepsComprimento)
        state.vistas.comprimento = kSecaoComprimento;
    const PecaRequest request = requestFor(state, chosenVista(state.vistas));
    NewPeca made{makeAtPoint(description, point, request), point};
    made.point = alignToFace(description, state, *made.peca, point);
    finish(description, state, request, *made.peca);
    return made;
}

std::optional<DrawnPeca> drawPeca(const PerfilDescription& description, RunState& state,
                                  const ChapaLaying& layChapas, const AcGePoint3d& picked) {
    NewPeca made = newPeca(description, state, picked);
    OpenPeca peca(std::move(made.peca));
    if (!peca.resident()) return {};
    LaidChapas chapas;
    ChapaSupply supply;
    if (layChapas) chapas = layChapas(*peca, made.point, supply);
    supply.tellLeftOut();
    DrawnPeca drawn{peca.id(), {}};
    drawn.companions.others = chapas.ids;
    drawn.companions.cotas = cotaPeca(description, state, *peca, chapas);
    tieChapas(*peca, chapas.ids);
    peca.close();
    enterInMaterialList(state.vistas, description.listsAtOwnPoint ? made.point : picked, drawn.peca,
                        chapas, drawn.companions);
    return drawn;
}

ZpObject::ZpVistas chosenVista(const VistasChoice& vistas) {
    return vistas.secaoOnly ? ZpObject::kVistaSecao : static_cast<ZpObject::ZpVistas>(vistas.vista);
}

Shift insertionShift(const PerfilDescription& description, const RunState& state) {
    const VistasChoice& vistas = state.vistas;
    if (!vistas.secaoOnly) {
        if (description.barraShift == nullptr) return {};
        return description.barraShift(state.medidas,
                                      {vistas.vista, vistas.alignment, vistas.comprimento});
    }
    const auto index = static_cast<std::size_t>(state.insertion);
    if (index >= description.insertions.size()) return {};
    return description.insertions[index].shift(state.medidas);
}

int dragPecas(const PerfilDescription& description, const RunState& state) {
    const auto vista = static_cast<ZpObject::ZpVistas>(state.vistas.vista);
    for (;;) {
        AcGePoint3d start;
        if (getWCSpoint(start, description.startPrompt) != RTNORM) return RTNORM;
        AcGePoint3d end;
        const PecaRequest request = requestFor(state, vista);
        std::unique_ptr<ZpObject> peca = makeBetween(description, start, end, request);
        finish(description, state, request, *peca);
        if (ZpObjectJig(std::move(peca)).run() != AcEdJig::kNormal) return RTNORM;
    }
}

int drawBetweenPoints(const PerfilDescription& description, const RunState& state) {
    const auto vista = static_cast<ZpObject::ZpVistas>(state.vistas.vista);
    const PecaRequest request = requestFor(state, vista);
    for (;;) {
        AcGePoint3d start;
        AcGePoint3d end;
        if (askStartAndEnd(start, end) != RTNORM) return RTCAN;
        std::unique_ptr<ZpObject> peca = makeBetween(description, start, end, request);
        finish(description, state, request, *peca);
        const OpenPeca resident(std::move(peca));
    }
}

PecaCotas layOutCotas(const PerfilDescription& description, const RunState& state,
                      const ZpObject& peca, double pitch, double scale) {
    AcGePoint3d faces[4];
    peca.GetLimitPointsOfFaces(faces[0], faces[1], faces[2], faces[3]);
    AcGePoint3d origin;
    (void)peca.StartPoint(origin);
    PecaCotas cotas(origin, faces, scale);
    if (state.vistas.secaoOnly) {
        description.cotaSecao(cotas, state.medidas);
    } else if (state.vistas.vista >= 1 && state.vistas.vista <= 4) {
        // What is bought: with oblique ends no edge of the picture's box is as long.
        const auto fibre = zp::cortes::longestFibre(zp::Access::of(peca), faces[1].y - origin.y);
        cotas.add(cotas.at(fibre.from, fibre.w), cotas.at(fibre.to, fibre.w),
                  faces[1] + cotas.off(0.0, -kNearLine));
        cotas.altura();
        const AcGePoint3d chapa(origin.x, faces[1].y, origin.z);
        cotas.add(chapa, chapa + cotas.by(pitch, 0.0), chapa + cotas.off(0.0, -kFarLine));
    }
    return cotas;
}

std::vector<AcDbObjectId> cotaPeca(const PerfilDescription& description, const RunState& state,
                                   ZpObject& peca, const LaidChapas& chapas) {
    if (sharedCotaFlag() == 0) return {};
    std::vector<AcDbObjectId> ids =
        layOutCotas(description, state, peca, chapas.pitch, GetScale()).make();
    for (AcDbObjectId id : ids) (void)peca.LinkDim(id);
    return ids;
}

PecaRequest requestFor(const RunState& state, ZpObject::ZpVistas vista) {
    return {vista, state.medidas, state.vistas.comprimento, state.source, state.picked, state.face};
}

void enterInMaterialList(const VistasChoice& vistas, const AcGePoint3d& picked, AcDbObjectId peca,
                         LaidChapas& chapas, Companions& companions) {
    if (!vistas.materialList) return;
    const AcDbObjectId row = vistas.marca.empty()
                                 ? AcDbObjectId()
                                 : zp::matlist::rowOfMarca(*peca.database(), vistas.marca);
    if (vistas.pecas == 0 && !row.isNull()) {
        zp::matlist::enterVista(zp::matlist::barIn(row), peca);
        return;
    }
    if (vistas.secaoOnly) return;
    const int pecas = pecaCount(vistas);
    // One that joins a row has one of its own before.
    const std::wstring wanted = row.isNull() ? vistas.marca : std::wstring();
    auto& [marca, firstMarca, secondMarca] = companions.marcas;
    if (chapas.rows.empty()) {
        (void)MatListPerfil(picked, pecas, peca, marca, wanted);
    } else if (chapas.rows.size() == 1) {
        const ChapaRow& first = chapas.rows[0];
        (void)MatListPerfilChapa(picked, pecas, peca, marca, first.chapa, firstMarca, first.count,
                                 wanted);
    } else {
        (void)MatListPerfil2Chapas(picked, pecas, peca, marca, chapas.rows[0], chapas.rows[1],
                                   wanted);
        firstMarca = chapas.rows[0].marca;
        secondMarca = chapas.rows[1].marca;
    }
    if (!row.isNull()) zp::matlist::joinRow(peca, row, pecas);
}

int pecaCount(const VistasChoice& vistas) { return std::max(1, vistas.pecas); }

}  // namespace perfis
