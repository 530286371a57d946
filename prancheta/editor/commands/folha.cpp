// SPDX-License-Identifier: MIT
// FOLHA: drawing sheets with frame, title block and a viewport at a scale.
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/commands/attributes.h"
#include "prancheta/editor/commands/sheet_command.h"
#include "prancheta/editor/commands/sheet_list.h"
#include "prancheta/editor/commands/sheet_values.h"
#include "prancheta/editor/commands/sheets.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/commands/viewports.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/paper_scale.h"
#include "prancheta/editor/plotter.h"
#include "prancheta/entities/insert_parts.h"
#include "prancheta/entities/viewports.h"
#include "protocol/report.h"

namespace prancheta::commands {

namespace {

constexpr Word kFolhaOptions[] = {
    {L"Nova", L"New"}, {L"Escala", L"Scale"}, {L"Legenda", L"Title"}, {L"Atualizar", L"Update"}};

/// The title block of the sheet that is shown; null after saying that there is none.
AcDbObjectId shownTitle(const CommandContext& context) {
    const Spaces& spaces = context.editor().spaces();
    const AcDbObjectId title = spaces.onSheet() ? titleOf(spaces.tab()) : AcDbObjectId();
    if (title.isNull())
        context.editor().complain(
            L"A aba atual não é uma folha com legenda. Passe para uma (LAYOUT Definir) ou faça uma "
            L"(FOLHA Nova).",
            Complaint::Refused);
    return title;
}

CommandTask changeScale(CommandContext context) {
    if (shownTitle(context).isNull()) co_return CommandEnd::Failed;
    const AcDbObjectId id = mainViewport(context.editor().spaces().tab());
    if (id.isNull()) {
        context.editor().complain(L"A folha não tem janela; faça uma com MVIEW.",
                                  Complaint::Refused);
        co_return CommandEnd::Failed;
    }
    const InputValue scale = co_await askSheetScale(context, 1.0 / viewportOf(id)->customScale());
    if (scale.status == RTCAN) co_return CommandEnd::Cancelled;
    changeViewports(context, {id}, [by = 1.0 / scale.number](AcDbViewport& viewport) {
        (void)viewport.setCustomScale(by);  // above 0
    });
    tellWhetherFits(context, frameOf(*viewportOf(id)), scale.number);
    (void)refreshSheets(context);
    co_return CommandEnd::Done;
}

/// The next row of the revisions, with its number and date; null when the table has no head.
std::unique_ptr<AcDbBlockReference> nextRevision(AcDbObjectId space, const std::wstring& number) {
    const Ids rows = revisionsOf(space);
    if (rows.empty()) return nullptr;
    const AcDbObjectPointer<AcDbBlockReference> head(rows.front(), AcDb::kForRead);
    AcDbExtents box;
    if (head->getGeomExtents(box) != Acad::eOk) return nullptr;
    const double height = box.maxPoint().y - box.minPoint().y;
    AcGePoint3d at = head->position();
    at.y += static_cast<double>(rows.size()) * height;
    std::unique_ptr<AcDbBlockReference> row = fieldsAt(head->blockTableRecord(), at);
    for (AcDbAttribute* const field : attributesForChange(*row)) (void)field->setTextString(L"");
    setField(*row, L"REV", number);
    setField(*row, L"DATA", sheetDate());
    return row;
}

/// Each field that the program does not fill; another revision gets its row.
CommandTask editTitle(CommandContext context) {
    const AcDbObjectId title = shownTitle(context);
    if (title.isNull()) co_return CommandEnd::Failed;
    const std::unique_ptr<AcDbBlockReference> draft = draftOf(title);
    if (draft == nullptr) co_return CommandEnd::Failed;
    for (AcDbAttribute* const field : attributesForChange(*draft))
        if (isFilled(field->tagConst()))
            (void)field->setModes(field->modes() | AcDbAttributeText::kPreset);
    const std::wstring former = fieldOf(*draft, L"REVISAO");
    int status = co_await askAttributes(context, draft.get());
    if (status == RTCAN) co_return CommandEnd::Cancelled;
    const std::wstring revision = fieldOf(*draft, L"REVISAO");
    std::unique_ptr<AcDbBlockReference> row;
    if (!revision.empty() && revision != former)
        row = nextRevision(context.editor().spaces().tab(), revision);
    if (row != nullptr) status = co_await askAttributes(context, row.get());
    if (status == RTCAN) co_return CommandEnd::Cancelled;
    if (!takeValues(title, *draft)) co_return CommandEnd::Failed;
    if (row != nullptr) (void)addToSheet(context, std::move(row));
    (void)refreshSheets(context);
    co_return CommandEnd::Done;
}

CommandTask updateAll(CommandContext context) {
    if (auto* const report = static_cast<protocol::DrawingReport*>(
            acrxSysRegistry()->at(protocol::kDrawingReportKey)))
        (void)report->drawTablesAgain(context.database());
    const std::size_t count = refreshSheets(context);
    for (const Tab& sheet : titledSheets(context.database())) refreshList(context, sheet);
    if (count == 0)
        say(context, L"O desenho não tem folha com legenda; faça uma com FOLHA Nova.");
    else
        say(context, counted(count, L"folha atualizada.", L"folhas atualizadas."));
    co_return CommandEnd::Done;
}

}  // namespace

Task<InputValue> askSheetScale(CommandContext context, double present) {
    for (;;) {
        InputValue answer = co_await context.ask(
            Prompt(InputKind::Text, L"\nEscala <" + paperScaleText(present) + L">: ").wholeLine());
        answer.number = present;
        if (answer.status == RTCAN || trim(answer.text).empty()) co_return answer;
        if (const auto scale = readDrawingScale(trim(answer.text))) {
            answer.number = *scale;
            co_return answer;
        }
        context.editor().complain(L"Requer uma escala como 20 ou 1:20.", Complaint::Refused);
    }
}

void tellWhetherFits(const CommandContext& context, const Box2d& frame, double scale) {
    const Box2d model =
        context.editor().displayOf(context.database().core().modelSpaceId()).extents();
    if (model.empty() ||
        (model.width() <= frame.width() * scale && model.height() <= frame.height() * scale))
        return;
    say(context, L"O modelo não cabe na janela em " + paperScaleText(scale) + L".");
}

CommandTask folha(CommandContext context) {
    context.editor().spaces().leave();
    const InputValue answer = co_await context.ask(
        Prompt(InputKind::Keyword, L"\n[Nova/Escala/Legenda/Atualizar] <Nova>: ")
            .words(kFolhaOptions));
    if (answer.status == RTCAN) co_return CommandEnd::Cancelled;
    CommandTask (*run)(CommandContext) = newSheet;
    if (isWord(answer, L"Scale")) run = changeScale;
    if (isWord(answer, L"Title")) run = editTitle;
    if (isWord(answer, L"Update")) run = updateAll;
    const CommandEnd end = co_await run(context);
    co_return end;
}

}  // namespace prancheta::commands
