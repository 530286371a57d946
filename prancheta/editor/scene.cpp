// SPDX-License-Identifier: MIT
// The current space and the states of its layers.
#include "prancheta/editor/scene.h"

#include "dbsymtb.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/viewports.h"

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

std::vector<AcDbObjectId> entitiesOfSpace(const Editor& editor) {
    std::vector<AcDbObjectId> ids;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(editor.database().currentSpaceId(),
                                                        AcDb::kForRead);
    if (space.openStatus() != Acad::eOk) return ids;
    AcDbBlockTableRecordIterator* iterator = nullptr;
    if (space->newIterator(iterator) != Acad::eOk) return ids;
    for (; !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        if (iterator->getEntityId(id) == Acad::eOk && !isSheetsOwn(id)) ids.push_back(id);
    }
    delete iterator;
    return ids;
}

}  // namespace prancheta
