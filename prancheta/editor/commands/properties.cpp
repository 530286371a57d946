// SPDX-License-Identifier: MIT
// PROPERTIES: the panel of properties, where there is one.
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

CommandTask properties(CommandContext context) {
    if (!context.editor().ui().showTool(Tool::Properties))
        say(context, L"O painel de propriedades está só na janela; LISTA mostra os dados aqui.");
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
