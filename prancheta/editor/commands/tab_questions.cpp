// SPDX-License-Identifier: MIT
// What the commands ask that make sheets.
#include "prancheta/editor/commands/tab_questions.h"

#include "prancheta/base/text.h"
#include "prancheta/database/layouts.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

constexpr Word kOrientations[] = {{L"Paisagem", L"Landscape"}, {L"Retrato", L"Portrait"}};

}  // namespace

Task<std::wstring> askTabName(CommandContext context, std::wstring question, std::wstring usual) {
    if (!usual.empty()) question += L" <" + usual + L">";
    for (;;) {
        const InputValue answer =
            co_await context.ask(Prompt(InputKind::Text, question + L": ").wholeLine());
        if (answer.status == RTCAN) co_return std::wstring();
        std::wstring name(trim(answer.text));
        if (name.empty()) name = usual;
        const std::wstring refusal = tabNameRefusal(context.database(), name);
        if (refusal.empty()) co_return name;
        context.editor().complain(refusal, Complaint::Refused);
    }
}

Task<InputValue> askOrientation(CommandContext context) {
    const InputValue answer = co_await context.ask(
        Prompt(InputKind::Keyword, L"\nOrientação [Paisagem/Retrato] <Paisagem>: ")
            .words(kOrientations));
    co_return answer;
}

}  // namespace prancheta::commands
