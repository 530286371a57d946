// SPDX-License-Identifier: MIT
// COPYCLIP, CUTCLIP, COPYBASE, PASTECLIP: objects from one drawing to another.
#include "prancheta/editor/clipboard.h"

#include "prancheta/database/deep_clone.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/editor/commands/blocks.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

/// What is shown of a large paste while it follows the pointer.
constexpr std::size_t kMostShown = 2000;

/// Returns the originals of what was copied.
Ids toClipboard(const CommandContext& context, const Ids& ids,
                std::optional<AcGePoint3d> base = {}) {
    Editor& editor = context.editor();
    std::size_t left = 0;
    Ids taken = editor.clipboard().take(ids, base, left);
    sayLeft(context, left);
    if (!taken.empty()) editor.ui().offerCopied(editor.clipboard());
    return taken;
}

/// Where the pasted objects would be, as a picture from their base point.
std::shared_ptr<const Picture> pictureOfAll(const Ids& ids, const AcGePoint3d& base) {
    auto all = std::make_shared<Picture>();
    const std::size_t shown = std::min(ids.size(), kMostShown);
    for (std::size_t i = 0; i < shown; ++i) {
        const AcDbObjectPointer<AcDbEntity> entity(ids[i], AcDb::kForRead);
        if (entity.openStatus() == Acad::eOk) recordPicture(*entity.object(), *all);
    }
    all->transform(AcGeMatrix3d::translation(-base.asVector()));
    return all;
}

}  // namespace

CommandTask copyclip(CommandContext context) {
    const Selection chosen = co_await selectToRead(context);
    if (chosen.status == RTNORM) (void)toClipboard(context, chosen.ids);
    co_return endOf(chosen.status);
}

CommandTask cutclip(CommandContext context) {
    const Selection chosen = co_await selectForChange(context);
    if (chosen.status == RTNORM) eraseForOops(context, toClipboard(context, chosen.ids));
    co_return endOf(chosen.status);
}

CommandTask copybase(CommandContext context) {
    const InputValue base =
        co_await context.ask(Prompt(InputKind::Point, L"\nPonto base: ").required());
    if (base.status != RTNORM) co_return CommandEnd::Cancelled;
    const Selection chosen = co_await selectToRead(context);
    if (chosen.status == RTNORM) (void)toClipboard(context, chosen.ids, base.point);
    co_return endOf(chosen.status);
}

CommandTask pasteclip(CommandContext context) {
    Editor& editor = context.editor();
    editor.ui().takeOffered(editor.clipboard());
    // The clipboard may hold something else by the time a point is given.
    const Clipboard copied = editor.clipboard();
    const Ids ids = copied.ids();
    if (ids.empty()) {
        say(context, L"A área de transferência não tem objetos. Copie alguns com COPIAREC antes.");
        co_return CommandEnd::Done;
    }
    // Not inside the co_await: g++ 12 would destroy the function object twice.
    Prompt prompt(InputKind::Point, L"\nPonto de inserção: ");
    prompt.required().preview(
        [shown = pictureOfAll(ids, copied.base())](const AcGePoint3d& to, Picture& out) {
            out.append(*shown, AcGeMatrix3d::translation(to.asVector()));
        });
    const InputValue at = co_await context.ask(prompt);
    if (at.status != RTNORM) co_return CommandEnd::Cancelled;
    std::size_t left = 0;
    Ids made = cloneFrom(context, ids, context.database().currentSpaceId(), left);
    (void)transformCopies(context, made, AcGeMatrix3d::translation(at.point - copied.base()));
    sayLeft(context, left);
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
