// SPDX-License-Identifier: MIT
// A drawing as an image, for other programs.
#pragma once

#include <QImage>

#include "dbapserv.h"

namespace prancheta {

/// What the drawing's current space shows, on white, its longer side of so many pixels. Null when
/// it shows nothing.
QImage imageOf(AcDbDatabase& drawing, int longest);

}  // namespace prancheta
