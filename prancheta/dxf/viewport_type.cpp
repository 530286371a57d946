// SPDX-License-Identifier: MIT
// Viewports in files.
#include "prancheta/dxf/viewport_type.h"

#include "dbviewport.h"

namespace prancheta::dxf {
namespace {

using enum Meaning;

// Groups 12 and 22 have no third coordinate.
constexpr Field kViewport[] = {marker("AcDbViewport"),
                               {10, Point, 0},
                               {40, Real, 0},
                               {41, Real, 1},
                               {68, Integer, 0, false, 1.0},
                               {69, Integer, 1, false, 2.0},
                               {12, Real, 2},
                               {22, Real, 3},
                               defaultField(13, 0.0),
                               defaultField(23, 0.0),
                               defaultField(14, 10.0),
                               defaultField(24, 10.0),
                               defaultField(15, 10.0),
                               defaultField(25, 10.0),
                               {16, Point, 1},
                               {17, Point, 2},
                               defaultField(42, 50.0),
                               defaultField(43, 0.0),
                               defaultField(44, 0.0),
                               {45, Real, 4},
                               defaultField(50, 0.0),
                               {51, Degrees, 5},
                               defaultField(72, 1000.0),
                               {331, References},
                               {90, Integer, 2, false, 32768.0},
                               {340, Reference, 0},
                               {1, DefaultText, 0, false, 0.0, ""},
                               defaultField(281, 0.0),
                               defaultField(71, 1.0),
                               defaultField(74, 0.0),
                               defaultField(110, 0.0),
                               defaultField(120, 0.0),
                               defaultField(130, 0.0),
                               defaultField(111, 1.0),
                               defaultField(121, 0.0),
                               defaultField(131, 0.0),
                               defaultField(112, 0.0),
                               defaultField(122, 1.0),
                               defaultField(132, 0.0),
                               defaultField(79, 0.0),
                               defaultField(146, 0.0)};

constexpr long long kPerspective = 1;

/// Plan views only. What releases before 2000 say of the view stands in extended data.
bool suitsViewport(const Values& v, const Tags&) {
    const AcGePoint3d& direction = v.points[1];
    const auto fits = [](long long n) { return n >= -32768 && n <= 32767; };
    return direction.x == 0.0 && direction.y == 0.0 && direction.z > 0.0 && v.reals[0] > 0.0 &&
           v.reals[1] > 0.0 && v.reals[4] > 0.0 && (v.integers[2] & kPerspective) == 0 &&
           fits(v.integers[0]) && fits(v.integers[1]);
}

std::unique_ptr<AcDbEntity> makeViewport(const Values& v) {
    auto viewport = std::make_unique<AcDbViewport>();
    // Whatever cannot be is refused above.
    (void)viewport->setCenterPoint(v.points[0]);
    (void)viewport->setWidth(v.reals[0]);
    (void)viewport->setHeight(v.reals[1]);
    (void)viewport->setViewCenter({v.reals[2], v.reals[3]});
    (void)viewport->setViewTarget(v.points[2]);
    (void)viewport->setViewHeight(v.reals[4]);
    (void)viewport->setTwistAngle(v.reals[5]);
    (void)viewport->setNumber(static_cast<Adesk::Int16>(v.integers[1]));
    if (!v.ids[0].isNull()) (void)viewport->setNonRectClipEntityId(v.ids[0]);
    (void)viewport->setFiledState(static_cast<Adesk::Int16>(v.integers[0]),
                                  static_cast<Adesk::Int32>(v.integers[2]));
    (void)viewport->setFrozenLayers(v.references);
    return viewport;
}

void takeViewport(const AcDbEntity& entity, Values& v) {
    const auto& viewport = static_cast<const AcDbViewport&>(entity);
    v.points[0] = viewport.centerPoint();
    v.points[1] = {0.0, 0.0, 1.0};
    v.points[2] = viewport.viewTarget();
    v.reals[0] = viewport.width();
    v.reals[1] = viewport.height();
    v.reals[2] = viewport.viewCenter().x;
    v.reals[3] = viewport.viewCenter().y;
    v.reals[4] = viewport.viewHeight();
    v.reals[5] = viewport.twistAngle();
    v.integers[0] = viewport.status();
    v.integers[1] = viewport.number();
    v.integers[2] = viewport.flags();
    v.ids[0] = viewport.nonRectClipEntityId();
    v.references = viewport.frozenLayers();
}

}  // namespace

EntityType viewportType() {
    return {"VIEWPORT", &AcDbViewport::desc, kViewport, suitsViewport, makeViewport, takeViewport};
}

}  // namespace prancheta::dxf
