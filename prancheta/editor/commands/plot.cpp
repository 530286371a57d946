// SPDX-License-Identifier: MIT
// PLOT: the drawing as PDF, SVG or PNG, or on a printer, asked for on the command line.
#include "prancheta/editor/plotter.h"

#include "prancheta/base/text.h"
#include "prancheta/editor/commands/files.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/sheet_list.h"
#include "prancheta/editor/commands/sheets.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/paper_scale.h"
#include "prancheta/editor/printers.h"

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

/// What is plotted to: a file, or a printer.
struct Target {
    std::filesystem::path file;
    std::wstring printer;  ///< empty: the file
};

void listPrinters(const CommandContext& context) {
    const std::vector<std::wstring> names = printers();
    for (const std::wstring& name : names) say(context, name);
    if (names.empty()) say(context, kNoPrinter);
}

/// Names of printers have neither an ending nor a folder.
std::wstring printerNamed(const std::wstring& text) {
    if (text.find_first_of(L"./\\") != text.npos) return {};
    for (const std::wstring& name : printers())
        if (equalNoCase(name, text)) return name;
    return {};
}

Step askTarget(CommandContext context, Target& target) {
    const std::filesystem::path proposed = proposedFile(context.editor());
    const std::wstring prompt = L"\nArquivo de plotagem (.pdf, .svg ou .png), ou impressora [?] <" +
                                toWide(proposed.string()) + L">: ";
    for (;;) {
        const InputValue answer = co_await context.ask(Prompt(InputKind::Text, prompt).wholeLine());
        if (answer.status == RTCAN) co_return RTCAN;
        if (answer.text == L"?") {
            listPrinters(context);
            continue;
        }
        target.printer = printerNamed(answer.text);
        if (!target.printer.empty()) co_return RTNORM;
        target.file = answer.status == RTNONE ? proposed : typedPath(answer.text);
        if (!target.file.has_extension()) target.file.replace_extension(".pdf");
        if (plotFormatOf(target.file)) co_return RTNORM;
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

Step askAll(CommandContext context, Target& target, PlotSettings& settings) {
    int status = co_await askTarget(context, target);
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

/// What is said when it is done.
Result<std::wstring> send(Editor& editor, const PlotSettings& settings, const Target& target) {
    if (!target.printer.empty()) {
        const Result<std::wstring> job = print(editor, std::span(&settings, 1), target.printer);
        if (!job) return job;
        return L"Enviado à impressora " + target.printer + (job->empty() ? L"" : L": " + *job);
    }
    const Result<Plotter*> machine = plotter();
    if (!machine) return machine.error();
    const Result<void> plotted =
        (*machine)->plot(editor, settings, *plotFormatOf(target.file), target.file);
    if (!plotted) return plotted.error();
    return L"Plotado em " + toWide(target.file.string());
}

}  // namespace

CommandTask plot(CommandContext context) {
    Target target;
    PlotSettings settings = memory(context).plot;
    const int status = co_await askAll(context, target, settings);
    if (status == RTCAN) co_return CommandEnd::Cancelled;
    if (settings.space.isNull())
        memory(context).plot = settings;
    else
        memory(context).plot.monochrome = settings.monochrome;
    dateSheets(context.editor(), std::span(&settings, 1));
    const Result<std::wstring> sent = send(context.editor(), settings, target);
    if (!sent) {
        context.editor().complain(toWide(sent.error().message()));
        co_return CommandEnd::Failed;
    }
    if (const std::wstring line = notShown(context.database()); !line.empty()) say(context, line);
    say(context, *sent);
    co_return CommandEnd::Done;
}

CommandTask plotInWindow(CommandContext context) {
    if (usesWindows(context) && context.editor().ui().showTool(Tool::Plot))
        co_return CommandEnd::Done;
    const CommandEnd end = co_await plot(context);
    co_return end;
}

}  // namespace prancheta::commands

void prancheta::dateSheets(Editor& editor, std::span<const PlotSettings> sheets) {
    CommandRun run;
    const CommandContext context(editor, run);
    std::vector<Tab> tabs;
    for (const PlotSettings& sheet : sheets) {
        tabs.push_back(
            tabOf(editor.database(), sheet.space.isNull() ? editor.spaces().tab() : sheet.space));
        commands::refreshDate(context, tabs.back().block);
    }
    commands::tellStaleLists(context, tabs);
}
