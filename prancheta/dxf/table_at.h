// SPDX-License-Identifier: MIT
// The symbol tables of a drawing whose objects nobody else has open.
#pragma once

#include "dbsymtb.h"
#include "prancheta/database/database_core.h"

namespace prancheta::dxf {

/// `id` names a table of the drawing, which is there.
inline AcDbSymbolTable& tableAt(AcDbObjectId id) {
    return static_cast<AcDbSymbolTable&>(*static_cast<AcDbStub*>(id)->object);
}

}  // namespace prancheta::dxf
