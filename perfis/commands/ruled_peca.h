// SPDX-License-Identifier: MIT
// What a command's rule makes of the values of a piece that stands.
#pragma once

#include <memory>
#include <vector>

#include "perfis/commands/peca_values.h"
#include "perfis/commands/perfil_description.h"
#include "perfis/commands/run_state.h"
#include "perfis/output/chapas.h"

namespace perfis {

/// A piece as its command's rule makes it, at its start and along X, in no drawing.
struct RuledPeca {
    RunState state;                  ///< of the command that makes it
    std::unique_ptr<ZpObject> peca;  ///< knows its lacing
    std::vector<std::unique_ptr<ZpChapa>> chapas;
    double pitch = 0.0;  ///< of its plates, as its dimensions show it
};
RuledPeca ruledPeca(const PerfilDescription& description, const RunState& state,
                    const PecaValues& peca, const ChapaLaying& layChapas);

/// The same of a piece that is not drawn yet, as the command makes it at the origin.
RuledPeca ruledPeca(const PerfilDescription& description, const RunState& state,
                    const ChapaLaying& layChapas);

/// True when both have the same plates in the same places.
bool sameChapas(const RuledPeca& a, const RuledPeca& b);
/// True when one of the piece's plates lies on a locked layer.
bool hasLockedChapa(const PecaValues& peca);
/// Plates of the piece that stand neither where the rule put one before a change, be it as far from
/// the end that has moved, nor where it puts one after it. Cost: O(n log n).
std::size_t movedChapas(const PecaValues& peca, const RuledPeca& before, const RuledPeca& after);

}  // namespace perfis
