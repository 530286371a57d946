// SPDX-License-Identifier: MIT
// SETVAR: system variables, one or a list.
#include "prancheta/base/text.h"
#include "prancheta/base/wildcard.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/variables.h"

namespace prancheta::commands {

namespace {

constexpr Word kList[] = {{L"?", L"?"}};

void listVariables(const CommandContext& context, std::wstring_view patterns) {
    constexpr std::size_t kNameColumn = 20;
    const int angleUnits = context.editor().variables().number(L"AUNITS");
    for (const VariableInfo& info : context.editor().variables().all()) {
        if (!fitsWildcards(info.name, patterns)) continue;
        std::wstring line = info.name + L" ";
        line.resize(std::max(line.size(), kNameColumn), L' ');
        line += variableText(*context.editor().variable(info.name), angleUnits);
        if (info.access == VariableAccess::ReadOnly) line += L" (somente leitura)";
        say(context, line);
    }
}

}  // namespace

CommandTask setvar(CommandContext context) {
    Memory& kept = memory(context);
    std::wstring prompt = L"\nDigite o nome da variável ou [?]: ";
    if (!kept.variable.empty())
        prompt = L"\nDigite o nome da variável ou [?] <" + kept.variable + L">: ";
    for (;;) {
        const InputValue answer =
            co_await context.ask(Prompt(InputKind::Text, prompt).words(kList));
        if (answer.status == RTCAN) co_return CommandEnd::Cancelled;
        if (isWord(answer, L"?")) {
            const InputValue patterns = co_await context.ask(
                Prompt(InputKind::Text, L"\nDigite as variáveis a listar <*>: "));
            if (patterns.status == RTCAN) co_return CommandEnd::Cancelled;
            listVariables(context, patterns.status == RTNORM ? patterns.text : L"*");
            co_return CommandEnd::Done;
        }
        const std::wstring name = answer.status == RTNORM ? answer.text : kept.variable;
        if (name.empty()) co_return CommandEnd::Done;
        const VariableInfo* info = context.editor().variables().find(name);
        if (info == nullptr) {
            context.editor().complain(L"Nome de variável desconhecido. Digite ? para ver a lista.",
                                      Complaint::Refused);
            continue;
        }
        kept.variable = info->name;
        const CommandEnd end = co_await askVariable(context, info->name);
        co_return end;
    }
}

}  // namespace prancheta::commands
