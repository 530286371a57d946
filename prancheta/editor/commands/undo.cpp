// SPDX-License-Identifier: MIT
// U, UNDO, REDO, MREDO.
#include "prancheta/database/undo.h"

#include "prancheta/database/database_core.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

constexpr Word kUndoWords[] = {
    {L"Auto", L"Auto"}, {L"Controle", L"Control"}, {L"Início", L"BEgin"},
    {L"Fim", L"End"},   {L"Marca", L"Mark"},       {L"Voltar", L"Back"},
};
constexpr Word kAutoWords[] = {{L"LIGado", L"ON"}, {L"DESligado", L"OFF"}};
constexpr Word kControlWords[] = {{L"Tudo", L"All"},
                                  {L"Nenhum", L"None"},
                                  {L"Um", L"One"},
                                  {L"COmbinar", L"Combine"},
                                  {L"CAmada", L"Layer"}};
constexpr Word kRedoWords[] = {{L"Tudo", L"All"}, {L"Último", L"Last"}};

UndoLog& logOf(const CommandContext& context) { return context.database().core().undo(); }

/// Up to `count` steps, naming each.
void undoSteps(const CommandContext& context, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        std::wstring name;
        if (!logOf(context).undo(&name)) {
            say(context, L"Tudo foi desfeito.");
            return;
        }
        context.editor().lastErased().undone(logOf(context).revision());
        say(context, name);
    }
}

void redoSteps(const CommandContext& context, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        std::wstring name;
        if (!logOf(context).redo(&name)) {
            if (i == 0) say(context, L"Não há nada para refazer.");
            return;
        }
        say(context, name);
    }
}

std::size_t countOf(const InputValue& answer) {
    return answer.status == RTNORM ? static_cast<std::size_t>(answer.number) : 1;
}

Task<InputValue> undoBack(CommandContext context) {
    if (logOf(context).backToMark()) {
        context.editor().lastErased().undone(logOf(context).revision());
        co_return InputValue{};
    }
    InputValue all = co_await askYesNo(context, L"\nIsto desfará tudo. Continuar?", Choice::Yes);
    if (all.number != 0.0) undoSteps(context, logOf(context).groupCount());
    co_return all;
}

/// The log is always complete: the settings of other programs' scripts are taken and change
/// nothing.
Task<InputValue> acceptSetting(CommandContext context, std::wstring prompt,
                               std::span<const Word> words) {
    InputValue answer = co_await context.ask(Prompt(InputKind::Keyword, prompt).words(words));
    if (answer.status == RTKWORD) say(context, L"O registro do desfazer continua completo.");
    co_return answer;
}

}  // namespace

CommandTask u(CommandContext context) {
    undoSteps(context, 1);
    co_return CommandEnd::Done;
}

CommandTask redo(CommandContext context) {
    redoSteps(context, 1);
    co_return CommandEnd::Done;
}

CommandTask mredo(CommandContext context) {
    const InputValue answer = co_await context.ask(
        Prompt(InputKind::Integer, L"\nDigite o número de operações a refazer ou [Tudo/Último]: ")
            .words(kRedoWords)
            .bits(RSG_NOZERO | RSG_NONEG));
    if (answer.status == RTCAN) co_return CommandEnd::Cancelled;
    if (isWord(answer, L"All"))
        redoSteps(context, static_cast<std::size_t>(-1));
    else
        redoSteps(context, countOf(answer));
    co_return CommandEnd::Done;
}

CommandTask undo(CommandContext context) {
    InputValue answer =
        co_await context.ask(Prompt(InputKind::Integer,
                                    L"\nDigite o número de operações a desfazer ou "
                                    L"[Auto/Controle/Início/Fim/Marca/Voltar] <1>: ")
                                 .words(kUndoWords)
                                 .bits(RSG_NOZERO | RSG_NONEG));
    if (answer.status == RTCAN) co_return CommandEnd::Cancelled;
    if (answer.status != RTKWORD)
        undoSteps(context, countOf(answer));
    else if (answer.text == L"BEgin")
        logOf(context).beginUserGroup();
    else if (answer.text == L"End")
        logOf(context).endUserGroup();
    else if (answer.text == L"Mark")
        logOf(context).mark();
    else if (answer.text == L"Back")
        answer = co_await undoBack(context);
    else if (answer.text == L"Auto")
        answer = co_await acceptSetting(
            context, L"\nDigite o modo automático [LIGado/DESligado] <LIGado>: ", kAutoWords);
    else
        answer = co_await acceptSetting(
            context, L"\nDigite uma opção de controle [Tudo/Nenhum/Um/COmbinar/CAmada] <Tudo>: ",
            kControlWords);
    co_return endOf(answer.status);
}

}  // namespace prancheta::commands
