// SPDX-License-Identifier: MIT
// DRAWORDER: brings objects before or behind others.
#include <unordered_set>

#include "prancheta/database/draw_order.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

constexpr Word kOrderWords[] = {
    {L"Acima", L"Above"}, {L"aBaixo", L"Under"}, {L"Frente", L"Front"}, {L"Trás", L"Back"}};

DrawPlace drawPlaceOf(const InputValue& answer) {
    if (isWord(answer, L"Above")) return DrawPlace::Above;
    if (isWord(answer, L"Under")) return DrawPlace::Under;
    return isWord(answer, L"Front") ? DrawPlace::Front : DrawPlace::Back;
}

}  // namespace

CommandTask draworder(CommandContext context) {
    const Selection chosen = co_await selectToRead(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    const InputValue answer = co_await context.ask(
        Prompt(InputKind::Keyword, L"\nOrdem [Acima/aBaixo/Frente/Trás] <Trás>: ")
            .words(kOrderWords));
    if (answer.status == RTCAN) co_return CommandEnd::Cancelled;
    const DrawPlace place = drawPlaceOf(answer);
    Ids others;
    if (place == DrawPlace::Above || place == DrawPlace::Under) {
        SelectOptions options;
        options.prompt = L"\nSelecione os objetos de referência: ";
        options.dropLocked = false;
        const Selection reference = co_await selectObjects(context, options);
        if (reference.status != RTNORM) co_return endOf(reference.status);
        others = reference.ids;
        const std::unordered_set<AcDbStub*> own(chosen.ids.begin(), chosen.ids.end());
        std::erase_if(others, [&](AcDbObjectId id) { return own.contains(id); });
        if (others.empty()) {
            say(context, L"Os objetos de referência são os próprios: a ordem não mudou.");
            co_return CommandEnd::Done;
        }
    }
    const AcDbObjectId space = context.database().currentSpaceId();
    if (moveInDrawOrder(space, chosen.ids, place, others) == Acad::eOk) co_return CommandEnd::Done;
    context.editor().complain(L"A ordem de desenho não pôde ser mudada.", Complaint::Failed);
    co_return CommandEnd::Failed;
}

}  // namespace prancheta::commands
