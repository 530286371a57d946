// SPDX-License-Identifier: MIT
// Reads the bar data that a piece carries.
#pragma once

#include "dbid.h"
#include "zp/gbarra/zpgbarra.h"

/// RTNORM, or RTERROR when the object cannot be read or carries no bar data; `barra` is left as it
/// was then.
int GetXDataEntStObject(AcDbObjectId id, tagZP_GBARRA* barra);
