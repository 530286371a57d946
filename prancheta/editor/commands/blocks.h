// SPDX-License-Identifier: MIT
// What commands about blocks and other drawings share.
#pragma once

#include "dbsymtb.h"
#include "prancheta/editor/commands/support.h"

namespace prancheta::commands {

/// Copies of another drawing's entities in a space or block of this one, with the records that they
/// need; `left` grows by what stays behind. Empty, after saying so, when they could not be made.
Ids cloneFrom(const CommandContext& context, const Ids& ids, AcDbObjectId owner, std::size_t& left);
/// Says how many entities stayed behind; nothing for 0.
void sayLeft(const CommandContext& context, std::size_t left);

/// Block of this name; null when there is none.
AcDbObjectId blockNamed(const CommandContext& context, std::wstring_view name);
/// Living entities of a block, invisible ones too.
Ids contentOf(AcDbObjectId block);
/// After a redefinition: says how many insertions follow; nothing for none. O(entities).
void sayFollowing(const CommandContext& context, AcDbObjectId block);
/// True when one of the entities shows the block, in whatever depth. O(entities in the blocks).
bool showsBlock(const Ids& ids, AcDbObjectId block);
/// "?": the drawing's blocks that have a name, in its order.
void listBlocks(const CommandContext& context);
/// Says why a name cannot be a block's; false then.
bool checkBlockName(const CommandContext& context, const std::wstring& name);

/// Empties the block of this name, or makes it, and sets its base point (world coordinates of what
/// goes in). Null, after saying so, when that fails.
AcDbObjectId emptyBlock(const CommandContext& context, const std::wstring& name,
                        const AcGePoint3d& base);

}  // namespace prancheta::commands
