// SPDX-License-Identifier: MIT
// The user's coordinate system: a turned plane frame of the model, kept in the drawing's variables.
#pragma once

#include "gemat3d.h"

namespace prancheta {

class DatabaseCore;
class SystemVariables;

/// From user to world coordinates, as UCSORG, UCSXDIR and UCSYDIR have it. Z stays the world's: of
/// a system that leans out of the plane, or whose axes are none, it is the identity.
AcGeMatrix3d userSystemOf(const SystemVariables& variables);
/// False when the variables hold one that userSystemOf() cannot give.
bool holdsPlaneSystem(const SystemVariables& variables);
/// Of the current space: sheets are drawn on in their own coordinates.
AcGeMatrix3d currentUserSystem(DatabaseCore& core);
/// Sets the variables; the system has no name then.
void keepUserSystem(SystemVariables& variables, const AcGeMatrix3d& toWorld);
/// How far its X axis is turned from the world's; radians, (-pi, pi].
double turnOf(const AcGeMatrix3d& toWorld);

}  // namespace prancheta
