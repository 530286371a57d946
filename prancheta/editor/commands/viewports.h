// SPDX-License-Identifier: MIT
// What the commands share that work on viewports.
#pragma once

#include <functional>

#include "dbviewport.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/geometry/box.h"

namespace prancheta::commands {

/// Selected viewports of the sheet that is shown; what else was selected is left out. Empty after
/// saying why there are none; `status` RTCAN after Esc.
Task<Selection> selectViewports(CommandContext context);
/// Changes each, and shows what it shows now.
void changeViewports(const CommandContext& context, const Ids& ids,
                     const std::function<void(AcDbViewport&)>& change);

/// False, after saying so, when the model's tab is shown.
bool needsSheet(const CommandContext& context, const wchar_t* command);

/// A viewport of this frame on the sheet that is shown, with all of the model in it. Null after
/// saying why not. The sheet gets its own view with the first.
AcDbObjectId addViewport(const CommandContext& context, const Box2d& frame);

/// The layer of viewports whose frames are not plotted.
AcDbObjectId unplottedLayer(const CommandContext& context);

}  // namespace prancheta::commands
