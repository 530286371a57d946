// SPDX-License-Identifier: MIT
// COPY: copies a selection, once or again and again.
#include "prancheta/editor/commands/displacement.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/details.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

constexpr Word kBaseWords[] = {{L"Deslocamento", L"Displacement"}, {L"mOdo", L"mOde"}};
constexpr Word kModeWords[] = {{L"Único", L"Single"}, {L"Múltiplo", L"Multiple"}};
constexpr Word kSecondWords[] = {{L"Matriz", L"Array"}};
constexpr Word kMoreWords[] = {{L"Matriz", L"Array"}, {L"Sair", L"Exit"}, {L"Desfazer", L"Undo"}};
constexpr Word kFitWords[] = {{L"Ajustar", L"Fit"}};

Ids copyBy(const CommandContext& context, Ids& ids, const AcGeVector3d& by) {
    return copyAll(context, ids, AcGeMatrix3d::translation(by));
}

const wchar_t* modeName(const Memory& kept) { return kept.copyOnce ? L"Único" : L"Múltiplo"; }

Task<InputValue> askMode(CommandContext context) {
    Memory& kept = memory(context);
    const InputValue answer = co_await context.ask(
        Prompt(InputKind::Keyword,
               std::wstring(L"\nDigite uma opção de modo de cópia [Único/Múltiplo] <") +
                   modeName(kept) + L">: ")
            .words(kModeWords));
    if (answer.status == RTKWORD) kept.copyOnce = answer.text == L"Single";
    co_return answer;
}

/// Row of items, the original counted; `entities` receives the copies, `status` RTCAN when refused.
/// What cannot be copied goes out of `ids`, which the caller keeps.
Task<InputValue> copyInRow(CommandContext context, AcGePoint3d base, Ids& ids) {
    InputValue count =
        co_await context.ask(Prompt(InputKind::Integer, L"\nDigite o número de itens da matriz: ")
                                 .required()
                                 .bits(RSG_NOZERO | RSG_NONEG));
    if (count.status != RTNORM) co_return count;
    constexpr double kMostItems = 32767;
    if (count.number < 2 || count.number > kMostItems) {
        context.editor().complain(L"Requer um inteiro entre 2 e 32767.", Complaint::Refused);
        co_return count;
    }
    if (!mayCopy(context, count.number - 1, ids)) co_return count;
    InputValue second = co_await context.ask(
        Prompt(InputKind::Point, L"\nEspecifique o segundo ponto ou [Ajustar]: ")
            .from(base)
            .words(kFitWords)
            .required()
            .moving(ids));
    double steps = 1.0;
    if (second.status == RTKWORD) {
        second = co_await context.ask(Prompt(InputKind::Point, L"\nEspecifique o segundo ponto: ")
                                          .from(base)
                                          .required()
                                          .moving(ids));
        steps = count.number - 1;
    }
    if (second.status != RTNORM) co_return second;
    const AcGeVector3d step = (second.point - base) / steps;
    for (int i = 1; i < static_cast<int>(count.number); ++i) {
        const Ids copies = copyBy(context, ids, step * i);
        second.entities.insert(second.entities.end(), copies.begin(), copies.end());
    }
    co_return second;
}

/// Esc after the first copy only ends the row: what was copied stays.
InputValue ended(InputValue answer, const std::vector<Ids>& made) {
    if (!made.empty()) answer.status = RTNONE;
    return answer;
}

/// The repeated second point; every answer's copies can be taken back one by one.
Task<InputValue> copyToPoints(CommandContext context, AcGePoint3d base, Ids ids) {
    std::vector<Ids> made;
    for (;;) {
        Prompt prompt(
            InputKind::Point,
            made.empty() ? L"\nEspecifique o segundo ponto ou [Matriz] <usar o primeiro ponto como "
                           L"deslocamento>: "
                         : L"\nEspecifique o segundo ponto ou [Matriz/Sair/Desfazer] <Sair>: ");
        prompt.from(base).moving(ids);
        if (made.empty())
            prompt.words(kSecondWords);
        else
            prompt.words(kMoreWords);
        InputValue answer = co_await context.ask(prompt);
        if (isWord(answer, L"Undo")) {
            (void)eraseAll(context, made.back());
            made.pop_back();
            continue;
        }
        if (isWord(answer, L"Exit")) co_return answer;
        if (isWord(answer, L"Array")) {
            answer = co_await copyInRow(context, base, ids);
            if (!answer.entities.empty()) made.push_back(answer.entities);
            if (answer.status == RTCAN) co_return ended(answer, made);
        } else if (answer.status == RTNORM) {
            made.push_back(copyBy(context, ids, answer.point - base));
        } else if (answer.status == RTNONE && made.empty()) {
            made.push_back(copyBy(context, ids, base.asVector()));
            co_return answer;
        } else {
            co_return ended(answer, made);
        }
        if (memory(context).copyOnce && !made.empty()) co_return answer;
    }
}

}  // namespace

CommandTask copy(CommandContext context) {
    Selection chosen = co_await selectForChange(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    chosen.ids = withLabels(context.database(), std::move(chosen.ids));
    say(context,
        std::wstring(L"Configurações atuais: Modo de cópia = ") + modeName(memory(context)));
    for (;;) {
        const InputValue base = co_await context.ask(
            Prompt(InputKind::Point,
                   L"\nEspecifique o ponto base ou [Deslocamento/mOdo] <Deslocamento>: ")
                .words(kBaseWords));
        if (base.status == RTCAN) co_return CommandEnd::Cancelled;
        if (isWord(base, L"mOde")) {
            const InputValue mode = co_await askMode(context);
            if (mode.status == RTCAN) co_return CommandEnd::Cancelled;
            continue;
        }
        if (base.status == RTNORM) {
            const InputValue last = co_await copyToPoints(context, base.point, chosen.ids);
            co_return endOf(last.status);
        }
        const InputValue vector = co_await askDisplacement(context, moves(chosen.ids));
        if (vector.status == RTCAN) co_return CommandEnd::Cancelled;
        (void)copyBy(context, chosen.ids, vector.point.asVector());
        co_return CommandEnd::Done;
    }
}

}  // namespace prancheta::commands
