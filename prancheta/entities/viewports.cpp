// SPDX-License-Identifier: MIT
// Viewports as they stand.
#include "prancheta/entities/viewports.h"

#include "prancheta/database/object_access.h"

namespace prancheta {

const AcDbViewport* viewportOf(AcDbObjectId id) {
    const AcDbStub* const stub = id;
    return stub != nullptr && !stub->erased ? AcDbViewport::cast(stub->object) : nullptr;
}

std::vector<AcDbObjectId> viewportsOf(AcDbObjectId block) {
    std::vector<AcDbObjectId> ids;
    const AcDbStub* const stub = block;
    if (stub == nullptr || stub->object == nullptr) return ids;
    for (const AcDbObjectId& id :
         ObjectAccess::entities(static_cast<const AcDbBlockTableRecord&>(*stub->object)))
        if (viewportOf(id) != nullptr && !isSheetsOwn(id)) ids.push_back(id);
    return ids;
}

bool isSheetsOwn(AcDbObjectId entity) {
    const AcDbViewport* const viewport = viewportOf(entity);
    return viewport != nullptr && viewport->number() == 1;
}

Box2d frameOf(const AcDbViewport& viewport) {
    const AcGePoint3d& middle = viewport.centerPoint();
    const double x = viewport.width() / 2.0;
    const double y = viewport.height() / 2.0;
    return {middle.x - x, middle.y - y, middle.x + x, middle.y + y};
}

}  // namespace prancheta
