// SPDX-License-Identifier: MIT
// ALIGN: moves, turns and, when wanted, scales a selection by two pairs of points.
#include "prancheta/editor/commands/arcs.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

struct Pair {
    AcGePoint3d from;
    AcGePoint3d to;
};

/// The first pair fits; the second one its direction, and its distance when scaled.
AcGeMatrix3d alignment(const Pair& first, const Pair& second, bool scaled) {
    const double turn = directionOf(first.to, second.to) - directionOf(first.from, second.from);
    AcGeMatrix3d m = AcGeMatrix3d::translation(first.to - first.from) *
                     AcGeMatrix3d::rotation(turn, AcGeVector3d::kZAxis, first.from);
    if (!scaled) return m;
    AcGeMatrix3d scale;
    scale.setToScaling(first.to.distanceTo(second.to) / first.from.distanceTo(second.from),
                       first.from);
    return m * scale;
}

Task<InputValue> askPoint(CommandContext context, std::wstring question) {
    co_return co_await context.ask(Prompt(InputKind::Point, question).required());
}

/// Asked again until it is another place than `other`.
Task<InputValue> askOther(CommandContext context, Prompt prompt, AcGePoint3d other) {
    for (;;) {
        const InputValue answer = co_await context.ask(prompt);
        if (answer.status != RTNORM || answer.point.distanceTo(other) > 1e-9) co_return answer;
        context.editor().complain(L"Os dois pontos coincidem: informe outro ponto.",
                                  Complaint::Refused);
    }
}

}  // namespace

CommandTask align(CommandContext context) {
    const Selection chosen = co_await selectForChange(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    const InputValue from = co_await askPoint(context, L"\nPrimeiro ponto de origem: ");
    if (from.status != RTNORM) co_return endOf(from.status);
    Prompt target(InputKind::Point, L"\nPrimeiro ponto de destino: ");
    target.from(from.point).required().moving(chosen.ids);
    const InputValue to = co_await context.ask(target);
    if (to.status != RTNORM) co_return endOf(to.status);
    const Pair first{from.point, to.point};
    const InputValue secondFrom = co_await askOther(
        context, Prompt(InputKind::Point, L"\nSegundo ponto de origem ou <só mover>: "),
        first.from);
    if (secondFrom.status == RTCAN) co_return CommandEnd::Cancelled;
    if (secondFrom.status == RTNONE) {
        transformAll(context, chosen.ids, AcGeMatrix3d::translation(first.to - first.from));
        co_return CommandEnd::Done;
    }
    Prompt turned(InputKind::Point, L"\nSegundo ponto de destino: ");
    turned.from(first.to).required().changing(
        chosen.ids, [first, origin = secondFrom.point](const AcGePoint3d& at) {
            return alignment(first, {origin, at}, false);
        });
    const InputValue secondTo = co_await askOther(context, turned, first.to);
    if (secondTo.status != RTNORM) co_return endOf(secondTo.status);
    const InputValue scaled = co_await askYesNo(context, L"\nEscalar os objetos?", Choice::No);
    if (scaled.status == RTCAN) co_return CommandEnd::Cancelled;
    transformAll(context, chosen.ids,
                 alignment(first, {secondFrom.point, secondTo.point}, scaled.number != 0.0));
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
