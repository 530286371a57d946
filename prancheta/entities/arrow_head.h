// SPDX-License-Identifier: MIT
// The closed filled arrow head.
#pragma once

#include "acgi.h"

namespace prancheta {

/// Its tip at `tip`, three times as long as wide, in the plane of `normal`; `towards`, a unit
/// vector, is where it points, `size` its length in drawing units.
void drawArrowHead(const AcGePoint3d& tip, const AcGeVector3d& towards, double size,
                   const AcGeVector3d& normal, AcGiGeometry& to);

}  // namespace prancheta
