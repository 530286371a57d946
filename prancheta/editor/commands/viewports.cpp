// SPDX-License-Identifier: MIT
// What the commands share that work on viewports.
#include "prancheta/editor/commands/viewports.h"

#include <algorithm>

#include "dbsymtb.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/paper_scale.h"
#include "prancheta/entities/viewports.h"

namespace prancheta::commands {

namespace {

constexpr double kMargin = 1.05;

/// All of the model in the frame, or a sheet's worth of an empty one.
void showModel(const CommandContext& context, AcDbViewport& viewport) {
    AcDbDatabase& database = context.database();
    Box2d box = context.editor().displayOf(database.core().modelSpaceId()).extents();
    if (box.empty() || (box.width() == 0.0 && box.height() == 0.0)) {
        const SystemVariables& variables = database.core().variables();
        const AcGePoint3d lower = variables.point(L"LIMMIN");
        const AcGePoint3d upper = variables.point(L"LIMMAX");
        box = {lower.x, lower.y, upper.x, upper.y};
    }
    const double height =
        std::max(box.height(), box.width() * viewport.height() / viewport.width());
    (void)viewport.setViewCenter({(box.left + box.right) / 2.0, (box.bottom + box.top) / 2.0});
    (void)viewport.setViewHeight(height > 0.0 ? height * kMargin : viewport.height());
}

void setFrame(AcDbViewport& viewport, const Box2d& frame) {
    // A new entity takes any frame that has a size.
    (void)viewport.setCenterPoint(
        {(frame.left + frame.right) / 2.0, (frame.bottom + frame.top) / 2.0, 0.0});
    (void)viewport.setWidth(frame.width());
    (void)viewport.setHeight(frame.height());
}

/// Other programs take the first viewport of a sheet for the sheet's own view.
void addSheetsOwn(const CommandContext& context, const Tab& tab) {
    const AcDbStub* const stub = tab.block;
    AcDbBlockTableRecordIterator* iterator = nullptr;
    (void)static_cast<const AcDbBlockTableRecord&>(*stub->object).newIterator(iterator);
    bool known = false;
    for (; !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        known = known || (iterator->getEntityId(id) == Acad::eOk && isSheetsOwn(id));
    }
    delete iterator;
    if (known) return;
    auto own = std::make_unique<AcDbViewport>();
    const Box2d sheet = sheetOf(tab);
    setFrame(*own, sheet);
    (void)own->setViewCenter({own->centerPoint().x, own->centerPoint().y});
    (void)own->setViewHeight(sheet.height());
    (void)own->setNumber(1);
    (void)own->setFiledState(1, own->flags());
    (void)addEntity(context, std::move(own));
}

}  // namespace

bool needsSheet(const CommandContext& context, const wchar_t* command) {
    if (context.editor().spaces().onSheet()) return true;
    context.editor().complain(
        std::wstring(command) + L" trabalha num layout; escolha um com LAYOUT Definir.",
        Complaint::Refused);
    return false;
}

Task<Selection> selectViewports(CommandContext context) {
    Selection chosen = co_await selectForChange(context);
    std::erase_if(chosen.ids, [](AcDbObjectId id) { return viewportOf(id) == nullptr; });
    if (chosen.status == RTNORM && chosen.ids.empty())
        say(context, L"Nenhuma janela de visualização foi selecionada.");
    co_return chosen;
}

void changeViewports(const CommandContext& context, const Ids& ids,
                     const std::function<void(AcDbViewport&)>& change) {
    (void)changeEach(ids, [&](AcDbEntity& entity, std::size_t) {
        change(static_cast<AcDbViewport&>(entity));
        return Acad::eOk;
    });
    context.editor().spaces().viewportChanged();
}

AcDbObjectId addViewport(const CommandContext& context, const Box2d& frame) {
    const Spaces& spaces = context.editor().spaces();
    if (!(frame.width() > 0.0) || !(frame.height() > 0.0)) {
        context.editor().complain(L"A janela precisa de largura e altura.", Complaint::Refused);
        return {};
    }
    if (const Result<void> made = makeLayouts(context.database()); !made) {
        context.editor().complain(toWide(made.error().text), Complaint::Refused);
        return {};
    }
    addSheetsOwn(context, tabOf(context.database(), spaces.tab()));
    int number = 1;
    for (const AcDbObjectId& id : spaces.viewports())
        number = std::max<int>(number, viewportOf(id)->number());
    auto viewport = std::make_unique<AcDbViewport>();
    setFrame(*viewport, frame);
    showModel(context, *viewport);
    // Whether a drawing at 1 has a scale at all nobody can tell.
    if (drawingScale(context.database()) != 1.0)
        sizeAnnotations(context.database(), *viewport, true);
    (void)viewport->setNumber(static_cast<Adesk::Int16>(number + 1));
    (void)viewport->setFiledState(static_cast<Adesk::Int16>(number + 1), viewport->flags());
    return addEntity(context, std::move(viewport));
}

AcDbObjectId unplottedLayer(const CommandContext& context) {
    const AcDbObjectId layer = context.database().core().ensureLayer(L"FOLHA_JANELA");
    if (const AcDbObjectPointer<AcDbLayerTableRecord> record(layer, AcDb::kForWrite);
        record.openStatus() == Acad::eOk)
        (void)record->setIsPlottable(false);
    return layer;
}

}  // namespace prancheta::commands
