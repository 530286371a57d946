// SPDX-License-Identifier: MIT
// Bar data of a piece as extended data.
#pragma once

#include "perfis/entities/zpobject.h"

namespace zp {

/// Writes role, profile, dimensions, length and mass under the application of the bar data; plates
/// carry none. The piece is open for write. Nothing is recorded when they stand there already.
void writeBarra(ZpObject& peca);

/// Enters an application name in the drawing's table when it is missing.
bool registerApplication(AcDbDatabase& drawing, const ACHAR* name);

}  // namespace zp
