// SPDX-License-Identifier: MIT
// Points between the world and the user's coordinate system.
#include "perfis/output/user_point.h"

#include "acedads.h"
#include "geassign.h"

namespace perfis {
namespace {

resbuf coordinateSystem(short code) {
    resbuf system{};
    system.restype = RTSHORT;
    system.resval.rint = code;
    return system;
}

}  // namespace

AcGePoint3d worldToUser(const AcGePoint3d& point) {
    const resbuf world = coordinateSystem(0);
    const resbuf user = coordinateSystem(1);
    AcGePoint3d result = point;
    (void)acedTrans(asDblArray(point), &world, &user, 0, asDblArray(result));
    return result;
}

}  // namespace perfis
