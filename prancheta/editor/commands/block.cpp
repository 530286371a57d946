// SPDX-License-Identifier: MIT
// BLOCK: makes a block of what is selected, or gives one another content.
#include "dbents.h"
#include "prancheta/editor/commands/blocks.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/insert_parts.h"

namespace prancheta::commands {

namespace {

/// `status` RTNORM with a name that a block may have, and may be given.
Task<InputValue> askNewName(CommandContext context) {
    for (;;) {
        InputValue name =
            co_await context.ask(Prompt(InputKind::Text, L"\nNome do bloco ou [?]: ").wholeLine());
        if (name.status != RTNORM) co_return name;
        if (name.text == L"?") {
            listBlocks(context);
            continue;
        }
        if (!checkBlockName(context, name.text)) continue;
        if (blockNamed(context, name.text).isNull()) co_return name;
        const InputValue again = co_await askYesNo(
            context, L"\nO bloco \"" + name.text + L"\" já existe. Redefinir?", Choice::No);
        if (again.status == RTCAN) co_return again;
        if (again.number != 0.0) co_return name;
    }
}

/// A copy of what is tied together stays tied, in the block as outside.
bool fill(const CommandContext& context, AcDbObjectId block, const Ids& ids) {
    AcDbObjectIdArray originals;
    for (const AcDbObjectId& id : ids) originals.append(id);
    AcDbObjectIdArray copies;
    return context.database().deepCloneObjects(originals, block, copies) == Acad::eOk;
}

}  // namespace

CommandTask block(CommandContext context) {
    const InputValue name = co_await askNewName(context);
    if (name.status != RTNORM) co_return endOf(name.status);
    const InputValue base =
        co_await context.ask(Prompt(InputKind::Point, L"\nPonto base: ").required());
    if (base.status != RTNORM) co_return CommandEnd::Cancelled;
    SelectOptions options;
    options.prompt = L"\nSelecione objetos ou [REter/Converter/Apagar] <Converter>: ";
    options.words = {{L"REter", L"Retain"}, {L"Converter", L"COnvert"}, {L"Apagar", L"Delete"}};
    const Selection chosen = co_await selectObjects(context, options);
    if (chosen.status == RTCAN) co_return CommandEnd::Cancelled;
    if (chosen.status != RTNORM) {
        say(context, L"Nenhum objeto selecionado; o bloco não foi criado.");
        co_return CommandEnd::Done;
    }
    const AcDbObjectId former = blockNamed(context, name.text);
    if (!former.isNull() && showsBlock(chosen.ids, former)) {
        context.editor().complain(L"O bloco \"" + name.text +
                                  L"\" conteria a si mesmo: há uma inserção dele entre os objetos. "
                                  L"Use outro nome ou deixe-a de fora.");
        co_return CommandEnd::Failed;
    }
    const AcDbObjectId made = emptyBlock(context, name.text, base.point);
    if (made.isNull() || !fill(context, made, chosen.ids)) co_return CommandEnd::Failed;
    if (!former.isNull()) sayFollowing(context, made);
    if (chosen.word.empty() || chosen.word == L"COnvert") {
        auto insertion = std::make_unique<AcDbBlockReference>(base.point, made);
        appendOffered(*insertion);
        (void)addEntity(context, std::move(insertion));
    }
    if (chosen.word != L"Retain") eraseForOops(context, chosen.ids);
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
