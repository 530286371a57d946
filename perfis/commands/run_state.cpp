// SPDX-License-Identifier: MIT
// Start of a command's run.
#include "perfis/commands/run_state.h"

namespace perfis {

RunState resetState(const PerfilDescription& description) {
    RunState state;
    for (const MedidaTile& tile : description.tiles) state.texts.emplace_back(tile.initialText);
    return state;
}

}  // namespace perfis
