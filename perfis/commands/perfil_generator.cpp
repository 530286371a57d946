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
AcGePoint3d alignToFace(const ProfileDescription& description, const RunState& state,
                        ZpObject& piece, const AcGePoint3d& point) {
    if (state.views.sectionOnly || description.memberShift != nullptr) return point;
    return moveToFacePoint(piece, state.views.alignment);
}

/// Layer, bar type and what the command itself sets.
void finish(const ProfileDescription& description, const RunState& state,
            const PieceRequest& request, ZpObject& piece) {
    prepare(piece, state.barType);
    if (description.finish != nullptr) description.finish(piece, request);
}

void turn(const ProfileDescription& description, const AcGePoint3d& base, AcDbObjectId piece,
          const Companions& companions) {
    if (description.turning == Turning::kPiece) {
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

int placeOnePiece(const ProfileDescription& description, RunState& state,
                  const PlateLaying& layPlates) {
    AcGePoint3d point;
    if (getWCSpoint(point, description.insertionPrompt) != RTNORM) return RTCAN;
    const AcGePoint3d picked = point;
    const ZpObject::ZpVistas view = chosenView(state.views);
    const Shift shift = insertionShift(description, state);
    point += AcGeVector3d(shift.x, shift.y, 0.0);
    if (state.views.sectionOnly && !description.keepsLengthInSection)
        state.views.length = kSectionLength;

    const PieceRequest request = requestFor(state, view);
    std::unique_ptr<ZpObject> made = makeAtPoint(description, point, request);
    point = alignToFace(description, state, *made, point);
    finish(description, state, request, *made);
    OpenPiece piece(std::move(made));
    if (!piece.resident()) return RTERROR;
    LaidPlates plates;
    PlateSupply supply;
    if (layPlates) plates = layPlates(*piece, point, supply);
    Companions companions;
    companions.others = plates.ids;
    companions.dimensions = dimensionPiece(description, state, *piece, plates);
    tiePlates(*piece, plates.ids);
    piece.close();

    enterInMaterialList(state.views, description.listsAtOwnPoint ? point : picked, piece.id(),
                        plates, companions);
    turn(description, picked, piece.id(), companions);
    return RTNORM;
}

}  // namespace

int generateProfile(const ProfileDescription& description, RunState& state,
                    const PlateLaying& layPlates) {
    if (!state.views.pickAndGo) return placeOnePiece(description, state, layPlates);
    return description.pickAndGo == PickAndGo::kDragsEnd ? dragPieces(description, state)
                                                         : drawBetweenPoints(description, state);
}

ZpObject::ZpVistas chosenView(const ViewsChoice& views) {
    return views.sectionOnly ? ZpObject::kVistaSecao : static_cast<ZpObject::ZpVistas>(views.view);
}

Shift insertionShift(const ProfileDescription& description, const RunState& state) {
    const ViewsChoice& views = state.views;
    if (!views.sectionOnly) {
        if (description.memberShift == nullptr) return {};
        return description.memberShift(state.medidas, {views.view, views.alignment, views.length});
    }
    const auto index = static_cast<std::size_t>(state.insertion);
    if (index >= description.insertions.size()) return {};
    return description.insertions[index].shift(state.medidas);
}

int dragPieces(const ProfileDescription& description, const RunState& state) {
    const auto view = static_cast<ZpObject::ZpVistas>(state.views.view);
    for (;;) {
        AcGePoint3d start;
        if (getWCSpoint(start, description.startPrompt) != RTNORM) return RTNORM;
        AcGePoint3d end;
        const PieceRequest request = requestFor(state, view);
        std::unique_ptr<ZpObject> piece = makeBetween(description, start, end, request);
        finish(description, state, request, *piece);
        if (ZpObjectJig(std::move(piece)).run() != AcEdJig::kNormal) return RTNORM;
    }
}

int drawBetweenPoints(const ProfileDescription& description, const RunState& state) {
    const auto view = static_cast<ZpObject::ZpVistas>(state.views.view);
    const PieceRequest request = requestFor(state, view);
    for (;;) {
        AcGePoint3d start;
        AcGePoint3d end;
        if (askStartAndEnd(start, end) != RTNORM) return RTCAN;
        std::unique_ptr<ZpObject> piece = makeBetween(description, start, end, request);
        finish(description, state, request, *piece);
        const OpenPiece resident(std::move(piece));
    }
}

PieceDimensions layOutDimensions(const ProfileDescription& description, const RunState& state,
                                 const ZpObject& piece, double pitch) {
    AcGePoint3d faces[4];
    piece.GetLimitPointsOfFaces(faces[0], faces[1], faces[2], faces[3]);
    AcGePoint3d origin;
    (void)piece.StartPoint(origin);
    PieceDimensions dimensions(origin, faces);
    if (state.views.sectionOnly) {
        description.dimensionSection(dimensions, state.medidas);
    } else if (state.views.view >= 1 && state.views.view <= 4) {
        dimensions.width();
        dimensions.height();
        const AcGePoint3d plate(origin.x, faces[1].y, origin.z);
        dimensions.add(plate, plate + dimensions.by(pitch, 0.0),
                       plate + dimensions.off(0.0, -kFarLine));
    }
    return dimensions;
}

std::vector<AcDbObjectId> dimensionPiece(const ProfileDescription& description,
                                         const RunState& state, ZpObject& piece,
                                         const LaidPlates& plates) {
    if (sharedDimensionFlag() == 0) return {};
    std::vector<AcDbObjectId> ids =
        layOutDimensions(description, state, piece, plates.pitch).make();
    for (AcDbObjectId id : ids) (void)piece.LinkDim(id);
    return ids;
}

PieceRequest requestFor(const RunState& state, ZpObject::ZpVistas view) {
    return {view, state.medidas, state.views.length, state.source};
}

void enterInMaterialList(const ViewsChoice& views, const AcGePoint3d& picked, AcDbObjectId piece,
                         LaidPlates& plates, Companions& companions) {
    if (views.sectionOnly || !views.materialList) return;
    const int pieces = pieceCount(views);
    auto& [mark, firstMark, secondMark] = companions.marks;
    if (plates.rows.empty()) {
        (void)MatListPerfil(picked, pieces, piece, mark);
    } else if (plates.rows.size() == 1) {
        const PlateRow& row = plates.rows[0];
        (void)MatListPerfilChapa(picked, pieces, piece, mark, row.plate, firstMark, row.count);
    } else {
        (void)MatListPerfil2Chapas(picked, pieces, piece, mark, plates.rows[0], plates.rows[1]);
        firstMark = plates.rows[0].mark;
        secondMark = plates.rows[1].mark;
    }
}

int pieceCount(const ViewsChoice& views) { return std::max(1, views.pieces); }

}  // namespace perfis
