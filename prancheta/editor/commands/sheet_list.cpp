// SPDX-License-Identifier: MIT
// The material list on a sheet with a title block: the module draws it, its parts are marked. The
// title block is marked, too, as long as they stand, so that it is known when the user erased them.
#include "prancheta/editor/commands/sheet_list.h"

#include <algorithm>

#include "dbpl.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/value_list.h"
#include "prancheta/editor/commands/blocks.h"
#include "prancheta/editor/commands/sheets.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/picking.h"
#include "prancheta/entities/insert_parts.h"
#include "protocol/report.h"

namespace prancheta::commands {

namespace {

/// Heights of the list's texts on paper, mm; the first one with which it fits.
constexpr double kTexts[] = {2.5, 1.8};
/// Application that marks the list's parts, and the title block above which they stand.
constexpr const wchar_t* kListMark = L"PRANCHETA_LISTA";

bool isListPart(const AcDbEntity& entity) { return ListOwner(entity.xData(kListMark)) != nullptr; }

/// The application is known.
void markPart(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
    if (entity.openStatus() != Acad::eOk || isListPart(*entity.object())) return;
    ListBuilder list;
    list.add(newTextItem(AcDb::kDxfRegAppName, kListMark));
    list.add(newTextItem(AcDb::kDxfXdAsciiString, kSheetLayer));
    (void)entity->setXData(ListOwner(list.release()).get());
}

void forgetPart(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
    if (entity.openStatus() != Acad::eOk || !isListPart(*entity.object())) return;
    const ListOwner nothing(newTextItem(AcDb::kDxfRegAppName, kListMark));
    (void)entity->setXData(nothing.get());
}

/// The frame drawn around a place of the sheet; the sheet without one.
Box2d frameAround(const Tab& sheet, const AcGePoint3d& at) {
    for (const AcDbObjectId& id : contentOf(sheet.block)) {
        const AcDbObjectPointer<AcDbPolyline> outline(id, AcDb::kForRead);
        if (outline.openStatus() != Acad::eOk || !equalNoCase(outline->layer(), kSheetLayer))
            continue;
        const Box2d box = entityBox(*outline.object());
        if (box.grown(1e-6).contains(at.x, at.y)) return box;
    }
    return sheetOf(sheet);
}

/// Lower right end of the lines that stand, else of the title block's field for it, else above it.
AcGePoint3d listCorner(const Tab& sheet, const AcDbBlockReference& title, const Ids& standing) {
    Box2d lines;
    for (const AcDbObjectId& id : standing) {
        const AcDbObjectPointer<AcDbLine> line(id, AcDb::kForRead);
        if (line.openStatus() == Acad::eOk) lines.add(entityBox(*line.object()));
    }
    if (!lines.empty()) return {lines.right, lines.bottom, 0.0};
    for (const AcDbAttribute* const field : attributesOf(title))
        if (equalNoCase(field->tagConst(), kListField)) return field->position();
    return {entityBox(title).right, topOfTitle(sheet.block), 0.0};
}

/// Draws and marks; what was drawn. Says so when it does not fit.
std::size_t drawList(const CommandContext& context, const Tab& sheet, const AcGePoint3d& corner,
                     const protocol::DrawingReport& report) {
    const Box2d frame = frameAround(sheet, corner);
    protocol::TablePlace place{sheet.block, corner, corner.x - frame.left, frame.top - corner.y,
                               0.0};
    for (const double text : kTexts) {
        place.text = text;
        AcDbObjectIdArray drawn;
        if (!report.drawTables(context.database(), place, drawn)) continue;
        for (int i = 0; i < drawn.length(); ++i) markPart(drawn[i]);
        return static_cast<std::size_t>(drawn.length());
    }
    say(context, L"A lista de material não cabe na folha " + sheet.name +
                     L" e não foi posta nela; tire colunas (LISTAMATERIAL cOlunas) ou tome um "
                     L"formato maior.");
    return 0;
}

}  // namespace

void refreshList(const CommandContext& context, const Tab& sheet) {
    const auto* const report = static_cast<const protocol::DrawingReport*>(
        acrxSysRegistry()->at(protocol::kDrawingReportKey));
    if (report == nullptr) return;
    const AcDbObjectId titleId = titleOf(sheet.block);
    Ids standing = contentOf(sheet.block);
    std::erase_if(standing, [titleId](const AcDbObjectId& id) {
        const AcDbObjectPointer<AcDbEntity> part(id, AcDb::kForRead);
        return id == titleId || part.openStatus() != Acad::eOk || !isListPart(*part.object());
    });
    bool erased = false;
    AcGePoint3d corner;
    {
        const AcDbObjectPointer<AcDbBlockReference> title(titleId, AcDb::kForRead);
        erased = isListPart(*title.object()) && standing.empty();
        corner = listCorner(sheet, *title.object(), standing);
    }
    if (erased) return;
    if (std::any_of(standing.begin(), standing.end(), onLockedLayer)) {
        say(context, L"A lista de material da folha " + sheet.name +
                         L" está numa camada bloqueada e não foi atualizada.");
        return;
    }
    (void)eraseAll(context, standing);
    (void)context.database().core().ensureRegApp(kListMark);
    if (drawList(context, sheet, corner, *report) > 0)
        markPart(titleId);
    else
        forgetPart(titleId);
}

}  // namespace prancheta::commands
