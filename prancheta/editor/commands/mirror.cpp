// SPDX-License-Identifier: MIT
// MIRROR: reflects a selection in a line.
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"

namespace prancheta::commands {

namespace {

AcGeMatrix3d inLine(const AcGePoint3d& a, const AcGePoint3d& b) {
    const AcGeVector3d across(a.y - b.y, b.x - a.x, 0.0);
    if (across.isZeroLength()) return AcGeMatrix3d::kIdentity;
    return AcGeMatrix3d::mirroring(a, across.normal());
}

}  // namespace

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
                .required()
                .changing(chosen.ids, [from = first.point](const AcGePoint3d& to) {
                    return inLine(from, to);
                }));
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
    transformOrCopy(context, chosen.ids, inLine(first.point, first.point + along),
                    erasing.number != 0.0 ? Originals::Change : Originals::Stay);
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
