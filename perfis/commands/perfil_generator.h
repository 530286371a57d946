// SPDX-License-Identifier: MIT
// Makes the drawing of a command that draws one piece.
#pragma once

#include <memory>
#include <optional>

#include "perfis/commands/perfil_description.h"
#include "perfis/commands/run_state.h"
#include "perfis/output/chapas.h"

namespace perfis {

/// Length of the piece that stands for a section.
inline constexpr double kSecaoComprimento = 1000.0;

/// Asks for points, draws the piece, its plates, its dimensions and its rows of the material list,
/// and hands all to placement; with pick-and-go drags pieces until one is refused. RTNORM, or RTCAN
/// when the insertion point is refused.
int generatePerfil(const PerfilDescription& description, RunState& state,
                   const ChapaLaying& layChapas = nullptr);

/// A piece as the command makes it for the picked point, along X and in no drawing, and its own
/// point. The length of a section becomes that of the state.
struct NewPeca {
    std::unique_ptr<ZpObject> peca;
    AcGePoint3d point;
};
NewPeca newPeca(const PerfilDescription& description, RunState& state, const AcGePoint3d& picked);

/// What stands in the drawing for one piece, along X.
struct DrawnPeca {
    AcDbObjectId peca;
    Companions companions;
};
/// Draws a piece with its plates, its dimensions and its rows of the material list; nothing when
/// the drawing does not take it.
std::optional<DrawnPeca> drawPeca(const PerfilDescription& description, RunState& state,
                                  const ChapaLaying& layChapas, const AcGePoint3d& picked);

/// View of the next piece: the section, or the figure of the views dialog.
ZpObject::ZpVistas chosenVista(const VistasChoice& vistas);

/// From the picked point to the piece's own, by the section's insertion table or the member's
/// alignment.
Shift insertionShift(const PerfilDescription& description, const RunState& state);

/// Drags pieces by start and end point until one is refused: RTNORM.
int dragPecas(const PerfilDescription& description, const RunState& state);

/// Draws pieces between two picked points until one is refused: RTCAN.
int drawBetweenPoints(const PerfilDescription& description, const RunState& state);

/// Lays out the automatic dimensions of a piece that stands along X; `pitch` is that of its plates,
/// 0 without plates, `scale` the drawing's or that of dimensions that stand.
PecaCotas layOutCotas(const PerfilDescription& description, const RunState& state,
                      const ZpObject& peca, double pitch, double scale);

/// Makes these dimensions when the shared flag asks for them, and ties them to the piece, which is
/// open for write.
std::vector<AcDbObjectId> cotaPeca(const PerfilDescription& description, const RunState& state,
                                   ZpObject& peca, const LaidChapas& chapas = {});

/// What a new piece is made of, seen like this.
PecaRequest requestFor(const RunState& state, ZpObject::ZpVistas vista);

/// Enters a member and its plates in the material list when the user asked for that, and fills the
/// companions' marks.
void enterInMaterialList(const VistasChoice& vistas, const AcGePoint3d& picked, AcDbObjectId peca,
                         LaidChapas& chapas, Companions& companions);

/// Number of pieces as the material list takes it: at least 1.
int pecaCount(const VistasChoice& vistas);

}  // namespace perfis
