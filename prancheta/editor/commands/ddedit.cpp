// SPDX-License-Identifier: MIT
// DDEDIT: changes what texts, paragraphs and dimensions say.
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/commands/texts.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/picking.h"
#include "prancheta/entities/weld_symbol.h"

namespace prancheta::commands {

namespace {

/// The new text; `status` is RTNONE when it stays as it is.
Task<InputValue> askWords(CommandContext context, const Words* words) {
    InputValue answer;
    if (words->paragraphs) {
        const TypedLines typed = co_await askTextLines(
            context, L"\nNovo texto, linha a linha <" + words->text + L">: ", &words->frame);
        answer.status = typed.lines.empty() ? (typed.status == RTCAN ? RTCAN : RTNONE) : RTNORM;
        answer.text = joinParagraphs(typed.lines);
        co_return answer;
    }
    const std::wstring what = words->tag.empty() ? L"Novo texto" : words->tag;
    answer =
        co_await context.ask(Prompt(InputKind::Text, L"\n" + what + L" <" + words->text + L">: ")
                                 .wholeLine()
                                 .inPlace(words->frame));
    if (const auto lines = linesInPlace(answer.text))
        answer.text = lines->empty() ? L"" : lines->front();
    if (answer.status == RTNORM && answer.text.empty()) answer.status = RTNONE;
    co_return answer;
}

/// False, after saying why, when the object does not take the text.
bool change(const CommandContext& context, AcDbObjectId id, std::size_t place,
            const std::wstring& text) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
    if (entity.openStatus() == Acad::eOk && setWords(*entity, place, text) == Acad::eOk)
        return true;
    std::wstring why = L"O texto não pôde ser alterado.";
    Weld unused;
    if (entity.openStatus() == Acad::eOk && entity->isKindOf(WeldSymbol::desc()))
        (void)readWeld(text, unused, why);
    context.editor().complain(why, Complaint::Refused);
    return false;
}

/// RTCAN after Esc.
Task<int> editOne(CommandContext context, AcDbObjectId id) {
    std::vector<Words> all;
    {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.openStatus() == Acad::eOk) all = wordsOf(*entity);
    }
    if (all.empty() || onLockedLayer(id)) {
        context.editor().complain(
            all.empty()
                ? L"Nenhum texto aí: selecione um texto, uma cota ou um bloco com atributos."
                : L"A camada do texto está bloqueada: desbloqueie-a para editar.",
            Complaint::Refused);
        co_return RTERROR;
    }
    for (std::size_t i = 0; i < all.size(); ++i) {
        const InputValue answer = co_await askWords(context, &all[i]);
        if (answer.status == RTCAN) co_return RTCAN;
        if (answer.status == RTNORM && !change(context, id, i, answer.text)) co_return RTERROR;
    }
    co_return RTNORM;
}

}  // namespace

CommandTask ddedit(CommandContext context) {
    // What was selected is edited and nothing more; else one is picked after the other.
    const Ids chosen = context.editor().selection().take();
    for (const AcDbObjectId& id : chosen)
        if (co_await editOne(context, id) == RTCAN) co_return CommandEnd::Cancelled;
    if (!chosen.empty()) co_return CommandEnd::Done;
    for (;;) {
        const InputValue picked = co_await context.ask(
            Prompt(InputKind::Entity, L"\nSelecione o texto ou a cota a editar: "));
        if (picked.status == RTNONE || picked.status == RTCAN) co_return endOf(picked.status);
        const AcDbObjectId id =
            picked.entities.empty() ? AcDbObjectId::kNull : picked.entities.front();
        if (co_await editOne(context, id) == RTCAN) co_return CommandEnd::Cancelled;
    }
}

}  // namespace prancheta::commands
