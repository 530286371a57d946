// SPDX-License-Identifier: MIT
// MOVE: displaces a selection.
#include "prancheta/editor/commands/displacement.h"
#include "prancheta/editor/commands/table.h"

namespace prancheta::commands {

CommandTask move(CommandContext context) {
    const Selection chosen = co_await selectForChange(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);

    const InputValue by = co_await askBaseAndSecond(context, moves(chosen.ids));
    if (by.status == RTCAN) co_return CommandEnd::Cancelled;
    transformAll(context, chosen.ids, AcGeMatrix3d::translation(by.point.asVector()));
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
