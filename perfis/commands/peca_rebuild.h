// SPDX-License-Identifier: MIT
// Gives a piece that stands in the drawing the values of a dialog.
#pragma once

#include <optional>
#include <vector>

#include "perfis/commands/ruled_peca.h"

namespace perfis {

inline constexpr const wchar_t* kLockedChapas =
    L"As chapas de travejamento estão em camada bloqueada; desbloqueie-a para editar a peça.";

/// One change of a piece that stands.
struct PecaEdit {
    const PecaValues& peca;
    const RuledPeca& before;       ///< by the values that it had
    const ChapaLaying& layChapas;  ///< by those that it gets; null for no plates
    bool laysAgain;                ///< even where the plates would be the same
};

/// Rebuilds the piece in its place: same entity, start, direction and layer. Its plates are laid
/// again when the rule asks for other ones or none stands, else they stay as the user left them;
/// its dimensions follow, its rows of the material list tell of the new values. RTNORM; RTERROR,
/// and nothing changed, when the piece or a plate that would change cannot be changed, which is
/// said on the command line.
int rebuildPeca(const PerfilDescription& description, const RunState& state, const PecaEdit& edit);

/// Other drawings of the member that are to change with the piece, as the user is asked; nothing
/// when he gives up.
std::optional<std::vector<AcDbObjectId>> pecasToRebuild(const PerfilDescription& description,
                                                        const RunState& state,
                                                        const PecaValues& peca,
                                                        const ChapaLaying& layChapas);

/// Lays the automatic dimensions of a piece, `ruled` by its values, again for the drawing's scale:
/// lines that stand where the rule put them for another one go where it puts them now. The number
/// of dimensions that changed; 0, and no change, when one is on a locked layer.
int layCotasAgain(const PerfilDescription& description, const RuledPeca& ruled,
                  const PecaValues& peca);

/// Of a piece that has its values already: lays its plates again when the rule asks for other
/// ones, and moves the dimension of their pitch along.
void layChapasAgain(const PerfilDescription& description, const RunState& state,
                    const PecaEdit& edit);

}  // namespace perfis
