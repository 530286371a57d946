// SPDX-License-Identifier: MIT
// Run-time classes of the database.
#include "prancheta/database/register.h"

#include "dbdict.h"
#include "dblayout.h"
#include "dbsymtb.h"
#include "dbxrecrd.h"
#include "prancheta/database/draw_order.h"
#include "rxdict.h"

namespace prancheta {

// Parents before children.
void registerDatabaseClasses() {
    static void (*const kInitializers[])() = {
        AcRxObject::rxInit,
        AcRxClass::rxInit,
        AcRxDictionary::rxInit,
        AcDbDatabase::rxInit,
        AcDbDatabaseReactor::rxInit,
        AcDbObject::rxInit,
        AcDbEntity::rxInit,
        AcDbDictionary::rxInit,
        AcDbXrecord::rxInit,
        DrawOrderTable::rxInit,
        AcDbLayout::rxInit,
        AcDbSymbolTable::rxInit,
        AcDbBlockTable::rxInit,
        AcDbLayerTable::rxInit,
        AcDbLinetypeTable::rxInit,
        AcDbTextStyleTable::rxInit,
        AcDbDimStyleTable::rxInit,
        AcDbRegAppTable::rxInit,
        AcDbSymbolTableRecord::rxInit,
        AcDbBlockTableRecord::rxInit,
        AcDbLayerTableRecord::rxInit,
        AcDbLinetypeTableRecord::rxInit,
        AcDbTextStyleTableRecord::rxInit,
        AcDbDimStyleTableRecord::rxInit,
        AcDbRegAppTableRecord::rxInit,
    };
    if (AcDbRegAppTableRecord::desc() != nullptr) return;
    for (void (*init)() : kInitializers) init();
}

}  // namespace prancheta
