// SPDX-License-Identifier: MIT
// The pictures of the current space's displayed entities.
#include "prancheta/editor/scene.h"

#include "dbsymtb.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/editor/editor.h"

namespace prancheta {

const LayerStates::State& LayerStates::of(AcDbObjectId entity) {
    const AcDbObjectPointer<AcDbEntity> opened(entity, AcDb::kForRead);
    return ofLayer(opened.openStatus() == Acad::eOk ? opened->layerId() : AcDbObjectId::kNull);
}

const LayerStates::State& LayerStates::ofLayer(AcDbObjectId layer) {
    const auto [at, isNew] = m_states.try_emplace(layer.asOldId());
    if (!isNew || layer.isNull()) return at->second;
    const AcDbObjectPointer<AcDbLayerTableRecord> record(layer, AcDb::kForRead);
    if (record.openStatus() == Acad::eOk)
        at->second = {record->isOff(), record->isFrozen(), record->isLocked()};
    return at->second;
}

Scene::Scene(const Editor& editor) {
    LayerStates layers;
    for (const AcDbObjectId& id : spaceOf(editor)) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.openStatus() != Acad::eOk || entity->visibility() != AcDb::kVisible) continue;
        const LayerStates::State& state = layers.ofLayer(entity->layerId());
        if (state.off || state.frozen) continue;
        Item item{id, {}};
        recordPicture(*entity, item.picture);
        m_items.push_back(std::move(item));
    }
}

std::vector<AcDbObjectId> Scene::spaceOf(const Editor& editor) {
    std::vector<AcDbObjectId> ids;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(editor.database().currentSpaceId(),
                                                        AcDb::kForRead);
    if (space.openStatus() != Acad::eOk) return ids;
    AcDbBlockTableRecordIterator* iterator = nullptr;
    if (space->newIterator(iterator) != Acad::eOk) return ids;
    for (; !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        if (iterator->getEntityId(id) == Acad::eOk) ids.push_back(id);
    }
    delete iterator;
    return ids;
}

}  // namespace prancheta
