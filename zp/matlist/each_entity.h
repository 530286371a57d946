// SPDX-License-Identifier: MIT
// Every entity of a drawing, whichever block or layout it stands in.
#pragma once

#include <memory>

#include "dbsymtb.h"

namespace zp::matlist {

/// Calls visit(id), block after block.
template <class Visit>
void eachEntity(AcDbDatabase& drawing, Visit visit) {
    AcDbBlockTable* table = nullptr;
    if (drawing.getSymbolTable(table, AcDb::kForRead) != Acad::eOk) return;
    AcDbSymbolTableIterator* blocks = nullptr;
    const Acad::ErrorStatus es = table->newIterator(blocks);
    (void)table->close();
    if (es != Acad::eOk) return;
    const std::unique_ptr<AcDbSymbolTableIterator> blocksOwner(blocks);
    for (; !blocks->done(); blocks->step()) {
        AcDbObjectId id;
        if (blocks->getRecordId(id) != Acad::eOk) continue;
        const AcDbObjectPointer<AcDbBlockTableRecord> block(id, AcDb::kForRead);
        AcDbBlockTableRecordIterator* entities = nullptr;
        if (block.object() == nullptr || block->newIterator(entities) != Acad::eOk) continue;
        const std::unique_ptr<AcDbBlockTableRecordIterator> entitiesOwner(entities);
        for (; !entities->done(); entities->step())
            if (entities->getEntityId(id) == Acad::eOk) visit(id);
    }
}

}  // namespace zp::matlist
