// SPDX-License-Identifier: MIT
// ERASE, and OOPS that brings back what it took.
#include "prancheta/database/database_core.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

CommandTask erase(CommandContext context) {
    const Selection chosen = co_await selectForChange(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    context.editor().lastErased() = eraseAll(context, chosen.ids);
    memory(context).erasedAt = context.database().core().undo().revision();
    co_return CommandEnd::Done;
}

CommandTask oops(CommandContext context) {
    Memory& kept = memory(context);
    // After its ERASE was taken back the set is of no use: what is erased of it now, undo has taken
    // out.
    const bool standing = context.database().core().undo().revision() >= kept.erasedAt;
    const Ids set = std::exchange(context.editor().lastErased(), {});
    std::size_t back = 0;
    for (const AcDbObjectId id : set) {
        if (!standing || !id.isErased()) continue;
        AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite, true);
        if (entity.openStatus() == Acad::eOk && entity->erase(Adesk::kFalse) == Acad::eOk) ++back;
    }
    if (back == 0)
        say(context, L"Não há objetos apagados para restaurar.");
    else
        kept.restored = {set, kept.erasedAt, context.database().core().undo().revision()};
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
