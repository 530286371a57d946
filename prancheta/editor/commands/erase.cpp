// SPDX-License-Identifier: MIT
// ERASE, and OOPS that brings back what it took.
#include "prancheta/database/database_core.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

void eraseForOops(const CommandContext& context, const Ids& ids) {
    Ids erased = eraseAll(context, ids);
    const std::uint64_t now = context.database().core().undo().revision();
    context.editor().lastErased().erased(std::move(erased), now);
}

CommandTask erase(CommandContext context) {
    const Selection chosen = co_await selectForChange(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    eraseForOops(context, chosen.ids);
    co_return CommandEnd::Done;
}

CommandTask oops(CommandContext context) {
    const UndoLog& undo = context.database().core().undo();
    LastErased& last = context.editor().lastErased();
    Ids set = last.take(undo.revision());
    std::size_t back = 0;
    for (const AcDbObjectId id : set) {
        if (!id.isErased()) continue;
        AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite, true);
        if (object.openStatus() == Acad::eOk && object->erase(Adesk::kFalse) == Acad::eOk) ++back;
    }
    if (back == 0)
        say(context, L"Não há objetos apagados para restaurar.");
    else
        last.restored(std::move(set), undo.revision());
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
