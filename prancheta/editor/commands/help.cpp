// SPDX-License-Identifier: MIT
// HELP: the commands there are.
#include "accmd.h"
#include "prancheta/editor/command_stack.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

CommandTask help(CommandContext context) {
    const std::unique_ptr<AcEdCommandIterator> iterator(context.editor().commands().iterator());
    std::wstring group;
    for (; !iterator->done(); (void)iterator->next()) {
        const AcEdCommand& command = *iterator->command();
        if (group != iterator->commandGroup()) {
            group = iterator->commandGroup();
            say(context, L"Comandos do grupo " + group + L":");
        }
        const std::wstring local = command.localName();
        const std::wstring global = command.globalName();
        say(context, L"  " + local + (local == global ? L"" : L"  (_" + global + L")"));
    }
    say(context,
        L"Digite o nome de um comando; Enter repete o último, Esc cancela. Um _ antes do nome pede "
        L"o nome global.");
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
