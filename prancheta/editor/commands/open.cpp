// SPDX-License-Identifier: MIT
// NEW, OPEN, RECOVER, QUIT: what leaves the present drawing.
#include "prancheta/base/text.h"
#include "prancheta/editor/commands/files.h"
#include "prancheta/editor/commands/recover_repairs.h"
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

CommandEnd report(const CommandContext& context, const Result<void>& done,
                  std::wstring_view advice) {
    if (done) return CommandEnd::Done;
    context.editor().complain(toWide(done.error().message()) + std::wstring(advice));
    return CommandEnd::Failed;
}

/// The file to open; without a path the command ends.
struct OpenTarget {
    OpenTarget(int s) : status(s) {}
    int status;
    std::filesystem::path path;
};

Task<OpenTarget> askDrawing(CommandContext context, std::wstring question) {
    const InputValue leave = co_await mayLeave(context);
    if (leave.number == 0.0) co_return OpenTarget(leave.status);
    OpenTarget target(RTCAN);
    if (const std::optional<std::filesystem::path> chosen = chosenFile(context, {})) {
        target.path = *chosen;
        co_return target;
    }
    const InputValue name =
        co_await context.ask(Prompt(InputKind::Text, question).wholeLine().required());
    target.status = name.status;
    if (name.status == RTNORM) target.path = typedPath(name.text);
    co_return target;
}

}  // namespace

CommandTask newDrawing(CommandContext context) {
    const InputValue leave = co_await mayLeave(context);
    if (leave.number == 0.0) co_return endOf(leave.status);
    co_return report(context, context.editor().file().makeNew(), {});
}

CommandTask open(CommandContext context) {
    const OpenTarget target = co_await askDrawing(context, L"\nDigite o nome do desenho a abrir: ");
    if (target.path.empty()) co_return endOf(target.status);
    dxf::LoadReport findings;
    const Result<void> opened = context.editor().file().open(target.path, &findings);
    if (opened) printFindings(context.editor(), findings);
    // Damage has a place, a line or the byte of a binary file; a file that is not there has none.
    const bool damaged = !opened && (opened.error().line > 0 ||
                                     opened.error().text.find("(byte ") != std::string::npos);
    co_return report(context, opened, damaged ? L" RECUPERAR abre o que puder ser lido." : L"");
}

CommandTask recover(CommandContext context) {
    const OpenTarget target =
        co_await askDrawing(context, L"\nDigite o nome do desenho a recuperar: ");
    if (target.path.empty()) co_return endOf(target.status);
    dxf::LoadReport losses;
    const Result<void> opened = context.editor().file().openDamaged(target.path, losses);
    if (opened) {
        printFindings(context.editor(), losses);
        const std::size_t count = losses.findings.size() + repairRecovered(context);
        say(context, count == 0 ? L"O arquivo está inteiro: nada foi perdido."
                                : counted(count, L"perda ou reparo no arquivo.",
                                          L"perdas ou reparos no arquivo."));
    }
    co_return report(context, opened, {});
}

CommandTask quit(CommandContext context) {
    const InputValue leave = co_await mayLeave(context);
    if (leave.number == 0.0) co_return endOf(leave.status);
    context.editor().requestQuit();
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
