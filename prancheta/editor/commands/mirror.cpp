// SPDX-License-Identifier: MIT
// MIRROR: reflects a selection in a line.
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"

namespace prancheta::commands {

CommandTask mirror(CommandContext context) {
    const Selection chosen = co_await selectForChange(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    const InputValue first = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique o primeiro ponto da linha de espelhamento: ")
            .required());
    if (first.status != RTNORM) co_return endOf(first.status);

    AcGeVector3d along;
    for (;;) {
        const InputValue second = co_await context.ask(
            Prompt(InputKind::Point, L"\nEspecifique o segundo ponto da linha de espelhamento: ")
                .from(first.point)
                .required());
        if (second.status != RTNORM) co_return endOf(second.status);
        along = second.point - first.point;
        along.z = 0.0;
        if (!along.isZeroLength()) break;
        say(context, L"Os dois pontos da linha de espelhamento coincidem.");
    }
    const InputValue erasing =
        co_await askYesNo(context, L"\nApagar os objetos de origem?", Choice::No);
    if (erasing.status == RTCAN) co_return CommandEnd::Cancelled;

    // Without the originals, they themselves are turned over: handles and links stay.
    const Ids reflected = erasing.number != 0.0 ? chosen.ids : cloneAll(context, chosen.ids);
    const AcGeVector3d across(-along.y, along.x, 0.0);
    transformAll(context, reflected, AcGeMatrix3d::mirroring(first.point, across.normal()));
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
