// SPDX-License-Identifier: MIT
// PAN, REDRAW, REGEN: the view without another scale, and drawn afresh.
#include "prancheta/display/appearance.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

CommandTask pan(CommandContext context) {
    const InputValue base = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique o ponto base ou o deslocamento: ").required());
    if (base.status != RTNORM) co_return endOf(base.status);
    const InputValue second = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique o segundo ponto: ").from(base.point));
    if (second.status == RTCAN) co_return CommandEnd::Cancelled;
    // The drawing moves under the window, hence the window the other way.
    View view = context.editor().screen().view();
    view.centre -= second.status == RTNONE ? base.point.asVector() : second.point - base.point;
    context.editor().screen().show(view);
    co_return CommandEnd::Done;
}

CommandTask redraw(CommandContext context) {
    context.editor().ui().refresh();
    co_return CommandEnd::Done;
}

CommandTask regen(CommandContext context) {
    say(context, L"Regenerando o modelo.");
    context.editor().display().invalidate();
    context.editor().appearances().invalidate();
    context.editor().ui().refresh();
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
