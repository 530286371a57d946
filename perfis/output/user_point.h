// SPDX-License-Identifier: MIT
// Points between the world and the user's coordinate system.
#pragma once

#include "gepnt3d.h"

namespace perfis {

AcGePoint3d worldToUser(const AcGePoint3d& point);

}  // namespace perfis
