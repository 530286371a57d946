// SPDX-License-Identifier: MIT
// Sheets with a title block.
#include "prancheta/editor/commands/sheets.h"

#include <algorithm>

#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/database/object_access.h"
#include "prancheta/database/value_list.h"
#include "prancheta/editor/commands/blocks.h"
#include "prancheta/editor/commands/sheet_cells.h"
#include "prancheta/editor/commands/sheet_formats.h"
#include "prancheta/editor/commands/sheet_values.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/plotter.h"
#include "prancheta/entities/insert_parts.h"
#include "prancheta/entities/viewports.h"

namespace prancheta::commands {

namespace {

constexpr const wchar_t* kBlocks = L"FOLHA_";
/// Application that marks the texts in the fields' places.
constexpr const wchar_t* kMark = L"PRANCHETA_FOLHA";
constexpr double kRevisions = 4.0;  ///< rows kept free where they stand above the title block

std::wstring blockNameOf(const std::wstring& file) { return kBlocks + file; }

/// "FOLHA_..." of an insertion; empty for other entities.
std::wstring sheetBlockShown(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbBlockReference> insertion(id, AcDb::kForRead);
    if (insertion.openStatus() != Acad::eOk) return {};
    const std::wstring name = ObjectAccess::recordName(insertion->blockTableRecord());
    return equalNoCase(name.substr(0, std::wstring_view(kBlocks).size()), kBlocks) ? name : L"";
}

bool isFieldText(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbText> text(id, AcDb::kForRead);
    return text.openStatus() == Acad::eOk && ListOwner(text->xData(kMark)) != nullptr;
}

/// A text in the place of a field; false when it does not fit there.
bool addFieldText(AcDbBlockTableRecord& space, const AcDbAttribute& field, const SheetCells& cells,
                  AcDbObjectId layer) {
    std::unique_ptr<AcDbText> text = textLike(field, field.textStringConst());
    const bool fits = cells.fit(*text);
    (void)text->setLayer(layer);  // neither can refuse: layer and application are there
    ListBuilder mark;
    mark.add(newTextItem(AcDb::kDxfRegAppName, kMark));
    mark.add(newTextItem(AcDb::kDxfXdAsciiString, field.tagConst()));
    (void)text->setXData(ListOwner(mark.release()).get());
    AcDbObjectId id;
    if (space.appendAcDbEntity(id, text.get()) == Acad::eOk) (void)text.release()->close();
    return fits;
}

void writeTexts(const CommandContext& context, AcDbObjectId space) {
    DatabaseCore& core = context.database().core();
    (void)core.ensureRegApp(kMark);
    const AcDbObjectId layer = core.ensureLayer(kSheetLayer);
    Ids former = contentOf(space);
    Ids insertions = former;
    std::erase_if(former, [](AcDbObjectId id) { return !isFieldText(id); });
    std::erase_if(insertions, [](AcDbObjectId id) { return sheetBlockShown(id).empty(); });
    (void)eraseAll(context, former);
    const AcDbObjectPointer<AcDbBlockTableRecord> record(space, AcDb::kForWrite);
    if (record.openStatus() != Acad::eOk) return;
    std::wstring tooLong;
    for (const AcDbObjectId& id : insertions) {
        const AcDbObjectPointer<AcDbBlockReference> insertion(id, AcDb::kForRead);
        const SheetCells cells(*insertion.object());
        for (const AcDbAttribute* const field : attributesOf(*insertion.object()))
            if (*field->textStringConst() != 0 && !equalNoCase(field->tagConst(), kListField) &&
                !addFieldText(*record.object(), *field, cells, layer))
                tooLong += (tooLong.empty() ? L"" : L", ") + std::wstring(field->tagConst());
    }
    if (!tooLong.empty())
        say(context, L"Folha " + tabOf(context.database(), space).name +
                         L": o valor não cabe no campo, mesmo estreitado: " + tooLong + L".");
}

}  // namespace

AcDbObjectId sheetBlock(const CommandContext& context, const std::wstring& file) {
    const std::wstring name = blockNameOf(file);
    if (const AcDbObjectId known = blockNamed(context, name); !known.isNull()) return known;
    const std::filesystem::path path = sheetFolder() / (toUtf8(file) + ".dxf");
    const Result<std::unique_ptr<AcDbDatabase>> loaded =
        readDrawing(context.editor(), path, nullptr);
    if (!loaded) {
        context.editor().complain(toWide(loaded.error().message()));
        return {};
    }
    const AcDbObjectId block = emptyBlock(context, name, AcGePoint3d::kOrigin);
    if (block.isNull()) return {};
    std::size_t left = 0;
    (void)cloneFrom(context, (*loaded)->core().modelSpace(), block, left);
    sayLeft(context, left);
    if (!attributeDefinitions(block).empty()) return block;
    context.editor().complain(toWide(path.string()) +
                              L": o arquivo não tem atributos (DEFATRIB) para os campos.");
    return {};
}

std::unique_ptr<AcDbBlockReference> fieldsAt(AcDbObjectId block, const AcGePoint3d& at) {
    auto made = std::make_unique<AcDbBlockReference>(at, block);
    appendOffered(*made);
    for (AcDbAttribute* const field : attributesForChange(*made))
        (void)field->setModes(field->modes() | AcDbAttributeText::kInvisible);  // a known mode
    return made;
}

AcDbObjectId addToSheet(const CommandContext& context, std::unique_ptr<AcDbEntity> entity) {
    const AcDbObjectId layer = context.database().core().ensureLayer(kSheetLayer);
    const AcDb::LineWeight weight = entity->lineWeight();
    const AcDbObjectId id = addEntity(context, std::move(entity));
    const AcDbObjectPointer<AcDbEntity> added(id, AcDb::kForWrite);
    if (added.openStatus() != Acad::eOk) return {};
    (void)added->setLayer(layer);  // open for write
    (void)added->setColorIndex(256);
    (void)added->setLineWeight(weight);
    return id;
}

AcDbObjectId titleOf(AcDbObjectId space) {
    const std::wstring row = blockNameOf(kRevisionFile);
    for (const AcDbObjectId& id : contentOf(space))
        if (const std::wstring name = sheetBlockShown(id); !name.empty() && !equalNoCase(name, row))
            return id;
    return {};
}

Ids revisionsOf(AcDbObjectId space) {
    Ids rows = contentOf(space);
    std::erase_if(rows, [row = blockNameOf(kRevisionFile)](AcDbObjectId id) {
        return !equalNoCase(sheetBlockShown(id), row);
    });
    return rows;
}

AcDbObjectId mainViewport(AcDbObjectId space) {
    const std::vector<AcDbObjectId> all = viewportsOf(space);
    return all.empty() ? AcDbObjectId() : all.front();
}

Box2d entityBox(const AcDbEntity& entity) {
    AcDbExtents extents;
    if (entity.getGeomExtents(extents) != Acad::eOk) return {};
    return {extents.minPoint().x, extents.minPoint().y, extents.maxPoint().x, extents.maxPoint().y};
}

double topOfTitle(AcDbObjectId space) {
    const AcDbObjectPointer<AcDbEntity> title(titleOf(space), AcDb::kForRead);
    const Box2d covered = entityBox(*title.object());
    double top = covered.top;
    for (const AcDbObjectId& id : revisionsOf(space)) {
        const AcDbObjectPointer<AcDbEntity> row(id, AcDb::kForRead);
        const Box2d box = entityBox(*row.object());
        // They stand on it or beside it.
        if (0.5 * (box.left + box.right) < covered.left) continue;
        top = std::max({top, covered.top + kRevisions * box.height(), box.top});
    }
    return top;
}

std::wstring fieldOf(const AcDbBlockReference& title, std::wstring_view tag) {
    for (const AcDbAttribute* const field : attributesOf(title))
        if (equalNoCase(field->tagConst(), tag)) return field->textStringConst();
    return {};
}

void setField(AcDbBlockReference& title, std::wstring_view tag, const std::wstring& value) {
    for (AcDbAttribute* const field : attributesForChange(title))
        if (equalNoCase(field->tagConst(), tag)) (void)field->setTextString(value.c_str());
}

std::vector<Tab> titledSheets(const AcDbDatabase& database) {
    std::vector<Tab> sheets = tabsOf(database);
    sheets.erase(sheets.begin());  // the model
    std::erase_if(sheets, [](const Tab& tab) { return titleOf(tab.block).isNull(); });
    return sheets;
}

std::size_t refreshSheets(const CommandContext& context) {
    const std::vector<Tab> sheets = titledSheets(context.database());
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        {
            const AcDbObjectPointer<AcDbBlockReference> title(titleOf(sheets[i].block),
                                                              AcDb::kForWrite);
            if (title.openStatus() != Acad::eOk) continue;
            for (const SheetValue& each : filledValues(context, sheets[i], {i + 1, sheets.size()}))
                setField(*title.object(), each.tag, each.value);
        }
        writeTexts(context, sheets[i].block);
    }
    return sheets.size();
}

void refreshDate(const CommandContext& context, AcDbObjectId space) {
    {
        const AcDbObjectPointer<AcDbBlockReference> title(titleOf(space), AcDb::kForWrite);
        if (title.openStatus() != Acad::eOk) return;
        const std::wstring former = fieldOf(*title.object(), L"DATA");
        if (former.empty() || former == sheetDate()) return;
        setField(*title.object(), L"DATA", sheetDate());
    }
    writeTexts(context, space);
}

}  // namespace prancheta::commands
