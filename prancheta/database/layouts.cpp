// SPDX-License-Identifier: MIT
// The tabs of a drawing.
#include "prancheta/database/layouts.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"

namespace prancheta {
namespace {

constexpr const wchar_t* kLayouts = L"ACAD_LAYOUT";
constexpr const wchar_t* kModel = L"Model";
constexpr const wchar_t* kUsual = L"Layout";
constexpr const wchar_t* kUsualMedia = L"ISO_A4_(297.00_x_210.00_MM)";

const AcDbDictionary* dictionaryAt(AcDbObjectId id) {
    const AcDbStub* const stub = id;
    return stub != nullptr && !stub->erased ? AcDbDictionary::cast(stub->object) : nullptr;
}

/// The entry of the root dictionary; null when there is none.
AcDbObjectId layoutsEntry(const AcDbDatabase& database) {
    AcDbObjectId id;
    const AcDbDictionary* const root = dictionaryAt(database.namedObjectsDictionaryId());
    if (root != nullptr) (void)root->getAt(kLayouts, id);
    return id;
}

const AcDbLayout* layoutAt(AcDbObjectId id) {
    const AcDbStub* const stub = id;
    return stub != nullptr && !stub->erased ? AcDbLayout::cast(stub->object) : nullptr;
}

std::vector<const AcDbLayout*> layoutsOf(const AcDbDatabase& database) {
    std::vector<const AcDbLayout*> all;
    const AcDbDictionary* const dictionary = dictionaryAt(layoutsEntry(database));
    if (dictionary == nullptr) return all;
    for (const auto& [key, id] : ObjectAccess::entries(*dictionary)) {
        const AcDbLayout* const layout = layoutAt(id);
        if (layout == nullptr || layout->blockTableRecordId().isErased()) continue;
        if (std::find(all.begin(), all.end(), layout) == all.end()) all.push_back(layout);
    }
    std::stable_sort(all.begin(), all.end(), [](const AcDbLayout* a, const AcDbLayout* b) {
        return a->tabOrder() < b->tabOrder();
    });
    return all;
}

/// "297.00", as names of media have it.
std::wstring fixed(double millimetres) {
    wchar_t text[32];
    std::swprintf(text, std::size(text), L"%.2f", millimetres);
    for (wchar_t& c : text)
        if (c == L',') c = L'.';
    return text;
}

/// A layout open for write in the drawing's dictionary, with everything but paper and margins.
AcDbLayout* addLayout(AcDbDatabase& database, const Tab& tab, int order) {
    const AcDbObjectPointer<AcDbDictionary> dictionary(layoutsEntry(database), AcDb::kForWrite);
    if (dictionary.openStatus() != Acad::eOk) return nullptr;
    auto made = std::make_unique<AcDbLayout>();
    (void)made->setLayoutName(tab.name.c_str());  // a new object takes any name
    (void)made->setTabOrder(order);
    (void)made->setBlockTableRecordId(tab.block);
    (void)made->setPlotPaper(kUsualMedia, 297.0, 210.0);
    // A renamed layout keeps its entry's former key, which must not be taken from it.
    std::wstring key = tab.name;
    while (dictionary->has(key.c_str())) key += L'_';
    AcDbObjectId id;
    if (dictionary->setAt(key.c_str(), made.get(), id) != Acad::eOk) return nullptr;
    return made.release();
}

Error cannotChange() {
    return {
        "as folhas deste desenho não podem ser mudadas: o dicionário ACAD_LAYOUT está danificado "
        "(veja AUDITAR)"};
}

/// The next free name of a block for a sheet.
std::wstring freeBlockName(const AcDbDatabase& database) {
    for (int n = 0;; ++n) {
        const std::wstring name = ACDB_PAPER_SPACE + std::to_wstring(n);
        if (ObjectAccess::lookup(database.blockTableId(), name).isNull()) return name;
    }
}

void nameBlock(AcDbObjectId block, const std::wstring& name) {
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForWrite);
    if (record.openStatus() != Acad::eOk) return;
    record->assertWriteEnabled();
    ObjectAccess::setName(*record.object(), name);
}

/// The original's place in tab order is kept free of gaps: those behind it move on.
void moveTabsBehind(AcDbDatabase& database, int order) {
    for (const AcDbLayout* const each : layoutsOf(database)) {
        if (each->tabOrder() <= order) continue;
        const AcDbObjectPointer<AcDbLayout> layout(each->objectId(), AcDb::kForWrite);
        if (layout.openStatus() == Acad::eOk) (void)layout->setTabOrder(layout->tabOrder() + 1);
    }
}

void copyPaper(const AcDbLayout& from, AcDbLayout& to) {
    double size[2];
    double margins[4];
    from.getPlotPaperSize(size[0], size[1]);
    from.getPlotPaperMargins(margins[0], margins[1], margins[2], margins[3]);
    (void)to.setPlotPaper(from.canonicalMediaName().c_str(), size[0], size[1]);
    (void)to.setPlotPaperMargins(margins[0], margins[1], margins[2], margins[3]);
    (void)to.setPlotRotation(from.plotRotation());
}

/// How the other one is plotted; not what it refers to.
void keepGroups(const AcDbLayout& from, AcDbLayout& to) {
    const ObjectExtra* const extra = ObjectAccess::extra(from);
    if (extra == nullptr) return;
    constexpr int kActiveViewport = 331;
    RawTags& kept = ObjectAccess::makeExtra(to).foreign;
    auto at = std::find_if(extra->foreign.begin(), extra->foreign.end(),
                           [](const RawTag& tag) { return tag.code == 100; });
    for (; at != extra->foreign.end(); ++at)
        if (at->code != kActiveViewport) kept.push_back(*at);
}

/// A tab with an empty block of its own, of the size of another one.
Result<Tab> newTab(AcDbDatabase& database, const Tab& like, const std::wstring& name, int order) {
    Tab tab{name, {}, {}};
    auto record = std::make_unique<AcDbBlockTableRecord>();
    ObjectAccess::setName(*record, freeBlockName(database));
    const AcDbObjectPointer<AcDbBlockTable> table(database.blockTableId(), AcDb::kForWrite);
    if (table.openStatus() != Acad::eOk || table->add(tab.block, record.get()) != Acad::eOk)
        return cannotChange();
    record.release()->close();
    AcDbLayout* const layout = addLayout(database, tab, order);
    if (layout == nullptr) return cannotChange();
    if (const AcDbLayout* const model = layoutAt(like.layout)) {
        copyPaper(*model, *layout);
        keepGroups(*model, *layout);
    }
    tab.layout = layout->objectId();
    layout->close();
    return tab;
}

}  // namespace

