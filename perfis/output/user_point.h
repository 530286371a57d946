// SPDX-License-Identifier: MIT
// Points between the world and the user's coordinate system.
#pragma once

#include "gepnt3d.h"

namespace perfis {

/// World coordinates to those of the user; the point itself where the host refuses.
AcGePoint3d worldToUser(const AcGePoint3d& point);
/// Back again.
AcGePoint3d userToWorld(const AcGePoint3d& point);

}  // namespace perfis
