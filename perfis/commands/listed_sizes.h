// SPDX-License-Identifier: MIT
// All sizes that stand in the lists of a command.
#pragma once

#include <vector>

#include "perfis/commands/handlers.h"
#include "perfis/commands/list_row.h"

namespace perfis {

/// A row, by its place in one of the lists of its command.
struct ListedSize {
    static constexpr int kInNoList = -1;  ///< a size of a user's own side table
    int source = 0;
    int row = 0;
    ListRow text;
};

/// Read from the files, lists first, then what only the user's own side tables have of the single
/// shape; rows without a size are left out, files that cannot be read have none.
std::vector<ListedSize> listedSizes(const PerfilCommand& command);
/// The same for the command of a description.
std::vector<ListedSize> listedSizes(const PerfilDescription& description);

}  // namespace perfis
