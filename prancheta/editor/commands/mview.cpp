// SPDX-License-Identifier: MIT
// MVIEW: viewports of a sheet.
#include "prancheta/editor/commands/sheet_command.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/commands/viewports.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/viewports.h"

namespace prancheta::commands {

namespace {

constexpr Word kMviewOptions[] = {{L"Ligar", L"ON"},     {L"Desligar", L"OFF"},
                                  {L"aJustar", L"Fit"},  {L"Travar", L"Lock"},
                                  {L"Escala", L"Scale"}, {L"aNotação", L"Annotation"}};
constexpr Word kOnOff[] = {{L"Ligar", L"ON"}, {L"Desligar", L"OFF"}};

CommandTask switchThem(CommandContext context, bool on) {
    const Selection chosen = co_await selectViewports(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    changeViewports(context, chosen.ids, [on](AcDbViewport& viewport) {
        (void)(on ? viewport.setOn() : viewport.setOff());  // open for write
    });
    co_return CommandEnd::Done;
}

using Switch = void (*)(AcDbViewport&, bool on);

/// On or off for the chosen ones.
CommandTask askAndSwitch(CommandContext context, const wchar_t* question, Switch change) {
    const InputValue answer =
        co_await context.ask(Prompt(InputKind::Keyword, question).words(kOnOff));
    if (answer.status == RTCAN) co_return CommandEnd::Cancelled;
    const bool on = !isWord(answer, L"OFF");
    const Selection chosen = co_await selectViewports(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    changeViewports(context, chosen.ids,
                    [change, on](AcDbViewport& viewport) { change(viewport, on); });
    co_return CommandEnd::Done;
}

void lock(AcDbViewport& viewport, bool on) {
    (void)(on ? viewport.setLocked() : viewport.setUnlocked());  // open for write
}

void annotate(AcDbViewport& viewport, bool on) {
    sizeAnnotations(*viewport.database(), viewport, on);
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
               L"\nCanto da janela ou [Ligar/Desligar/aJustar/Travar/Escala/aNotação] <aJustar>: ")
            .words(kMviewOptions));
    if (answer.status == RTCAN) co_return CommandEnd::Cancelled;
    CommandEnd end = CommandEnd::Done;
    if (answer.status == RTNORM)
        end = co_await fromCorner(context, answer.point);
    else if (isWord(answer, L"ON") || isWord(answer, L"OFF"))
        end = co_await switchThem(context, isWord(answer, L"ON"));
    else if (isWord(answer, L"Lock"))
        end = co_await askAndSwitch(context, L"\nTravar a vista [Ligar/Desligar] <Ligar>: ", lock);
    else if (isWord(answer, L"Annotation"))
        end = co_await askAndSwitch(
            context, L"\nAnotação na escala da janela [Ligar/Desligar] <Ligar>: ", annotate);
    else if (isWord(answer, L"Scale"))
        end = co_await scaleThem(context);
    else
        end = co_await fitSheet(context);
    co_return end;
}

}  // namespace prancheta::commands
