// SPDX-License-Identifier: MIT
// Free functions of the entity library: appending, layers, point input, numbers as text.
#pragma once

#include "dbmain.h"

/// Appends the entity to the current space of the working drawing. RTNORM: the drawing owns it, and
/// it stays open for write until close(). RTERROR: the caller still owns it.
int append(AcDbEntity* entity, AcDbObjectId& id);

/// Layer name that the user has configured for a standard name ("PERFIL", "vista-chapa", "COTA",
/// "MARCA") in Perfis/camadas.ini; the name itself when there is no entry. The layer is made in the
/// working drawing when it is missing. The text stays valid until the module is unloaded.
wchar_t* ZpLayerToUsr(const wchar_t* name);

/// Asks for a point; world coordinates. RTNORM, RTCAN, RTNONE as the host's input.
int getWCSpoint(AcGePoint3d& point, const wchar_t* message);
/// The same with a rubber band from `base` (three world coordinates).
int getWCSpointWithParam(AcGePoint3d& point, const wchar_t* message, double* base);

/// DIMSCALE of the drawing, 1 when it is 0.
double GetScale();

/// At most six decimals, no trailing zeros, decimal point. The text stays valid for the next seven
/// calls.
wchar_t* FormatInString(double value);

/// Degrees to radians.
double sex2rad(double degrees);
