// SPDX-License-Identifier: MIT
// Array of object identifiers.
#pragma once

#include "acarray.h"
#include "dbid.h"

using AcDbObjectIdArray = AcArray<AcDbObjectId>;
