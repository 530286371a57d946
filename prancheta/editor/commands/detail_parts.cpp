// SPDX-License-Identifier: MIT
// The parts of a detail that DETALHE draws.
#include "prancheta/editor/commands/detail_parts.h"

#include "dbsymtb.h"
#include "dbviewport.h"
#include "prancheta/database/database_core.h"
#include "prancheta/editor/commands/viewports.h"
#include "prancheta/editor/detail_copy.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/paper_scale.h"
#include "prancheta/entities/viewports.h"

namespace prancheta::commands {

namespace {

/// On the layer of the details, by layer in all; null when the drawing refuses it.
AcDbObjectId add(const CommandContext& context, AcDbObjectId space,
                 std::unique_ptr<AcDbEntity> entity) {
    (void)entity->setLayer(context.database().core().ensureLayer(kDetailLayer));
    const AcDbObjectPointer<AcDbBlockTableRecord> record(space, AcDb::kForWrite);
    AcDbObjectId id;
    if (record.openStatus() != Acad::eOk || record->appendAcDbEntity(id, entity.get()) != Acad::eOk)
        return {};
    (void)entity.release()->close();
    return id;
}

/// An insertion of a block whose content comes at the end of the step.
bool addCopy(const CommandContext& context, const AcGePoint3d& place, Detail& detail) {
    auto made = std::make_unique<AcDbBlockTableRecord>();
    (void)made->setName(L"*U");  // the next free number
    {
        const AcDbObjectPointer<AcDbBlockTable> table(context.database().blockTableId(),
                                                      AcDb::kForWrite);
        if (table.openStatus() != Acad::eOk || table->add(detail.block, made.get()) != Acad::eOk)
            return false;
        (void)made.release()->close();
    }
    detail.head = add(context, context.database().core().modelSpaceId(),
                      std::make_unique<AcDbBlockReference>(place, detail.block));
    return !detail.head.isNull();
}

/// The circle that clips a round window; it is plotted, and the frame is not.
void clip(const CommandContext& context, Detail& detail) {
    const AcDbViewport& window = *viewportOf(detail.head);
    detail.border = add(context, context.editor().spaces().tab(),
                        std::make_unique<AcDbCircle>(window.centerPoint(), AcGeVector3d::kZAxis,
                                                     window.width() / 2.0));
    changeViewports(context, {detail.head}, [&](AcDbViewport& viewport) {
        (void)viewport.setNonRectClipEntityId(detail.border);  // open for write
    });
}

/// A viewport of the region's size on paper, locked, and the label below it.
bool addWindow(const CommandContext& context, const AcGePoint3d& place, bool round,
               Detail& detail) {
    const Box2d& region = detail.region;
    const double x = region.width() / detail.scale / 2.0;
    const double y = region.height() / detail.scale / 2.0;
    const AcDbObjectId sheet = context.editor().spaces().tab();
    detail.head = addViewport(context, {place.x - x, place.y - y, place.x + x, place.y + y});
    if (detail.head.isNull()) return false;
    const AcDbObjectId layer =
        round ? unplottedLayer(context) : context.database().core().ensureLayer(kDetailLayer);
    changeViewports(context, {detail.head}, [&](AcDbViewport& viewport) {
        (void)viewport.setLayer(layer);  // open for write, sizes above 0
        (void)viewport.setViewCenter(
            {(region.left + region.right) / 2.0, (region.bottom + region.top) / 2.0});
        (void)viewport.setCustomScale(1.0 / detail.scale);
        // Marks of details are for those who look for them in the whole.
        (void)viewport.setFrozenLayers({context.database().core().ensureLayer(kDetailLayer)});
        (void)viewport.setLocked();
    });
    if (round) clip(context, detail);
    detail.frame = frameOf(*viewportOf(detail.head));
    const AcGePoint3d below(place.x, place.y - y - kDetailGap, 0.0);
    detail.label = add(
        context, sheet,
        detailLabelText(context.database(), detailLabel(detail.letter, detail.scale), below, 1.0));
    return !detail.label.isNull();
}

}  // namespace

bool showsSomething(const CommandContext& context, const Curve& border) {
    return !detailCopy(context.editor(), border, 1.0).empty();
}

double sizeOnScreen(const CommandContext& context, double scale) {
    const bool onSheet = context.editor().spaces().onSheet();
    return (onSheet ? 1.0 : drawingScale(context.database())) / scale;
}

std::unique_ptr<AcDbEntity> outlineAt(const AcDbEntity& outline, const AcGePoint3d& at,
                                      double factor) {
    const Box2d box = detailBorder(outline).box();
    const AcGeVector3d middle((box.left + box.right) / 2.0, (box.bottom + box.top) / 2.0, 0.0);
    AcDbEntity* shown = nullptr;
    (void)outline.getTransformedCopy(AcGeMatrix3d::translation(at.asVector()) *
                                         AcGeMatrix3d::scaling(factor) *
                                         AcGeMatrix3d::translation(-middle),
                                     shown);  // else it stays null
    return std::unique_ptr<AcDbEntity>(shown);
}

CommandEnd drawDetail(const CommandContext& context, DetailOrder order) {
    AcDbDatabase& database = context.database();
    const AcDbObjectId model = database.core().modelSpaceId();
    const double unit = drawingScale(database);
    const Curve border = detailBorder(*order.outline);
    const bool round = border.segments().front().isRound();
    Detail detail;
    detail.letter = order.letter;
    detail.scale = order.scale;
    detail.region = border.box();
    detail.outline = add(context, model, std::move(order.outline));
    const double height = kDetailText * unit;
    detail.mark = add(
        context, model,
        std::make_unique<AcDbText>(letterPlace(detail.region, round, height), detail.letter.c_str(),
                                   database.core().current(DatabaseCore::kTextStyle), height));
    const bool onSheet = context.editor().spaces().onSheet();
    if (onSheet) detail.drawnFor = unit;
    const bool drawn = onSheet ? addWindow(context, order.place, round, detail)
                               : addCopy(context, order.place, detail);
    if (!drawn || detail.outline.isNull() || !keepDetail(database, detail)) {
        say(context, L"O detalhe não pôde ser desenhado.");
        return CommandEnd::Failed;
    }
    say(context, L"Detalhe " + detail.letter + L": " + paperScaleText(detail.scale) + L".");
    return CommandEnd::Done;
}

}  // namespace prancheta::commands
