// SPDX-License-Identifier: MIT
// Orders of drawing: the object SORTENTSTABLE.
#include "prancheta/database/draw_order.h"
#include "prancheta/database/object_access.h"
#include "prancheta/dxf/loader.h"
#include "prancheta/dxf/saver.h"

namespace prancheta::dxf {

/// A null id when it says more than pairs of handles.
bool Loader::takeDrawOrder(ObjectSpan& span, AcDbDictionary& owner, AcDbObjectId& id) {
    TagReader reader(span.text);
    Record record;
    (void)reader.next(record);
    if (!splitRecord(record, 5, m_head, m_fault)) return false;
    DrawOrderTable::Places places;
    AcDbObjectId entity;
    for (const Tag& tag : m_head.body) {
        if (tag.code == 331) {
            if (!entity.isNull()) return true;
            entity = byHandle(tag.value);
        } else if (tag.code == 5 && !entity.isNull()) {
            const AcDbObjectId place = byHandle(tag.value);
            if (!place.isNull()) places.emplace_back(entity, place);
            entity.setNull();
        } else if (tag.code != 100 && tag.code != 330) {
            return true;
        }
    }
    auto made = std::make_unique<DrawOrderTable>();
    (void)made->setPlaces(std::move(places));
    return keepExtra(*made, {}) && addObject(std::move(made), span, owner, id);
}

void Saver::writeDrawOrder(const DrawOrderTable& table) {
    const ObjectExtra* const extra = ObjectAccess::extra(table);
    beginObject("SORTENTSTABLE", table);
    m_out.marker("AcDbSortentsTable");
    m_out.handle(330, m_handles.of(blockOf(table)));
    for (const auto& [entity, place] : table.places()) {
        if (m_handles.of(entity) == 0) continue;
        m_out.handle(331, m_handles.of(entity));
        m_out.handle(5, place.handle().value());
    }
    if (extra != nullptr) m_out.raw(extra->xdata);
}

}  // namespace prancheta::dxf
