// SPDX-License-Identifier: MIT
// Gives a piece that stands in the drawing the values of a dialog.
#pragma once

#include <optional>
#include <vector>

#include "perfis/commands/peca_values.h"
#include "perfis/commands/perfil_description.h"
#include "perfis/commands/run_state.h"
#include "perfis/output/chapas.h"

namespace perfis {

/// Rebuilds the piece in its place: same entity, start, direction and layer. Its plates are laid
/// again, its dimensions follow, its rows of the material list tell of the new values. `shownPitch`
/// is the pitch of its plates as its dimensions have it, 0 when they do not. RTNORM; RTERROR, and
/// nothing changed, when the piece cannot be changed, which is said on the command line.
int rebuildPeca(const PerfilDescription& description, const RunState& state, const PecaValues& peca,
                const ChapaLaying& layChapas, double shownPitch);

/// Other drawings of the member that are to change with the piece, as the user is asked; nothing
/// when he gives up.
std::optional<std::vector<AcDbObjectId>> pecasToRebuild(const PerfilDescription& description,
                                                        const RunState& state,
                                                        const PecaValues& peca);

/// Lays the plates of a piece again, and moves the dimension of their pitch along.
void layChapasAgain(const PerfilDescription& description, const RunState& state,
                    const PecaValues& peca, const ChapaLaying& layChapas);

}  // namespace perfis
