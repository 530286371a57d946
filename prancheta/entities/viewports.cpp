// SPDX-License-Identifier: MIT
// Viewports as they stand.
#include "prancheta/entities/viewports.h"

#include <algorithm>
#include <cmath>

#include "prancheta/database/database_core.h"
#include "prancheta/database/object_access.h"
#include "prancheta/database/value_list.h"
#include "prancheta/entities/plane_curve.h"

namespace prancheta {
namespace {

/// Application that marks viewports that size annotations.
constexpr const wchar_t* kAnnotations = L"PRANCHETA_ANOTACAO";

}  // namespace

const AcDbViewport* viewportOf(AcDbObjectId id) {
    const AcDbStub* const stub = id;
    return stub != nullptr && !stub->erased ? AcDbViewport::cast(stub->object) : nullptr;
}

std::vector<AcDbObjectId> viewportsOf(AcDbObjectId block) {
    std::vector<AcDbObjectId> ids;
    const AcDbStub* const stub = block;
    if (stub == nullptr || stub->object == nullptr) return ids;
    for (const AcDbObjectId& id :
         ObjectAccess::entities(static_cast<const AcDbBlockTableRecord&>(*stub->object)))
        if (viewportOf(id) != nullptr && !isSheetsOwn(id)) ids.push_back(id);
    return ids;
}

bool isSheetsOwn(AcDbObjectId entity) {
    const AcDbViewport* const viewport = viewportOf(entity);
    return viewport != nullptr && viewport->number() == 1;
}

Box2d frameOf(const AcDbViewport& viewport) {
    const AcGePoint3d& middle = viewport.centerPoint();
    const double x = viewport.width() / 2.0;
    const double y = viewport.height() / 2.0;
    return {middle.x - x, middle.y - y, middle.x + x, middle.y + y};
}

std::vector<Vec2> clipOutline(const AcDbViewport& viewport) {
    constexpr double kStep = 0.05;  // radians of a round part
    std::vector<Vec2> corners;
    if (!viewport.isNonRectClipOn()) return corners;
    const AcDbStub* const stub = viewport.nonRectClipEntityId();
    const AcDbEntity* const outline = AcDbEntity::cast(stub->object);
    const std::optional<Curve> curve =
        outline != nullptr ? planeCurve(*outline) : std::optional<Curve>();
    if (!curve || !curve->closed()) return corners;
    for (const Segment& each : curve->segments()) {
        const int steps = 1 + static_cast<int>(std::abs(each.sweep) / kStep);
        for (int i = 0; i < steps; ++i) corners.push_back(each.at(double(i) / steps));
    }
    return corners;
}

bool sizesAnnotations(const AcDbViewport& viewport) {
    return ListOwner(viewport.xData(kAnnotations)) != nullptr;
}

void sizeAnnotations(AcDbDatabase& database, AcDbViewport& viewport, bool sizes) {
    (void)database.core().ensureRegApp(kAnnotations);
    ListBuilder list;
    list.add(newTextItem(AcDb::kDxfRegAppName, kAnnotations));
    if (sizes) list.add(newTextItem(AcDb::kDxfXdAsciiString, L"escala"));
    (void)viewport.setXData(ListOwner(list.release()).get());  // the application is known
}

double annotationFactor(const AcDbViewport& viewport) {
    const AcDbDatabase* const database = viewport.database();
    if (database == nullptr || !sizesAnnotations(viewport)) return 1.0;
    const double scale = database->dimscale() > 0.0 ? database->dimscale() : 1.0;
    const double factor = 1.0 / (viewport.customScale() * scale);
    return std::abs(factor - 1.0) > 1e-9 ? factor : 1.0;
}

std::vector<AcDbObjectId> withClips(std::vector<AcDbObjectId> ids) {
    std::vector<AcDbObjectId> clips;
    for (const AcDbObjectId& id : ids) {
        const AcDbViewport* const viewport = viewportOf(id);
        if (viewport != nullptr && viewport->isNonRectClipOn())
            clips.push_back(viewport->nonRectClipEntityId());
    }
    for (const AcDbObjectId& clip : clips)
        if (std::find(ids.begin(), ids.end(), clip) == ids.end()) ids.push_back(clip);
    return ids;
}

}  // namespace prancheta
