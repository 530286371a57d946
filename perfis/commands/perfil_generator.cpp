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

namespace perfis {
namespace {

/// Members without a rule of their own are made at the picked point and then moved to a face point.
/// Returns where the piece's own point stands.
AcGePoint3d alignToFace(const PerfilDescription& description, const RunState& state,
                        ZpObject& piece, const AcGePoint3d& point) {
    if (state.views.secaoOnly || description.barraShift != nullptr) return point;
    return moveToFacePoint(piece, state.views.alignment);
}

/// Layer, bar type and what the command itself sets.
void finish(const PerfilDescription& description, const RunState& state, const PecaRequest& request,
            ZpObject& piece) {
    prepare(piece, state.barType);
    if (description.finish != nullptr) description.finish(piece, request);
}

void turn(const PerfilDescription& description, const AcGePoint3d& base, AcDbObjectId piece,
          const Companions& companions) {
    if (description.turning == Turning::kPeca) {
        (void)rotateIntoPlace(base, piece, companions);
        return;
    }
    std::vector<AcDbObjectId> set{piece};
    for (const std::span<const AcDbObjectId> ids :
         {std::span(companions.dimensions), std::span(companions.others),
          std::span<const AcDbObjectId>(companions.marks)})
        set.insert(set.end(), ids.begin(), ids.end());
    (void)rotateSet(base, set);
}

int placeOnePeca(const PerfilDescription& description, RunState& state,
                 const ChapaLaying& layChapas) {
    AcGePoint3d point;
    if (getWCSpoint(point, description.insertionPrompt) != RTNORM) return RTCAN;
    const AcGePoint3d picked = point;
    const ZpObject::ZpVistas view = chosenVista(state.views);
    const Shift shift = insertionShift(description, state);
    point += AcGeVector3d(shift.x, shift.y, 0.0);
    if (state.views.secaoOnly && !description.keepsComprimentoInSecao)
        state.views.length = kSecaoComprimento;

    const PecaRequest request = requestFor(state, view);
    std::unique_ptr<ZpObject> made = makeAtPoint(description, point, request);
    point = alignToFace(description, state, *made, point);
    finish(description, state, request, *made);
    OpenPeca piece(std::move(made));
    if (!piece.resident()) return RTERROR;
    LaidChapas plates;
    ChapaSupply supply;
    if (layChapas) plates = layChapas(*piece, point, supply);
    Companions companions;
    companions.others = plates.ids;
    companions.dimensions = cotaPeca(description, state, *piece, plates);
    tieChapas(*piece, plates.ids);
    piece.close();

    enterInMaterialList(state.views, description.listsAtOwnPoint ? point : picked, piece.id(),
                        plates, companions);
    turn(description, picked, piece.id(), companions);
    return RTNORM;
}

}  // namespace

int generatePerfil(const PerfilDescription& description, RunState& state,
                   const ChapaLaying& layChapas) {
    if (!state.views.pickAndGo) return placeOnePeca(description, state, layChapas);
    return description.pickAndGo == PickAndGo::kDragsEnd ? dragPecas(description, state)
                                                         : drawBetweenPoints(description, state);
}

ZpObject::ZpVistas chosenVista(const VistasChoice& views) {
    return views.secaoOnly ? ZpObject::kVistaSecao : static_cast<ZpObject::ZpVistas>(views.view);
}

Shift insertionShift(const PerfilDescription& description, const RunState& state) {
    const VistasChoice& views = state.views;
    if (!views.secaoOnly) {
        if (description.barraShift == nullptr) return {};
        return description.barraShift(state.medidas, {views.view, views.alignment, views.length});
    }
    const auto index = static_cast<std::size_t>(state.insertion);
    if (index >= description.insertions.size()) return {};
    return description.insertions[index].shift(state.medidas);
}

int dragPecas(const PerfilDescription& description, const RunState& state) {
    const auto view = static_cast<ZpObject::ZpVistas>(state.views.view);
    for (;;) {
        AcGePoint3d start;
        if (getWCSpoint(start, description.startPrompt) != RTNORM) return RTNORM;
        AcGePoint3d end;
        const PecaRequest request = requestFor(state, view);
        std::unique_ptr<ZpObject> piece = makeBetween(description, start, end, request);
        finish(description, state, request, *piece);
        if (ZpObjectJig(std::move(piece)).run() != AcEdJig::kNormal) return RTNORM;
    }
}

int drawBetweenPoints(const PerfilDescription& description, const RunState& state) {
    const auto view = static_cast<ZpObject::ZpVistas>(state.views.view);
    const PecaRequest request = requestFor(state, view);
    for (;;) {
        AcGePoint3d start;
        AcGePoint3d end;
        if (askStartAndEnd(start, end) != RTNORM) return RTCAN;
        std::unique_ptr<ZpObject> piece = makeBetween(description, start, end, request);
        finish(description, state, request, *piece);
        const OpenPeca resident(std::move(piece));
    }
}

PecaCotas layOutCotas(const PerfilDescription& description, const RunState& state,
                      const ZpObject& piece, double pitch) {
    AcGePoint3d faces[4];
    piece.GetLimitPointsOfFaces(faces[0], faces[1], faces[2], faces[3]);
    AcGePoint3d origin;
    (void)piece.StartPoint(origin);
    PecaCotas dimensions(origin, faces);
    if (state.views.secaoOnly) {
        description.cotaSecao(dimensions, state.medidas);
    } else if (state.views.view >= 1 && state.views.view <= 4) {
        dimensions.width();
        dimensions.height();
        const AcGePoint3d plate(origin.x, faces[1].y, origin.z);
        dimensions.add(plate, plate + dimensions.by(pitch, 0.0),
                       plate + dimensions.off(0.0, -kFarLine));
    }
    return dimensions;
}

std::vector<AcDbObjectId> cotaPeca(const PerfilDescription& description, const RunState& state,
                                   ZpObject& piece, const LaidChapas& plates) {
    if (sharedCotaFlag() == 0) return {};
    std::vector<AcDbObjectId> ids = layOutCotas(description, state, piece, plates.pitch).make();
    for (AcDbObjectId id : ids) (void)piece.LinkDim(id);
    return ids;
}

PecaRequest requestFor(const RunState& state, ZpObject::ZpVistas view) {
    return {view, state.medidas, state.views.length, state.source};
}

void enterInMaterialList(const VistasChoice& views, const AcGePoint3d& picked, AcDbObjectId piece,
                         LaidChapas& plates, Companions& companions) {
    if (views.secaoOnly || !views.materialList) return;
    const int pieces = pecaCount(views);
    auto& [mark, firstMarca, secondMarca] = companions.marks;
    if (plates.rows.empty()) {
        (void)MatListPerfil(picked, pieces, piece, mark);
    } else if (plates.rows.size() == 1) {
        const ChapaRow& row = plates.rows[0];
        (void)MatListPerfilChapa(picked, pieces, piece, mark, row.plate, firstMarca, row.count);
    } else {
        (void)MatListPerfil2Chapas(picked, pieces, piece, mark, plates.rows[0], plates.rows[1]);
        firstMarca = plates.rows[0].mark;
        secondMarca = plates.rows[1].mark;
    }
}

int pecaCount(const VistasChoice& views) { return std::max(1, views.pieces); }

}  // namespace perfis
