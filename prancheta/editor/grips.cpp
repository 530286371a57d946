// SPDX-License-Identifier: MIT
// Grips of entities.
#include "prancheta/editor/grips.h"

namespace prancheta {

void appendGrips(AcDbObjectId entity, std::vector<Grip>& out) {
    const AcDbObjectPointer<AcDbEntity> opened(entity, AcDb::kForRead);
    if (opened.openStatus() != Acad::eOk) return;
    AcGePoint3dArray points;
    AcDbIntArray modes;
    AcDbIntArray ids;
    if (opened->getGripPoints(points, modes, ids) != Acad::eOk) return;
    for (int i = 0; i < points.length(); ++i) out.push_back({entity, i, points[i]});
}

}  // namespace prancheta
