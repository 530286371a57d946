// SPDX-License-Identifier: MIT
// Start of a command's run.
#include "perfis/commands/run_state.h"

#include "perfis/output/shared_dimension.h"

namespace perfis {

RunState resetState(const ProfileDescription& description) {
    RunState state;
    for (const DimensionTile& tile : description.tiles) state.texts.emplace_back(tile.initialText);
    sharedDimensionFlag() = 0;
    return state;
}

}  // namespace perfis
