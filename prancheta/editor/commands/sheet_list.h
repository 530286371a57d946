// SPDX-License-Identifier: MIT
// The material list on a sheet with a title block.
#pragma once

#include "prancheta/database/layouts.h"
#include "prancheta/editor/command.h"

namespace prancheta::commands {

/// Has the tables of the drawing's lists drawn on the sheet, where the user moved them, else above
/// the title block; nothing where the user erased them, and without lists. Says so when they do not
/// fit; they are not drawn then. The sheet has a title block. O(its entities, the lists' rows).
void refreshList(const CommandContext& context, const Tab& sheet);
/// What the list covers of the sheet; empty without one.
Box2d listArea(const Tab& sheet);
/// Says of each of the sheets whose list is not the drawing's any more that it is so.
void tellStaleLists(const CommandContext& context, const std::vector<Tab>& sheets);

}  // namespace prancheta::commands