std::vector<Tab> tabsOf(const AcDbDatabase& database) {
    const DatabaseCore& core = database.core();
    std::vector<Tab> tabs{{kModel, core.modelSpaceId(), {}}};
    bool hasPaper = false;
    for (const AcDbLayout* const layout : layoutsOf(database)) {
        if (layout->blockTableRecordId() == core.modelSpaceId()) {
            tabs.front().layout = layout->objectId();
            continue;
        }
        hasPaper = hasPaper || layout->blockTableRecordId() == core.paperSpaceId();
        tabs.push_back({layout->layoutName(), layout->blockTableRecordId(), layout->objectId()});
    }
    if (!hasPaper) tabs.push_back({kUsual + std::wstring(L"1"), core.paperSpaceId(), {}});
    return tabs;
}

Tab tabNamed(const AcDbDatabase& database, std::wstring_view name) {
    if (equalNoCase(name, L"Modelo")) name = kModel;
    for (const Tab& tab : tabsOf(database))
        if (equalNoCase(tab.name, name)) return tab;
    return {};
}

Tab tabOf(const AcDbDatabase& database, AcDbObjectId block) {
    for (const Tab& tab : tabsOf(database))
        if (tab.block == block) return tab;
    return {};
}

Box2d sheetOf(const Tab& tab) {
    const AcDbLayout unset;
    const AcDbLayout* const layout = layoutAt(tab.layout);
    return sheetOf(layout != nullptr ? *layout : unset);
}

Box2d sheetOf(const AcDbLayout& layout) {
    double size[2];
    double margins[4];
    layout.getPlotPaperSize(size[0], size[1]);
    layout.getPlotPaperMargins(margins[0], margins[1], margins[2], margins[3]);
    // A quarter turn of the drawing brings the next side of the sheet to its left.
    const int turns = layout.plotRotation();
    if (turns % 2 != 0) std::swap(size[0], size[1]);
    const double left = margins[turns];
    const double bottom = margins[(turns + 1) % 4];
    return {-left, -bottom, size[0] - left, size[1] - bottom};
}

std::wstring tabNameRefusal(const AcDbDatabase& database, std::wstring_view name) {
    if (name.empty()) return L"O layout precisa de um nome.";
    constexpr std::size_t kMost = 255;
    if (name.size() > kMost || name.find_first_of(L"<>/\\\":;?*|,=`") != name.npos)
        return L"O nome não pode ter < > / \\ \" : ; ? * | , = nem `, nem mais de 255 letras.";
    if (!tabNamed(database, name).block.isNull())
        return L"Já existe o layout " + std::wstring(name) + L".";
    return {};
}

std::wstring freeTabName(const AcDbDatabase& database) {
    for (int n = 1;; ++n) {
        std::wstring name = kUsual + std::to_wstring(n);
        if (tabNamed(database, name).block.isNull()) return name;
    }
}

