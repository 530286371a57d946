// SPDX-License-Identifier: MIT
// Array of points.
#pragma once

#include "acarray.h"
#include "gepnt3d.h"

using AcGePoint3dArray = AcArray<AcGePoint3d>;
