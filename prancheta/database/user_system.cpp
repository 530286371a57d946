// SPDX-License-Identifier: MIT
// The user's coordinate system.
#include "prancheta/database/user_system.h"

#include <cmath>

#include "prancheta/database/database_core.h"

namespace prancheta {
namespace {

constexpr double kUnitTolerance = 1e-6;  // files have axes rounded to six digits and more

bool near(const AcGePoint3d& p, double x, double y) {
    return std::abs(p.x - x) < kUnitTolerance && std::abs(p.y - y) < kUnitTolerance &&
           std::abs(p.z) < kUnitTolerance;
}

}  // namespace

bool holdsPlaneSystem(const SystemVariables& variables) {
    const AcGePoint3d x = variables.point(L"UCSXDIR");
    return std::abs(std::hypot(x.x, x.y) - 1.0) < kUnitTolerance &&
           std::abs(x.z) < kUnitTolerance && near(variables.point(L"UCSYDIR"), -x.y, x.x);
}

AcGeMatrix3d userSystemOf(const SystemVariables& variables) {
    AcGeMatrix3d toWorld;
    if (!holdsPlaneSystem(variables)) return toWorld;
    const AcGePoint3d origin = variables.point(L"UCSORG");
    const AcGePoint3d x = variables.point(L"UCSXDIR");
    const double length = std::hypot(x.x, x.y);
    toWorld.setCoordSystem({origin.x, origin.y, 0.0}, {x.x / length, x.y / length, 0.0},
                           {-x.y / length, x.x / length, 0.0}, AcGeVector3d::kZAxis);
    return toWorld;
}

AcGeMatrix3d currentUserSystem(DatabaseCore& core) {
    if (core.currentSpaceId() != core.modelSpaceId()) return {};
    return userSystemOf(core.variables());
}

void keepUserSystem(SystemVariables& variables, const AcGeMatrix3d& toWorld) {
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    toWorld.getCoordSystem(origin, x, y, z);
    variables.force(L"UCSNAME", std::wstring());
    variables.force(L"UCSORG", origin);
    variables.force(L"UCSXDIR", AcGePoint3d::kOrigin + x);
    variables.force(L"UCSYDIR", AcGePoint3d::kOrigin + y);
}

double turnOf(const AcGeMatrix3d& toWorld) {
    return std::atan2(toWorld.entry[1][0], toWorld.entry[0][0]);
}

}  // namespace prancheta
