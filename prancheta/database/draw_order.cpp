// SPDX-License-Identifier: MIT
// Orders of drawing. The places are handles that are there already: they only change hands, so that
// what is drawn later, with a greater handle, still comes on top.
#include "prancheta/database/draw_order.h"

#include <algorithm>
#include <unordered_set>

#include "prancheta/database/memory_filer.h"
#include "prancheta/database/object_access.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(DrawOrderTable, AcDbObject, 0, 0, 0, SORTENTSTABLE, "")

Acad::ErrorStatus DrawOrderTable::setPlaces(Places places) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_places = std::move(places);
    return Acad::eOk;
}

Acad::ErrorStatus DrawOrderTable::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbObject::dwgOutFields(filer);
    filer->writeUInt32(static_cast<Adesk::UInt32>(m_places.size()));
    for (const auto& [entity, place] : m_places) {
        filer->writeSoftPointerId(entity);
        filer->writeSoftPointerId(place);
    }
    return filer->filerStatus();
}

Acad::ErrorStatus DrawOrderTable::dwgInFields(AcDbDwgFiler* filer) {
    AcDbObject::dwgInFields(filer);
    m_places.clear();
    Adesk::UInt32 count = 0;
    filer->readUInt32(&count);
    for (; count > 0 && filer->filerStatus() == Acad::eOk; --count) {
        AcDbSoftPointerId entity;
        AcDbSoftPointerId place;
        filer->readSoftPointerId(&entity);
        filer->readSoftPointerId(&place);
        if (!entity.isNull() && !place.isNull()) m_places.emplace_back(entity, place);
    }
    return filer->filerStatus();
}

namespace prancheta {

namespace {

using Ids = std::vector<AcDbObjectId>;

const DrawOrderTable* orderTableOf(const AcDbBlockTableRecord& block) {
    const AcDbStub* const stub = block.extensionDictionary();
    const auto* const dictionary = stub != nullptr ? AcDbDictionary::cast(stub->object) : nullptr;
    AcDbObjectId id;
    if (dictionary == nullptr || dictionary->getAt(DrawOrderTable::kKey, id) != Acad::eOk)
        return nullptr;
    return DrawOrderTable::cast(static_cast<AcDbStub*>(id)->object);
}

/// Its table, made when there is none; null when something else stands in its place.
DrawOrderTable* openTable(AcDbObjectId block) {
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForWrite);
    if (record.openStatus() != Acad::eOk) return nullptr;
    if (record->extensionDictionary().isNull() && record->createExtensionDictionary() != Acad::eOk)
        return nullptr;
    const AcDbObjectPointer<AcDbDictionary> dictionary(record->extensionDictionary(),
                                                       AcDb::kForWrite);
    if (dictionary.openStatus() != Acad::eOk) return nullptr;
    AcDbObjectId id;
    if (dictionary->getAt(DrawOrderTable::kKey, id) != Acad::eOk) {
        auto made = std::make_unique<DrawOrderTable>();
        if (dictionary->setAt(DrawOrderTable::kKey, made.get(), id) != Acad::eOk) return nullptr;
        return made.release();
    }
    AcDbObject* object = nullptr;
    if (acdbOpenObject(object, id, AcDb::kForWrite) != Acad::eOk) return nullptr;
    if (auto* const table = DrawOrderTable::cast(object)) return table;
    (void)object->close();
    return nullptr;
}

}  // namespace

AcDbObjectId blockOf(const DrawOrderTable& table) {
    const AcDbStub* const dictionary = table.ownerId();
    return dictionary != nullptr && dictionary->object != nullptr ? dictionary->object->ownerId()
                                                                  : AcDbObjectId();
}

bool hasDrawOrder(const AcDbBlockTableRecord& block) { return orderTableOf(block) != nullptr; }

Ids drawOrder(const AcDbBlockTableRecord& block) {
    Ids order = ObjectAccess::entities(block);
    const DrawOrderTable* const table = orderTableOf(block);
    if (table == nullptr) return order;
    DrawOrderTable::Places places = table->places();
    std::stable_sort(places.begin(), places.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::pair<Adesk::UInt64, AcDbObjectId>> keyed;
    keyed.reserve(order.size());
    for (const AcDbObjectId id : order) {
        const auto lent =
            std::lower_bound(places.begin(), places.end(), id,
                             [](const auto& place, AcDbObjectId of) { return place.first < of; });
        const bool isLent = lent != places.end() && lent->first == id;
        keyed.emplace_back((isLent ? lent->second : id).handle().value(), id);
    }
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::transform(keyed.begin(), keyed.end(), order.begin(),
                   [](const auto& each) { return each.second; });
    return order;
}

Acad::ErrorStatus setDrawOrder(AcDbObjectId block, const Ids& order) {
    Ids byHandle = order;
    std::sort(byHandle.begin(), byHandle.end(),
              [](AcDbObjectId a, AcDbObjectId b) { return a.handle() < b.handle(); });
    DrawOrderTable::Places places;
    for (std::size_t i = 0; i < order.size(); ++i)
        if (order[i] != byHandle[i]) places.emplace_back(order[i], byHandle[i]);
    DrawOrderTable* const table = openTable(block);
    if (table == nullptr) return Acad::eNotApplicable;
    const Acad::ErrorStatus es = table->setPlaces(std::move(places));
    (void)table->close();
    return es;
}

Acad::ErrorStatus moveInDrawOrder(AcDbObjectId block, const Ids& ids, DrawPlace place,
                                  const Ids& others) {
    Ids order;
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForRead);
        if (record.openStatus() != Acad::eOk) return record.openStatus();
        order = drawOrder(*record.object());
    }
    std::unordered_set<AcDbStub*> moving(ids.begin(), ids.end());
    Ids moved;
    Ids all;
    for (const AcDbObjectId id : order) (moving.contains(id) ? moved : all).push_back(id);
    const std::unordered_set<AcDbStub*> named(others.begin(), others.end());
    const auto isNamed = [&](AcDbObjectId id) { return named.contains(id); };
    auto at = place == DrawPlace::Back ? all.begin() : all.end();
    if (place == DrawPlace::Under) at = std::find_if(all.begin(), all.end(), isNamed);
    if (place == DrawPlace::Above) at = std::find_if(all.rbegin(), all.rend(), isNamed).base();
    const bool found = std::any_of(all.begin(), all.end(), isNamed);
    if ((place == DrawPlace::Under || place == DrawPlace::Above) && !found) return Acad::eOk;
    all.insert(at, moved.begin(), moved.end());
    return all == order ? Acad::eOk : setDrawOrder(block, all);
}

}  // namespace prancheta
