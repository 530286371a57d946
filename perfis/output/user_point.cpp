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

AcGePoint3d between(const AcGePoint3d& point, short fromCode, short toCode) {
    const resbuf from = coordinateSystem(fromCode);
    const resbuf to = coordinateSystem(toCode);
    AcGePoint3d result = point;
    (void)acedTrans(asDblArray(point), &from, &to, 0, asDblArray(result));
    return result;
}

}  // namespace

AcGePoint3d worldToUser(const AcGePoint3d& point) { return between(point, 0, 1); }

AcGePoint3d userToWorld(const AcGePoint3d& point) { return between(point, 1, 0); }

}  // namespace perfis
