// SPDX-License-Identifier: MIT
// Makes the drawing of a command that draws one piece.
#pragma once

#include <functional>

#include "perfis/commands/profile_description.h"
#include "perfis/commands/run_state.h"
#include "perfis/output/open_piece.h"
#include "perfis/output/plates.h"

namespace perfis {

/// Length of the piece that stands for a section.
inline constexpr double kSectionLength = 1000.0;

/// Lays the lacing plates of a piece that is in the drawing and open; `point` is the piece's own.
using PlateLaying = std::function<LaidPlates(ZpObject& piece, const AcGePoint3d& point)>;

/// Asks for points, draws the piece, its plates, its dimensions and its rows of the material list,
/// and hands all to placement; with pick-and-go drags pieces until one is refused. RTNORM, or RTCAN
/// when the insertion point is refused.
int generateProfile(const ProfileDescription& description, RunState& state,
                    const PlateLaying& layPlates = nullptr);

/// View of the next piece: the section, or the figure of the views dialog.
ZpObject::ZpVistas chosenView(const ViewsChoice& views);

/// From the picked point to the piece's own, by the section's insertion table or the member's
/// alignment.
Shift insertionShift(const ProfileDescription& description, const RunState& state);

/// Drags pieces by start and end point until one is refused: RTNORM.
int dragPieces(const ProfileDescription& description, const RunState& state);

/// Draws pieces between two picked points until one is refused: RTCAN.
int drawBetweenPoints(const ProfileDescription& description, const RunState& state);

/// Makes the automatic dimensions of the piece and of the pitch of its plates when the shared flag
/// asks for them, and ties them to the piece.
std::vector<AcDbObjectId> dimensionPiece(const ProfileDescription& description,
                                         const RunState& state, OpenPiece& piece,
                                         const LaidPlates& plates = {});

/// Number of pieces as the material list takes it: at least 1.
int pieceCount(const ViewsChoice& views);

}  // namespace perfis
