// SPDX-License-Identifier: MIT
// PLOT: the drawing as PDF, SVG or PNG, asked for on the command line.
#include "prancheta/editor/plotter.h"

#include <cmath>

#include "prancheta/base/text.h"
#include "prancheta/editor/commands/files.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/paper_scale.h"

namespace prancheta::commands {

namespace {

using Orientation = PlotSettings::Orientation;

/// In the order of the enumeration.
constexpr Word kOrientations[] = {
    {L"Automática", L"Automatic"}, {L"Retrato", L"Portrait"}, {L"Paisagem", L"Landscape"}};
constexpr Word kAreas[] = {
    {L"Extensão", L"Extents"}, {L"Janela", L"Window"}, {L"Tela", L"Display"}};
constexpr Word kScales[] = {{L"Ajustar", L"Fit"}};

/// "Desenho.pdf" beside the drawing.
std::filesystem::path proposedFile(const Editor& editor) {
    std::filesystem::path file = editor.file().name();
    if (file.empty()) file = "Desenho1";
    return file.replace_extension(".pdf");
}

std::wstring scaleText(const std::optional<double>& scale) {
    return scale ? paperScaleText(1.0 / *scale) : kScales[0].local;
}

/// What the screen shows.
Box2d shownOn(const Editor& editor) {
    const View& view = editor.screen().view();
    const double half = view.height / 2.0;
    const double halfWidth = half * editor.screen().width() / editor.screen().height();
    return {view.centre.x - halfWidth, view.centre.y - half, view.centre.x + halfWidth,
            view.centre.y + half};
}

/// Answers of a step: RTNORM to go on, RTCAN.
using Step = Task<int>;

Step askFile(CommandContext context, std::filesystem::path& file) {
    const std::filesystem::path proposed = proposedFile(context.editor());
    const std::wstring prompt =
        L"\nArquivo de plotagem (.pdf, .svg ou .png) <" + toWide(proposed.string()) + L">: ";
    for (;;) {
        const InputValue answer = co_await context.ask(Prompt(InputKind::Text, prompt).wholeLine());
        if (answer.status == RTCAN) co_return RTCAN;
        file = answer.status == RTNONE ? proposed : typedPath(answer.text);
        if (!file.has_extension()) file.replace_extension(".pdf");
        if (plotFormatOf(file)) co_return RTNORM;
        context.editor().complain(L"O nome deve terminar em .pdf, .svg ou .png.",
                                  Complaint::Refused);
    }
}

Step askPaper(CommandContext context, Paper& paper) {
    std::wstring names;
    for (const Paper& each : papers()) names += (names.empty() ? L"" : L"/") + each.name;
    const std::wstring prompt = L"\nFolha [" + names + L"] <" + paper.name + L">: ";
    for (;;) {
        const InputValue answer = co_await context.ask(Prompt(InputKind::Text, prompt).wholeLine());
        if (answer.status != RTNORM) co_return answer.status == RTCAN ? RTCAN : RTNORM;
        if (const Paper* found = findPaper(answer.text)) {
            paper = *found;
            co_return RTNORM;
        }
        context.editor().complain(L"Não há folha com esse nome.", Complaint::Refused);
    }
}

Step askOrientation(CommandContext context, Orientation& orientation) {
    const std::wstring prompt = std::wstring(L"\nOrientação [Automática/Retrato/Paisagem] <") +
                                kOrientations[static_cast<int>(orientation)].local + L">: ";
    const InputValue answer =
        co_await context.ask(Prompt(InputKind::Keyword, prompt).words(kOrientations));
    for (int i = 0; i < 3; ++i)
        if (isWord(answer, kOrientations[i].global)) orientation = static_cast<Orientation>(i);
    co_return answer.status == RTCAN ? RTCAN : RTNORM;
}

Step askArea(CommandContext context, std::optional<Box2d>& area) {
    area.reset();
    const InputValue answer = co_await context.ask(
        Prompt(InputKind::Keyword, L"\nO que plotar [Extensão/Janela/Tela] <Extensão>: ")
            .words(kAreas));
    if (isWord(answer, L"Display")) area = shownOn(context.editor());
    if (!isWord(answer, L"Window")) co_return answer.status == RTCAN ? RTCAN : RTNORM;
    for (;;) {
        const InputValue first = co_await context.ask(
            Prompt(InputKind::Point, L"\nEspecifique o primeiro canto: ").required());
        if (first.status != RTNORM) co_return RTCAN;
        const InputValue second =
            co_await context.ask(Prompt(InputKind::Corner, L"\nEspecifique o canto oposto: ")
                                     .from(first.point)
                                     .required());
        if (second.status != RTNORM) co_return RTCAN;
        Box2d box;
        box.add(first.point.x, first.point.y);
        box.add(second.point.x, second.point.y);
        area = box;
        if (box.width() > 0.0 && box.height() > 0.0) co_return RTNORM;
        context.editor().complain(L"A janela precisa de largura e altura.", Complaint::Refused);
    }
}

Step askScale(CommandContext context, std::optional<double>& scale) {
    const std::wstring prompt =
        L"\nEscala (1:10, 2:1 ou fator) ou [Ajustar] <" + scaleText(scale) + L">: ";
    for (;;) {
        const InputValue answer =
            co_await context.ask(Prompt(InputKind::Text, prompt).words(kScales));
        if (answer.status == RTCAN) co_return RTCAN;
        if (answer.status == RTNONE) co_return RTNORM;
        if (isWord(answer, L"Fit")) {
            scale.reset();
            co_return RTNORM;
        }
        if (const auto typed = readPaperScale(answer.text)) {
            scale = typed->paper / typed->drawing;
            co_return RTNORM;
        }
        context.editor().complain(L"Requer uma escala como 1:10 ou um fator maior que zero.",
                                  Complaint::Refused);
    }
}

Step askMonochrome(CommandContext context, bool& monochrome) {
    const InputValue answer = co_await askYesNo(context, L"\nPlotar tudo em preto?",
                                                monochrome ? Choice::Yes : Choice::No);
    if (answer.status == RTCAN) co_return RTCAN;
    monochrome = answer.number != 0.0;
    co_return RTNORM;
}

/// On a sheet, what is usually wanted; RTKWORD when something else is.
Step askSheet(CommandContext context, PlotSettings& settings) {
    const Spaces& spaces = context.editor().spaces();
    if (!spaces.onSheet()) co_return RTKWORD;
    const InputValue answer =
        co_await askYesNo(context, L"\nPlotar o layout em 1:1 no seu papel?", Choice::Yes);
    if (answer.status == RTCAN) co_return RTCAN;
    if (answer.number == 0.0) co_return RTKWORD;
    PlotSettings sheet = sheetPlot(tabOf(context.database(), spaces.tab()));
    sheet.monochrome = settings.monochrome;
    settings = sheet;
    co_return RTNORM;
}

Step askAll(CommandContext context, std::filesystem::path& file, PlotSettings& settings) {
    int status = co_await askFile(context, file);
    if (status == RTNORM) status = co_await askSheet(context, settings);
    if (status == RTNORM) status = co_await askMonochrome(context, settings.monochrome);
    if (status != RTKWORD) co_return status;
    status = RTNORM;
    if (status == RTNORM) status = co_await askPaper(context, settings.paper);
    if (status == RTNORM) status = co_await askOrientation(context, settings.orientation);
    if (status == RTNORM) status = co_await askArea(context, settings.area);
    if (status == RTNORM) status = co_await askScale(context, settings.scale);
    if (status == RTNORM) status = co_await askMonochrome(context, settings.monochrome);
    co_return status;
}

}  // namespace

CommandTask plot(CommandContext context) {
    std::filesystem::path file;
    PlotSettings settings = memory(context).plot;
    const int status = co_await askAll(context, file, settings);
    if (status == RTCAN) co_return CommandEnd::Cancelled;
    if (settings.space.isNull())
        memory(context).plot = settings;
    else
        memory(context).plot.monochrome = settings.monochrome;
    const Result<Plotter*> machine = plotter();
    const Result<void> plotted =
        machine ? (*machine)->plot(context.editor(), settings, *plotFormatOf(file), file)
                : Result<void>(machine.error());
    if (!plotted) {
        context.editor().complain(toWide(plotted.error().message()));
        co_return CommandEnd::Failed;
    }
    if (const std::wstring line = notShown(context.database()); !line.empty()) say(context, line);
    say(context, L"Plotado em " + toWide(file.string()));
    co_return CommandEnd::Done;
}

CommandTask plotInWindow(CommandContext context) {
    // A sheet knows its paper and scale: there is nothing to choose in a window.
    const bool onSheet = context.editor().spaces().onSheet();
    if (!onSheet && usesWindows(context) && context.editor().ui().showTool(Tool::Plot))
        co_return CommandEnd::Done;
    const CommandEnd end = co_await plot(context);
    co_return end;
}

}  // namespace prancheta::commands
