// SPDX-License-Identifier: MIT
// MSPACE and PSPACE: into a viewport of the sheet, and out of it.
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/commands/viewports.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

CommandTask mspace(CommandContext context) {
    if (!needsSheet(context, L"MSPACE")) co_return CommandEnd::Failed;
    Spaces& spaces = context.editor().spaces();
    if (!spaces.viewport().isNull()) {
        say(context, L"Já está no espaço do modelo.");
        co_return CommandEnd::Done;
    }
    const std::wstring why = spaces.enter(spaces.usualViewport());
    if (why.empty()) co_return CommandEnd::Done;
    context.editor().complain(why, Complaint::Refused);
    co_return CommandEnd::Failed;
}

CommandTask pspace(CommandContext context) {
    if (!needsSheet(context, L"PSPACE")) co_return CommandEnd::Failed;
    if (context.editor().spaces().viewport().isNull()) say(context, L"Já está no espaço do papel.");
    context.editor().spaces().leave();
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
