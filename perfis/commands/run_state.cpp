// SPDX-License-Identifier: MIT
// Start of a command's run, and what stays of it.
#include "perfis/commands/run_state.h"

#include <map>

namespace perfis {

RunState resetState(const PerfilDescription& description) {
    RunState state;
    for (const MedidaTile& tile : description.tiles) state.texts.emplace_back(tile.initialText);
    return state;
}

std::optional<LastPeca>& lastPeca(const PerfilDescription& description) {
    static std::map<const PerfilDescription*, std::optional<LastPeca>> theLast;
    return theLast[&description];
}

}  // namespace perfis
