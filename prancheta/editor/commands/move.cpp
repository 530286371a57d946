// SPDX-License-Identifier: MIT
// MOVE: displaces a selection.
#include "prancheta/editor/commands/displacement.h"
#include "prancheta/editor/commands/table.h"

namespace prancheta::commands {

CommandTask move(CommandContext context) {
    static constexpr Word kWords[] = {{L"Deslocamento", L"Displacement"}};
    const Selection chosen = co_await selectForChange(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);

    const InputValue base = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique o ponto base ou [Deslocamento] <Deslocamento>: ")
            .words(kWords));
    if (base.status == RTCAN) co_return CommandEnd::Cancelled;

    AcGeVector3d by;
    if (base.status == RTNORM) {
        const InputValue second = co_await context.ask(
            Prompt(InputKind::Point,
                   L"\nEspecifique o segundo ponto ou <usar o primeiro ponto como deslocamento>: ")
                .from(base.point)
                .moving(chosen.ids));
        if (second.status == RTCAN) co_return CommandEnd::Cancelled;
        by = second.status == RTNONE ? base.point.asVector() : second.point - base.point;
    } else {
        const InputValue vector = co_await askDisplacement(context, chosen.ids);
        if (vector.status == RTCAN) co_return CommandEnd::Cancelled;
        by = vector.point.asVector();
    }
    transformAll(context, chosen.ids, AcGeMatrix3d::translation(by));
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
