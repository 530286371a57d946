// SPDX-License-Identifier: MIT
// MVIEW: viewports of a sheet.
#include "prancheta/editor/commands/sheet_command.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/commands/viewports.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/viewports.h"

namespace prancheta::commands {

namespace {

constexpr Word kMviewOptions[] = {{L"Ligar", L"ON"},
                                  {L"Desligar", L"OFF"},
                                  {L"aJustar", L"Fit"},
                                  {L"Travar", L"Lock"},
                                  {L"Escala", L"Scale"}};
constexpr Word kOnOff[] = {{L"Ligar", L"ON"}, {L"Desligar", L"OFF"}};

CommandTask switchThem(CommandContext context, bool on) {
    const Selection chosen = co_await selectViewports(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    changeViewports(context, chosen.ids, [on](AcDbViewport& viewport) {
        (void)(on ? viewport.setOn() : viewport.setOff());  // open for write
    });
    co_return CommandEnd::Done;
}

CommandTask lockThem(CommandContext context) {
    const InputValue answer = co_await context.ask(
        Prompt(InputKind::Keyword, L"\nTravar a vista [Ligar/Desligar] <Ligar>: ").words(kOnOff));
    if (answer.status == RTCAN) co_return CommandEnd::Cancelled;
    const bool lock = !isWord(answer, L"OFF");
    const Selection chosen = co_await selectViewports(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    changeViewports(context, chosen.ids, [lock](AcDbViewport& viewport) {
        (void)(lock ? viewport.setLocked() : viewport.setUnlocked());
    });
    co_return CommandEnd::Done;
}

/// Also of a locked viewport: what is locked is zooming.
CommandTask scaleThem(CommandContext context) {
    const AcDbViewport* const usual = viewportOf(context.editor().spaces().usualViewport());
    const InputValue scale = co_await askSheetScale(
        context, usual != nullptr ? 1.0 / usual->customScale() : kUsualScale);
    if (scale.status == RTCAN) co_return CommandEnd::Cancelled;
    const Selection chosen = co_await selectViewports(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    changeViewports(context, chosen.ids, [by = 1.0 / scale.number](AcDbViewport& viewport) {
        (void)viewport.setCustomScale(by);
    });
    co_return CommandEnd::Done;
}

CommandTask fitSheet(CommandContext context) {
    const Spaces& spaces = context.editor().spaces();
    const AcDbObjectId made =
        addViewport(context, sheetOf(tabOf(context.database(), spaces.tab())));
    co_return made.isNull() ? CommandEnd::Failed : CommandEnd::Done;
}

CommandTask fromCorner(CommandContext context, AcGePoint3d first) {
    for (;;) {
        const InputValue corner = co_await context.ask(
            Prompt(InputKind::Corner, L"\nCanto oposto: ").from(first).required());
        if (corner.status != RTNORM) co_return endOf(corner.status);
        Box2d frame;
        frame.add(first.x, first.y);
        frame.add(corner.point.x, corner.point.y);
        if (!addViewport(context, frame).isNull()) co_return CommandEnd::Done;
    }
}

}  // namespace

CommandTask mview(CommandContext context) {
    if (!needsSheet(context, L"MVIEW")) co_return CommandEnd::Failed;
    context.editor().spaces().leave();
    const InputValue answer = co_await context.ask(
        Prompt(InputKind::Point,
               L"\nCanto da janela ou [Ligar/Desligar/aJustar/Travar/Escala] <aJustar>: ")
            .words(kMviewOptions));
    if (answer.status == RTCAN) co_return CommandEnd::Cancelled;
    CommandEnd end = CommandEnd::Done;
    if (answer.status == RTNORM)
        end = co_await fromCorner(context, answer.point);
    else if (isWord(answer, L"ON") || isWord(answer, L"OFF"))
        end = co_await switchThem(context, isWord(answer, L"ON"));
    else if (isWord(answer, L"Lock"))
        end = co_await lockThem(context);
    else if (isWord(answer, L"Scale"))
        end = co_await scaleThem(context);
    else
        end = co_await fitSheet(context);
    co_return end;
}

}  // namespace prancheta::commands