Result<void> makeLayouts(AcDbDatabase& database) {
    const AcDbObjectId known = layoutsEntry(database);
    if (!known.isNull() && dictionaryAt(known) == nullptr) return cannotChange();
    if (known.isNull()) {
        const AcDbObjectPointer<AcDbDictionary> root(database.namedObjectsDictionaryId(),
                                                     AcDb::kForWrite);
        auto* const made = new AcDbDictionary;
        AcDbObjectId id;
        if (root.openStatus() != Acad::eOk || root->setAt(kLayouts, made, id) != Acad::eOk) {
            delete made;
            return cannotChange();
        }
        made->close();
    }
    int order = 0;
    for (const Tab& tab : tabsOf(database)) {
        if (tab.layout.isNull()) {
            AcDbLayout* const layout = addLayout(database, tab, order);
            if (layout == nullptr) return cannotChange();
            layout->close();
        }
        ++order;
    }
    return {};
}

Result<Tab> addTab(AcDbDatabase& database, const std::wstring& name) {
    if (const Result<void> made = makeLayouts(database); !made) return made.error();
    const Tab last = tabsOf(database).back();
    Result<Tab> tab = newTab(database, last, name, layoutAt(last.layout)->tabOrder() + 1);
    return tab;
}

Result<Tab> copyTab(AcDbDatabase& database, const Tab& from, const std::wstring& name) {
    if (const Result<void> made = makeLayouts(database); !made) return made.error();
    const Tab original = tabOf(database, from.block);
    const int order = layoutAt(original.layout)->tabOrder();
    moveTabsBehind(database, order);
    Result<Tab> tab = newTab(database, original, name, order + 1);
    if (!tab) return tab;
    AcDbObjectIdArray ids;
    AcDbObjectIdArray copies;
    const AcDbStub* const stub = from.block;
    for (const AcDbObjectId id :
         ObjectAccess::entities(static_cast<const AcDbBlockTableRecord&>(*stub->object)))
        if (!id.isErased()) ids.append(id);
    if (!ids.isEmpty() && database.deepCloneObjects(ids, tab->block, copies) != Acad::eOk)
        return Error{"nem tudo do layout pôde ser copiado"};
    return tab;
}

Result<void> renameTab(AcDbDatabase& database, const Tab& tab, const std::wstring& name) {
    if (const Result<void> made = makeLayouts(database); !made) return made.error();
    const AcDbObjectPointer<AcDbLayout> layout(tabOf(database, tab.block).layout, AcDb::kForWrite);
    if (layout.openStatus() != Acad::eOk) return cannotChange();
    (void)layout->setLayoutName(name.c_str());  // it was looked at before
    return {};
}

Result<void> setSheet(AcDbDatabase& database, AcDbObjectId block, double width, double height) {
    if (const Result<void> made = makeLayouts(database); !made) return made.error();
    const AcDbObjectPointer<AcDbLayout> layout(tabOf(database, block).layout, AcDb::kForWrite);
    if (layout.openStatus() != Acad::eOk) return cannotChange();
    const std::wstring media = L"ISO_(" + fixed(width) + L"_x_" + fixed(height) + L"_MM)";
    if (layout->setPlotPaper(media.c_str(), width, height) != Acad::eOk)
        return Error{"a folha não tem tamanho"};
    (void)layout->setPlotRotation(AcDbLayout::k0degrees);
    (void)layout->setPlotPaperMargins(0.0, 0.0, 0.0, 0.0);
    return {};
}

Result<void> eraseTab(AcDbDatabase& database, const Tab& tab) {
    const std::vector<Tab> tabs = tabsOf(database);
    if (tab.block == database.core().modelSpaceId()) return Error{"O modelo não pode ser apagado."};
    if (tabs.size() <= 2) return Error{"O único layout não pode ser apagado."};
    if (const Result<void> made = makeLayouts(database); !made) return made.error();
    // A drawing always has a sheet of this name: another one gets it.
    if (tab.block == database.core().paperSpaceId()) {
        const auto other = std::find_if(tabs.begin() + 1, tabs.end(),
                                        [&](const Tab& each) { return each.block != tab.block; });
        nameBlock(tab.block, freeBlockName(database));
        nameBlock(other->block, ACDB_PAPER_SPACE);
    }
    const AcDbStub* const stub = tab.block;
    const std::vector<AcDbObjectId> ids =
        ObjectAccess::entities(static_cast<const AcDbBlockTableRecord&>(*stub->object));
    for (const AcDbObjectId id : ids) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        if (entity.openStatus() == Acad::eOk) (void)entity->erase();  // went already otherwise
    }
    const AcDbObjectPointer<AcDbLayout> layout(tabOf(database, tab.block).layout, AcDb::kForWrite);
    if (layout.openStatus() == Acad::eOk) (void)layout->erase();
    const AcDbObjectPointer<AcDbBlockTableRecord> record(tab.block, AcDb::kForWrite);
    if (record.openStatus() == Acad::eOk) (void)record->erase();  // no reserved name any more
    return {};
}

}  // namespace prancheta
