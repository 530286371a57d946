// SPDX-License-Identifier: MIT
// Generation of a profile of one piece.
#include "perfis/commands/profile_generator.h"

#include <algorithm>

#include "adscodes.h"
#include "perfis/entities/zpfuncoes.h"
#include "perfis/output/material_list.h"
#include "perfis/output/object_jig.h"
#include "perfis/output/placement.h"
#include "perfis/output/shared_dimension.h"

namespace perfis {
namespace {

PieceRequest requestFor(const RunState& state, ZpObject::ZpVistas view) {
    return {view, state.medidas, state.views.length};
}

int placeOnePiece(const ProfileDescription& description, RunState& state) {
    AcGePoint3d point;
    if (getWCSpoint(point, kInsertionPrompt) != RTNORM) return RTCAN;
    const AcGePoint3d picked = point;
    const ZpObject::ZpVistas view = chosenView(state.views);
    const Shift shift = insertionShift(description, state);
    point += AcGeVector3d(shift.x, shift.y, 0.0);
    if (state.views.sectionOnly && !description.keepsLengthInSection)
        state.views.length = kSectionLength;

    std::unique_ptr<ZpObject> made = description.onePoint(point, requestFor(state, view));
    prepare(*made, state.barType);
    OpenPiece piece(std::move(made));
    if (!piece.resident()) return RTERROR;
    Companions companions;
    companions.dimensions = dimensionPiece(description, state, piece);
    piece.close();

    if (!state.views.sectionOnly && state.views.materialList)
        (void)MatListPerfil(picked, pieceCount(state.views), piece.id(), companions.marks[0]);
    (void)rotateIntoPlace(picked, piece.id(), companions);
    return RTNORM;
}

}  // namespace

int generateProfile(const ProfileDescription& description, RunState& state) {
    return state.views.pickAndGo ? dragPieces(description, state)
                                 : placeOnePiece(description, state);
}

ZpObject::ZpVistas chosenView(const ViewsChoice& views) {
    return views.sectionOnly ? ZpObject::kVistaSecao : static_cast<ZpObject::ZpVistas>(views.view);
}

Shift insertionShift(const ProfileDescription& description, const RunState& state) {
    const ViewsChoice& views = state.views;
    if (!views.sectionOnly)
        return description.memberShift(state.medidas, {views.view, views.alignment, views.length});
    const auto index = static_cast<std::size_t>(state.insertion);
    if (index >= description.insertions.size()) return {};
    return description.insertions[index].shift(state.medidas);
}

int dragPieces(const ProfileDescription& description, const RunState& state) {
    const auto view = static_cast<ZpObject::ZpVistas>(state.views.view);
    for (;;) {
        AcGePoint3d start;
        if (getWCSpoint(start, kStartPrompt) != RTNORM) return RTNORM;
        AcGePoint3d end;
        std::unique_ptr<ZpObject> piece =
            description.twoPoints(start, end, requestFor(state, view));
        prepare(*piece, state.barType);
        if (ZpObjectJig(std::move(piece)).run() != AcEdJig::kNormal) return RTNORM;
    }
}

std::vector<AcDbObjectId> dimensionPiece(const ProfileDescription& description,
                                         const RunState& state, OpenPiece& piece) {
    if (sharedDimensionFlag() == 0) return {};
    AcGePoint3d faces[4];
    piece->GetLimitPointsOfFaces(faces[0], faces[1], faces[2], faces[3]);
    AcGePoint3d origin;
    (void)piece->StartPoint(origin);
    PieceDimensions dimensions(origin, faces);
    if (state.views.sectionOnly) {
        description.dimensionSection(dimensions, state.medidas);
    } else if (state.views.view >= 1 && state.views.view <= 4) {
        dimensions.width();
        dimensions.height();
    }
    for (AcDbObjectId id : dimensions.ids()) (void)piece->LinkDim(id);
    return dimensions.ids();
}

int pieceCount(const ViewsChoice& views) { return std::max(1, views.pieces); }

}  // namespace perfis
