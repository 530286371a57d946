// SPDX-License-Identifier: MIT
// The closed filled arrow head.
#include "prancheta/entities/arrow_head.h"

namespace prancheta {

void drawArrowHead(const AcGePoint3d& tip, const AcGeVector3d& towards, double size,
                   const AcGeVector3d& normal, AcGiGeometry& to) {
    const AcGePoint3d tail = tip - towards * size;
    const AcGeVector3d half = normal.crossProduct(towards) * (size / 6.0);
    const AcGePoint3d corners[3] = {tip, tail + half, tail - half};
    to.polygon(3, corners);
}

}  // namespace prancheta
