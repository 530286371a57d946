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

/// The application is known. `content`: of the title block, what the list said.
void markPart(AcDbObjectId id, const std::wstring& content = kSheetLayer) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
    if (entity.openStatus() != Acad::eOk) return;
    ListBuilder list;
    list.add(newTextItem(AcDb::kDxfRegAppName, kListMark));
    list.add(newTextItem(AcDb::kDxfXdAsciiString, content));
    (void)entity->setXData(ListOwner(list.release()).get());
}

const protocol::DrawingReport* drawingReport() {
    return static_cast<const protocol::DrawingReport*>(
        acrxSysRegistry()->at(protocol::kDrawingReportKey));
}

/// A number that is another one when a list says something else (FNV-1a of what it prints).
class Digest : public protocol::PropertyVisitor {
public:
    void number(const ACHAR* name, double value) override { take(name, numberTextWide(value)); }
    void integer(const ACHAR* name, long long value) override {
        take(name, std::to_wstring(value));
    }
    void text(const ACHAR* name, const ACHAR* value) override {
        take(name, value != nullptr ? value : L"");
    }
    void point(const ACHAR*, const AcGePoint3d&) override {}
    void object(const ACHAR*, const AcDbObjectId&) override {}
    void beginList(const ACHAR*) override {}
    void endList() override {}
    void beginGroup(const ACHAR*) override {}
    void endGroup() override {}
    std::wstring words() const { return L"lista " + std::to_wstring(m_sum); }

private:
    void take(std::wstring_view name, std::wstring_view value) {
        for (const std::wstring_view part : {name, value})
            for (const wchar_t c : part) m_sum = (m_sum ^ static_cast<std::uint64_t>(c)) * kPrime;
    }
    static constexpr std::uint64_t kPrime = 1099511628211u;
    std::uint64_t m_sum = 14695981039346656037u;
};

std::wstring contentOfList(const CommandContext& context, const protocol::DrawingReport& report) {
    Digest digest;
    report.describePrinted(context.database(), digest);
    return digest.words();
}

/// The lines, texts, ... that show it.
Ids listParts(const Tab& sheet) {
    Ids parts = contentOf(sheet.block);
    std::erase_if(parts, [title = titleOf(sheet.block)](const AcDbObjectId& id) {
        const AcDbObjectPointer<AcDbEntity> part(id, AcDb::kForRead);
        return id == title || part.openStatus() != Acad::eOk || !isListPart(*part.object());
    });
    return parts;
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
    const auto* const report = drawingReport();
    if (report == nullptr) return;
    const AcDbObjectId titleId = titleOf(sheet.block);
    const Ids standing = listParts(sheet);
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
        markPart(titleId, contentOfList(context, *report));
    else
        forgetPart(titleId);
}

Box2d listArea(const Tab& sheet) {
    Box2d area;
    for (const AcDbObjectId& id : listParts(sheet)) {
        const AcDbObjectPointer<AcDbEntity> part(id, AcDb::kForRead);
        area.add(entityBox(*part.object()));
    }
    return area;
}

void tellStaleLists(const CommandContext& context, const std::vector<Tab>& sheets) {
    const auto* const report = drawingReport();
    if (report == nullptr) return;
    const std::wstring now = contentOfList(context, *report);
    for (const Tab& sheet : sheets) {
        const AcDbObjectPointer<AcDbEntity> title(titleOf(sheet.block), AcDb::kForRead);
        if (title.openStatus() != Acad::eOk) continue;
        const ListOwner kept(title->xData(kListMark));
        if (kept == nullptr || kept->rbnext == nullptr) continue;
        const std::wstring was = kept->rbnext->resval.rstring;
        // Sheets of before say nothing.
        if (was == kSheetLayer || was == now || listParts(sheet).empty()) continue;
        say(context, L"A lista de material da folha " + sheet.name +
                         L" não é mais a do desenho; FOLHA Atualizar a renova.");
    }
}

}  // namespace prancheta::commands
