// SPDX-License-Identifier: MIT
// Construction lines in files.
#include "prancheta/dxf/endless_line_type.h"

#include <cmath>

#include "dbents.h"

namespace prancheta::dxf {
namespace {

using enum Meaning;

constexpr Field kXline[] = {marker("AcDbXline"), {10, Point, 0}, {11, Point, 1}};
constexpr Field kRay[] = {marker("AcDbRay"), {10, Point, 0}, {11, Point, 1}};

/// Another length would not come back as it stood.
bool suitsEndlessLine(const Values& v, const Tags&) {
    return std::abs(v.points[1].asVector().length() - 1.0) <= 1e-9;
}
template <class Line>
std::unique_ptr<AcDbEntity> makeEndlessLine(const Values& v) {
    auto line = std::make_unique<Line>();
    (void)line->setBasePoint(v.points[0]);  // a new entity takes any value but a zero vector
    (void)line->setUnitDir(v.points[1].asVector());
    return line;
}
void takeEndlessLine(const AcDbEntity& entity, Values& v) {
    const auto& line = static_cast<const EndlessLine&>(entity);
    v.points[0] = line.basePoint();
    v.points[1] = AcGePoint3d::kOrigin + line.unitDir();
}

}  // namespace

EntityType xlineType() {
    return {"XLINE",          &AcDbXline::desc,           kXline,
            suitsEndlessLine, makeEndlessLine<AcDbXline>, takeEndlessLine};
}
EntityType rayType() {
    return {"RAY",          &AcDbRay::desc, kRay, suitsEndlessLine, makeEndlessLine<AcDbRay>,
            takeEndlessLine};
}

}  // namespace prancheta::dxf
