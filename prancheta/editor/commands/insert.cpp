// SPDX-License-Identifier: MIT
// INSERT: an insertion of a block, which a file may bring.
#include <cmath>

#include "dbents.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/editor/commands/attributes.h"
#include "prancheta/editor/commands/blocks.h"
#include "prancheta/editor/commands/files.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/insert_parts.h"
#include "prancheta/entities/tag_list.h"

namespace prancheta::commands {

namespace {

/// Base point that a drawing was given for its insertion into others.
AcGePoint3d insertionBase(const AcDbDatabase& drawing) {
    for (const auto& [name, tags] : drawing.core().foreign().header)
        if (name == "$INSBASE") return findPoint(tags, 10);
    return AcGePoint3d::kOrigin;
}

/// The block of this name with what a file shows in its model space. Null, after saying why, when
/// that fails; what was done then has to be taken back.
AcDbObjectId blockFromFile(const CommandContext& context, const std::wstring& name,
                           const std::wstring& file) {
    const Result<std::unique_ptr<AcDbDatabase>> loaded =
        readDrawing(context.editor(), typedPath(file), nullptr);
    if (!loaded) {
        context.editor().complain(toWide(loaded.error().message()));
        return {};
    }
    AcDbDatabase& drawing = **loaded;
    const AcDbObjectId block = emptyBlock(context, name, insertionBase(drawing));
    if (block.isNull()) return {};
    std::size_t left = 0;
    const Ids content = cloneFrom(context, drawing.core().modelSpace(), block, left);
    sayLeft(context, left);
    if (!showsBlock(content, block)) return block;
    context.editor().complain(L"O desenho do arquivo insere um bloco de nome \"" + name +
                              L"\", que conteria a si mesmo. Use outro nome.");
    return {};
}

struct Wanted {
    CommandEnd end = CommandEnd::Done;
    AcDbObjectId block;  ///< null: the command ends
};

Task<Wanted> askBlock(CommandContext context) {
    Wanted wanted;
    for (;;) {
        const InputValue answer =
            co_await context.ask(Prompt(InputKind::Text, L"\nNome do bloco ou [?]: ").wholeLine());
        wanted.end = endOf(answer.status);
        if (answer.status != RTNORM) co_return wanted;
        if (answer.text == L"?") {
            listBlocks(context);
            continue;
        }
        const std::size_t equals = answer.text.find(L'=');
        const std::wstring name(trim(std::wstring_view(answer.text).substr(0, equals)));
        if (!checkBlockName(context, name)) continue;
        wanted.block = blockNamed(context, name);
        if (equals == std::wstring::npos) {
            if (!wanted.block.isNull()) co_return wanted;
            context.editor().complain(L"Não há bloco de nome \"" + name +
                                          L"\". Use ? para ver os que há, ou " + name +
                                          L"=ARQUIVO para ler um desenho.",
                                      Complaint::Refused);
            continue;
        }
        if (!wanted.block.isNull()) {
            const InputValue again = co_await askYesNo(
                context, L"\nO bloco \"" + name + L"\" já existe. Redefinir?", Choice::No);
            wanted.end = endOf(again.status);
            if (again.status == RTCAN) wanted.block.setNull();
            if (again.status == RTCAN || again.number == 0.0) co_return wanted;
        }
        const bool redefined = !wanted.block.isNull();
        wanted.block = blockFromFile(context, name, answer.text.substr(equals + 1));
        if (wanted.block.isNull()) wanted.end = CommandEnd::Failed;
        if (redefined && !wanted.block.isNull()) sayFollowing(context, wanted.block);
        co_return wanted;
    }
}

using Insertion = std::unique_ptr<AcDbBlockReference>;

Insertion insertionOf(AcDbObjectId block, const AcGePoint3d& at, double x, double y,
                      double rotation) {
    auto made = std::make_unique<AcDbBlockReference>(at, block);
    // Factors of zero were refused when they were asked for.
    (void)made->setScaleFactors({x, y, std::abs(x)});
    (void)made->setRotation(rotation);
    appendOffered(*made);
    return made;
}

}  // namespace

CommandTask insert(CommandContext context) {
    const Wanted wanted = co_await askBlock(context);
    if (wanted.block.isNull()) co_return wanted.end;
    const AcDbObjectId block = wanted.block;
    const double turn = userTurn(context);
    const InputValue at =
        co_await context.ask(Prompt(InputKind::Point, L"\nPonto de inserção: ")
                                 .required()
                                 .showing(context, [block, turn](const AcGePoint3d& pointer) {
                                     return insertionOf(block, pointer, 1.0, 1.0, turn);
                                 }));
    if (at.status != RTNORM) co_return CommandEnd::Cancelled;
    const auto shownHere = [block, turn, from = at.point](double scale) {
        return [=](const AcGePoint3d&) { return insertionOf(block, from, scale, scale, turn); };
    };
    const InputValue x = co_await context.ask(Prompt(InputKind::Real, L"\nEscala X <1>: ")
                                                  .bits(RSG_NOZERO)
                                                  .showing(context, shownHere(1.0)));
    if (x.status == RTCAN) co_return CommandEnd::Cancelled;
    const double scaleX = x.status == RTNORM ? x.number : 1.0;
    const InputValue y =
        co_await context.ask(Prompt(InputKind::Real, L"\nEscala Y <" + lengthText(scaleX) + L">: ")
                                 .bits(RSG_NOZERO)
                                 .showing(context, shownHere(scaleX)));
    if (y.status == RTCAN) co_return CommandEnd::Cancelled;
    const double scaleY = y.status == RTNORM ? y.number : scaleX;
    const InputValue rotation = co_await context.ask(
        Prompt(InputKind::Angle, L"\nRotação <" + directionText(0.0) + L">: ")
            .from(at.point)
            .absolute()
            .showing(context, [=, from = at.point](const AcGePoint3d& pointer) {
                const AcGeVector3d to = pointer - from;
                return insertionOf(block, from, scaleX, scaleY, std::atan2(to.y, to.x));
            }));
    if (rotation.status == RTCAN) co_return CommandEnd::Cancelled;
    const double turned = turn + (rotation.status == RTNORM ? rotation.number : 0.0);
    Insertion made = insertionOf(block, at.point, scaleX, scaleY, turned);
    if (co_await askNewAttributes(context, made.get()) == RTCAN) co_return CommandEnd::Cancelled;
    co_return addEntity(context, std::move(made)).isNull() ? CommandEnd::Failed : CommandEnd::Done;
}

}  // namespace prancheta::commands
