// SPDX-License-Identifier: MIT
// FOLHA Nova: a layout with frame, fold marks, title block and a viewport at a scale.
#include <algorithm>
#include <cmath>

#include "dbpl.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/commands/blocks.h"
#include "prancheta/editor/commands/sheet_command.h"
#include "prancheta/editor/commands/sheet_formats.h"
#include "prancheta/editor/commands/sheet_list.h"
#include "prancheta/editor/commands/sheets.h"
#include "prancheta/editor/commands/tab_questions.h"
#include "prancheta/editor/commands/viewports.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/paper_scale.h"
#include "prancheta/entities/viewports.h"

namespace prancheta::commands {

namespace {

constexpr const wchar_t* kUsualFormat = L"A1";
constexpr const wchar_t* kFirstTab = L"Layout1";
constexpr double kFoldMark = 5.0;  ///< mm, or the margin where that is smaller
/// Filled in as on the last sheet: what a whole drawing has in common.
constexpr const wchar_t* kCommon[] = {L"OBRA", L"CLIENTE", L"RESPONSAVEL", L"CREA"};

struct NewSheet {
    SheetFormat format;
    bool upright = false;
    double scale = 1.0;  ///< drawing units per mm
    std::wstring name;

    Box2d paper() const {
        return {0.0, 0.0, upright ? format.height : format.width,
                upright ? format.width : format.height};
    }
    Box2d frame() const {
        const Box2d sheet = paper();
        return {format.binding, format.margin, sheet.right - format.margin,
                sheet.top - format.margin};
    }
};

/// False after Esc.
Task<bool> askFormat(CommandContext context, const std::vector<SheetFormat>* formats,
                     NewSheet* sheet) {
    std::wstring names;
    const SheetFormat* usual = &formats->front();
    for (const SheetFormat& each : *formats) {
        names += (names.empty() ? L"" : L", ") + each.name;
        if (equalNoCase(each.name, kUsualFormat)) usual = &each;
    }
    for (;;) {
        const InputValue answer = co_await context.ask(
            Prompt(InputKind::Text, L"\nFormato <" + usual->name + L">: ").wholeLine());
        if (answer.status == RTCAN) co_return false;
        std::wstring wanted(trim(answer.text));
        if (wanted.empty()) wanted = usual->name;
        for (const SheetFormat& each : *formats)
            if (equalNoCase(each.name, wanted)) {
                sheet->format = each;
                co_return true;
            }
        std::wstring refusal = L"Não há o formato " + wanted;
        refusal += L". Há " + names + L".";
        context.editor().complain(refusal, Complaint::Refused);
    }
}

/// "Folha1" or the next free one.
std::wstring freeSheetName(const AcDbDatabase& database) {
    for (int n = 1;; ++n) {
        std::wstring name = L"Folha" + std::to_wstring(n);
        if (tabNamed(database, name).block.isNull()) return name;
    }
}

/// An only sheet on which nothing was ever put.
bool isUntouched(const std::vector<Tab>& tabs) {
    if (tabs.size() != 2 || !equalNoCase(tabs[1].name, kFirstTab)) return false;
    const Ids content = contentOf(tabs[1].block);
    return std::all_of(content.begin(), content.end(), isSheetsOwn);
}

/// The layout, of the size of the paper; an untouched first one becomes it.
Result<Tab> makeTab(const CommandContext& context, const NewSheet& sheet) {
    AcDbDatabase& database = context.database();
    const std::vector<Tab> tabs = tabsOf(database);
    Result<Tab> tab = tabs.back();
    if (!isUntouched(tabs))
        tab = addTab(database, sheet.name);
    else if (const Result<void> named = renameTab(database, tabs.back(), sheet.name); !named)
        return named.error();
    if (!tab) return tab;
    const Box2d paper = sheet.paper();
    const Result<void> sized = setSheet(database, tab->block, paper.width(), paper.height());
    if (!sized) return sized.error();
    return tabOf(database, tab->block);
}

void addMark(const CommandContext& context, AcGePoint3d from, AcGePoint3d to) {
    auto line = std::make_unique<AcDbLine>(from, to);
    (void)line->setLineWeight(AcDb::kLnWt018);
    (void)addToSheet(context, std::move(line));
}

/// Frame, and marks in the margins where the lying sheet is folded.
void drawFrame(const CommandContext& context, const NewSheet& sheet) {
    const Box2d frame = sheet.frame();
    auto outline = std::make_unique<AcDbPolyline>();
    unsigned index = 0;
    for (const AcGePoint2d corner : {AcGePoint2d(frame.left, frame.bottom),
                                     {frame.right, frame.bottom},
                                     {frame.right, frame.top},
                                     {frame.left, frame.top}})
        (void)outline->addVertexAt(index++, corner);
    (void)outline->setClosed(true);
    (void)outline->setLineWeight(
        static_cast<AcDb::LineWeight>(std::lround(sheet.format.frameLine * 100.0)));
    (void)addToSheet(context, std::move(outline));
    if (sheet.upright) return;
    const Box2d paper = sheet.paper();
    const double length = std::min(kFoldMark, sheet.format.margin);
    for (const double fold : sheet.format.foldsAcross) {
        const double x = paper.right - fold;
        addMark(context, {x, 0.0, 0.0}, {x, length, 0.0});
        addMark(context, {x, paper.top, 0.0}, {x, paper.top - length, 0.0});
    }
    for (const double y : sheet.format.foldsUpwards) {
        addMark(context, {0.0, y, 0.0}, {length, y, 0.0});
        addMark(context, {paper.right, y, 0.0}, {paper.right - length, y, 0.0});
    }
}

/// Of the last sheet that has one; null for none.
AcDbObjectId lastTitle(const CommandContext& context) {
    const std::vector<Tab> sheets = titledSheets(context.database());
    return sheets.empty() ? AcDbObjectId() : titleOf(sheets.back().block);
}

struct SheetBlocks {
    AcDbObjectId title;
    AcDbObjectId row;  ///< of the revisions
};

/// Title block in the corner, head of the revisions beside or above it. What is left for the
/// drawing.
Box2d drawTitle(const CommandContext& context, const NewSheet& sheet, const SheetBlocks& blocks) {
    Box2d frame = sheet.frame();
    const auto& [title, row] = blocks;
    auto fields = fieldsAt(title, {frame.right, frame.bottom, 0.0});
    const Box2d covered = entityBox(*fields);
    const double rowWidth = entityBox(*fieldsAt(row, AcGePoint3d::kOrigin)).width();
    const bool beside = covered.left - frame.left >= rowWidth;
    auto head = fieldsAt(row, beside ? AcGePoint3d(covered.left, frame.bottom, 0.0)
                                     : AcGePoint3d(frame.right, covered.top, 0.0));
    const AcDbObjectPointer<AcDbBlockReference> last(lastTitle(context), AcDb::kForRead);
    if (last.openStatus() == Acad::eOk)
        for (const wchar_t* const tag : kCommon)
            setField(*fields, tag, fieldOf(*last.object(), tag));
    (void)addToSheet(context, std::move(fields));
    (void)addToSheet(context, std::move(head));
    frame.bottom = topOfTitle(context.editor().spaces().tab());
    return frame;
}

/// The model at the scale in the middle of the viewport, whose frame is not plotted.
void drawViewport(const CommandContext& context, const Box2d& frame, double scale) {
    const AcDbObjectId id = addViewport(context, frame);
    if (id.isNull()) return;
    const AcDbObjectId layer = unplottedLayer(context);
    changeViewports(context, {id}, [&](AcDbViewport& viewport) {
        (void)viewport.setLayer(layer);  // it is open for write, and the scale above 0
        (void)viewport.setCustomScale(1.0 / scale);
    });
}

/// What is in its middle stays there.
void setFrame(const CommandContext& context, AcDbObjectId id, const Box2d& frame, double scale) {
    const AcGePoint3d middle((frame.left + frame.right) / 2.0, (frame.bottom + frame.top) / 2.0,
                             0.0);
    changeViewports(context, {id}, [&](AcDbViewport& viewport) {
        (void)viewport.setCenterPoint(middle);  // open for write, and sizes above 0
        (void)viewport.setWidth(frame.width());
        (void)viewport.setHeight(frame.height());
        (void)viewport.setCustomScale(1.0 / scale);
    });
}

/// What a list in the lower right corner leaves of an area: what lies above it, or to its left.
Box2d clearOf(const Box2d& area, const Box2d& list) {
    if (list.empty()) return area;
    Box2d above = area;
    Box2d beside = area;
    above.bottom = std::max(area.bottom, list.top);
    beside.right = std::min(area.right, list.left);
    const Box2d& larger =
        above.width() * above.height() > beside.width() * beside.height() ? above : beside;
    return larger.width() > 0.0 && larger.height() > 0.0 ? larger : area;
}

/// After the questions. What can fail comes before the tab is shown.
CommandEnd draw(const CommandContext& context, const NewSheet& sheet) {
    SheetBlocks blocks;
    blocks.title = sheetBlock(context, sheet.format.titleBlock);
    if (blocks.title.isNull()) return CommandEnd::Failed;
    blocks.row = sheetBlock(context, kRevisionFile);
    if (blocks.row.isNull()) return CommandEnd::Failed;
    const Result<Tab> tab = makeTab(context, sheet);
    if (!tab) {
        context.editor().complain(toWide(tab.error().message()));
        return CommandEnd::Failed;
    }
    context.editor().spaces().show(*tab);
    const Box2d left = drawTitle(context, sheet, blocks);
    drawFrame(context, sheet);
    drawViewport(context, left, sheet.scale);
    (void)refreshSheets(context);
    refreshList(context, *tab);
    const Box2d free = clearOf(left, listArea(*tab));
    setFrame(context, mainViewport(tab->block), free, sheet.scale);
    tellWhetherFits(context, free, sheet.scale);
    context.editor().spaces().tabsChanged();
    say(context, L"Folha " + sheet.name + L": " + sheet.format.name + L", " +
                     paperScaleText(sheet.scale) + L".");
    return CommandEnd::Done;
}

}  // namespace

CommandTask newSheet(CommandContext context) {
    const Result<std::vector<SheetFormat>> formats = sheetFormats();
    if (!formats) {
        context.editor().complain(toWide(formats.error().message()));
        co_return CommandEnd::Failed;
    }
    NewSheet sheet;
    const bool chosen = co_await askFormat(context, &*formats, &sheet);
    if (!chosen) co_return CommandEnd::Cancelled;
    const double present = drawingScale(context.database());
    const InputValue scale =
        co_await askSheetScale(context, present != 1.0 ? present : kUsualScale);
    if (scale.status == RTCAN) co_return CommandEnd::Cancelled;
    const InputValue lies = co_await askOrientation(context);
    if (lies.status == RTCAN) co_return CommandEnd::Cancelled;
    sheet.scale = scale.number;
    sheet.upright = isWord(lies, L"Portrait");
    sheet.name = co_await askTabName(context, L"\nNome", freeSheetName(context.database()));
    if (sheet.name.empty()) co_return CommandEnd::Cancelled;
    co_return draw(context, sheet);
}

}  // namespace prancheta::commands
