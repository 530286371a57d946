// SPDX-License-Identifier: MIT
// POINT: one point object.
#include "dbents.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"

namespace prancheta::commands {

CommandTask point(CommandContext context) {
    const InputValue where =
        co_await context.ask(Prompt(InputKind::Point, L"\nEspecifique um ponto: ").required());
    if (where.status != RTNORM) co_return endOf(where.status);
    const AcDbObjectId id = addEntity(context, std::make_unique<AcDbPoint>(where.point));
    co_return id.isNull() ? CommandEnd::Failed : CommandEnd::Done;
}

}  // namespace prancheta::commands
