// SPDX-License-Identifier: MIT
// Command-line output, plane geometry and typed lists.
#pragma once

#include "adscodes.h"
#include "adsdef.h"

/// Writes to the command history. `%s` and `%ls` both take a wide text. Returns RTNORM.
int acutPrintf(const ACHAR* format, ...);

/// Distance of two points in three dimensions.
ads_real acutDistance(const ads_point a, const ads_point b);

/// Angle of the direction from a to b, radians in [0, 2 pi), counter-clockwise from the X axis of
/// the current user system; z is ignored.
ads_real acutAngle(const ads_point a, const ads_point b);

/// result = p + distance * (cos angle, sin angle); z is kept. `p` and `result` may be the same.
void acutPolar(const ads_point p, ads_real angle, ads_real distance, ads_point result);

/// Typed list from pairs (type, value) ended by RTNONE or 0; null on a wrong type. Free with
/// acutRelRb.
resbuf* acutBuildList(int rtype, ...);

/// One empty element of the given type.
resbuf* acutNewRb(int type);

/// Frees a list with its texts. Returns RTNORM.
int acutRelRb(resbuf* list);
