// SPDX-License-Identifier: MIT
// Ellipses in files: all in world coordinates.
#include "prancheta/dxf/ellipse_type.h"

#include <cmath>

#include "dbents.h"

namespace prancheta::dxf {
namespace {

using enum Meaning;

constexpr Field kEllipse[] = {marker("AcDbEllipse"), {10, Point, 0}, {11, Point, 1}, {210, Normal},
                              {40, Real, 0},         {41, Real, 1},  {42, Real, 2}};

bool suitsEllipse(const Values& v, const Tags&) {
    const AcGeVector3d major = v.points[1].asVector();
    const double length = major.length();
    return length > 0.0 && v.reals[0] > 0.0 &&
           std::abs(major.dotProduct(v.normal)) <= 1e-6 * length;
}
std::unique_ptr<AcDbEntity> makeEllipse(const Values& v) {
    return std::make_unique<AcDbEllipse>(v.points[0], v.normal, v.points[1].asVector(), v.reals[0],
                                         v.reals[1], v.reals[2]);
}
void takeEllipse(const AcDbEntity& entity, Values& v) {
    const auto& ellipse = static_cast<const AcDbEllipse&>(entity);
    v.points[0] = ellipse.center();
    v.points[1] = AcGePoint3d::kOrigin + ellipse.majorAxis();
    v.normal = ellipse.normal();
    v.reals[0] = ellipse.radiusRatio();
    v.reals[1] = ellipse.startParam();
    v.reals[2] = ellipse.endParam();
}

}  // namespace

EntityType ellipseType() {
    return {"ELLIPSE", &AcDbEllipse::desc, kEllipse, suitsEllipse, makeEllipse, takeEllipse};
}

}  // namespace prancheta::dxf
