// SPDX-License-Identifier: MIT
// NEW, OPEN, QUIT: what leaves the present drawing.
#include "prancheta/base/text.h"
#include "prancheta/editor/commands/files.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/drawing_file.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

/// `number` is not 0 when the drawing may be left.
Task<InputValue> mayLeave(CommandContext context) {
    InputValue leave;
    leave.number = 1.0;
    if (!context.editor().file().modified()) co_return leave;
    const std::optional<bool> answered =
        usesWindows(context) ? context.editor().ui().mayLeaveDrawing() : std::nullopt;
    if (answered) {
        leave.number = *answered ? 1.0 : 0.0;
    } else {
        leave = co_await askYesNo(context, L"\nDescartar as alterações do desenho?", Choice::No);
    }
    co_return leave;
}

CommandEnd report(const CommandContext& context, const Result<void>& done) {
    if (done) return CommandEnd::Done;
    context.editor().complain(toWide(done.error().message()));
    return CommandEnd::Failed;
}

}  // namespace

CommandTask newDrawing(CommandContext context) {
    const InputValue leave = co_await mayLeave(context);
    if (leave.number == 0.0) co_return endOf(leave.status);
    co_return report(context, context.editor().file().makeNew());
}

CommandTask open(CommandContext context) {
    const InputValue leave = co_await mayLeave(context);
    if (leave.number == 0.0) co_return endOf(leave.status);
    std::optional<std::filesystem::path> path = chosenFile(context, {});
    if (!path) {
        const InputValue name =
            co_await context.ask(Prompt(InputKind::Text, L"\nDigite o nome do desenho a abrir: ")
                                     .wholeLine()
                                     .required());
        if (name.status != RTNORM) co_return endOf(name.status);
        path = typedPath(name.text);
    }
    if (path->empty()) co_return CommandEnd::Cancelled;
    dxf::LoadReport findings;
    const Result<void> opened = context.editor().file().open(*path, &findings);
    if (opened) printFindings(context.editor(), findings);
    co_return report(context, opened);
}

CommandTask quit(CommandContext context) {
    const InputValue leave = co_await mayLeave(context);
    if (leave.number == 0.0) co_return endOf(leave.status);
    context.editor().requestQuit();
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
