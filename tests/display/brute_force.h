// SPDX-License-Identifier: MIT
// What a drawing shows, found by looking at every entity.
#pragma once

#include <map>

#include "dbsymtb.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/display/display_list.h"

namespace displaytest {

struct Shown {
    prancheta::Box2d box;
    std::size_t order = 0;
    prancheta::Picture picture;
};
using Drawing = std::map<AcDbObjectId, Shown>;

/// Displayed entities that draw something.
inline Drawing lookAt(AcDbDatabase& database) {
    Drawing drawing;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(database.currentSpaceId(), AcDb::kForRead);
    AcDbBlockTableRecordIterator* iterator = nullptr;
    (void)space->newIterator(iterator);
    for (std::size_t order = 0; !iterator->done(); iterator->step(), ++order) {
        AcDbObjectId id;
        (void)iterator->getEntityId(id);
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.openStatus() != Acad::eOk || entity->visibility() == AcDb::kInvisible) continue;
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(entity->layerId(), AcDb::kForRead);
        if (layer->isOff() || layer->isFrozen()) continue;
        Shown shown;
        shown.order = order;
        prancheta::recordPicture(*entity.object(), shown.picture);
        shown.box = prancheta::boxOf(shown.picture.extents());
        if (!shown.box.empty()) drawing[id] = std::move(shown);
    }
    delete iterator;
    return drawing;
}

}  // namespace displaytest
