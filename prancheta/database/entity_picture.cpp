// SPDX-License-Identifier: MIT
// Entities as drawn: the wrappers, and what can be told of any entity from its picture.
#include "prancheta/database/entity_picture.h"

#include <utility>
#include <vector>

#include "prancheta/database/memory_filer.h"
#include "prancheta/database/object_access.h"
#include "prancheta/graphics/picture_recorder.h"
#include "prancheta/graphics/snaps.h"

namespace prancheta {

std::function<void(const Picture&, AcDbVoidPtrArray&)> pictureExploder;

namespace {

/// A view of the plan seen through a world drawing: for entities that draw per view.
class PlanView : public AcGiViewportDraw {
public:
    explicit PlanView(AcGiWorldDraw& world) : m_world(world) {}
    AcGiRegenType regenType() const override { return m_world.regenType(); }
    bool regenAbort() const override { return m_world.regenAbort(); }
    bool isDragging() const override { return m_world.isDragging(); }
    AcGiSubEntityTraits& subEntityTraits() const override { return m_world.subEntityTraits(); }
    AcGiViewportGeometry& geometry() const override { return m_world.geometry(); }

private:
    AcGiWorldDraw& m_world;
};

/// Drawing changes nothing in an entity, though its functions are not const.
Picture pictureOf(const AcDbEntity& entity, AcGiRegenType type = kAcGiStandardDisplay) {
    Picture picture;
    recordPicture(const_cast<AcDbEntity&>(entity), picture, type);
    return picture;
}

thread_local const PictureAtHand* g_atHand = nullptr;

}  // namespace

PictureTraits traitsOf(const AcDbEntity& entity) {
    PictureTraits own;
    own.layer = entity.layerId();
    own.linetype = entity.linetypeId();
    own.linetypeScale = entity.linetypeScale();
    own.color = entity.colorIndex();
    own.trueColor = ObjectAccess::trueColor(entity);
    own.lineWeight = entity.lineWeight();
    return own;
}

void giveColor(AcDbEntity& entity, const PictureTraits& traits) {
    if (entity.setColorIndex(traits.color) == Acad::eOk && traits.trueColor)
        ObjectAccess::setTrueColor(entity, *traits.trueColor);
}

PictureAtHand::PictureAtHand(const AcDbEntity& entity, const Picture& picture)
    : m_entity(&entity), m_picture(&picture), m_outer(std::exchange(g_atHand, this)) {}
PictureAtHand::~PictureAtHand() { g_atHand = m_outer; }

const Picture* PictureAtHand::of(const AcDbEntity& entity) {
    for (const PictureAtHand* scope = g_atHand; scope != nullptr; scope = scope->m_outer)
        if (scope->m_entity == &entity) return scope->m_picture;
    return nullptr;
}

void recordPicture(AcDbEntity& entity, Picture& picture, AcGiRegenType type, bool dragging) {
    PictureRecorder recorder(picture, type, dragging);
    recorder.begin(traitsOf(entity));
    if (entity.worldDraw(&recorder)) return;
    PlanView view(recorder);
    entity.viewportDraw(&view);
}

}  // namespace prancheta

using namespace prancheta;

Adesk::Boolean AcDbEntity::worldDraw(AcGiWorldDraw* draw) {
    AcGiSubEntityTraits& traits = draw->subEntityTraits();
    traits.setLayer(layerId());
    traits.setLineType(linetypeId());
    traits.setLineTypeScale(m_linetypeScale);
    setColor(traits, traitsOf(*this));
    traits.setLineWeight(lineWeight());
    return subWorldDraw(draw);
}
void AcDbEntity::viewportDraw(AcGiViewportDraw* draw) { subViewportDraw(draw); }
Adesk::Boolean AcDbEntity::subWorldDraw(AcGiWorldDraw*) { return Adesk::kTrue; }
void AcDbEntity::subViewportDraw(AcGiViewportDraw*) {}

void AcDbEntity::recordGraphicsModified(bool modified) {
    AcDbStub* stub = objectId();
    if (stub != nullptr && stub->writer && modified) stub->modified = true;
}
// Views follow the notification at close; there is nothing to do in between.
Acad::ErrorStatus AcDbEntity::draw() { return Acad::eOk; }
void AcDbEntity::getEcs(AcGeMatrix3d& ecs) const { ecs.setToIdentity(); }

Acad::ErrorStatus AcDbEntity::getGeomExtents(AcDbExtents& extents) const {
    return subGetGeomExtents(extents);
}
Acad::ErrorStatus AcDbEntity::subGetGeomExtents(AcDbExtents& extents) const {
    const Picture picture = pictureOf(*this);
    if (picture.empty()) return Acad::eDegenerateGeometry;
    extents = picture.extents();
    return extents.isEmpty() ? Acad::eDegenerateGeometry : Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::getOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker,
                                             const AcGePoint3d& pick, const AcGePoint3d& last,
                                             const AcGeMatrix3d& view, AcGePoint3dArray& points,
                                             AcDbIntArray& geomIds) const {
    return subGetOsnapPoints(mode, marker, pick, last, view, points, geomIds);
}
Acad::ErrorStatus AcDbEntity::subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker,
                                                const AcGePoint3d& pick, const AcGePoint3d& last,
                                                const AcGeMatrix3d&, AcGePoint3dArray& points,
                                                AcDbIntArray&) const {
    std::vector<AcGePoint3d> found;
    if (const Picture* const known = PictureAtHand::of(*this))
        appendSnaps(*known, mode, pick, last, found);
    else
        appendSnaps(pictureOf(*this), mode, pick, last, found);
    for (const AcGePoint3d& p : found) points.append(p);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::getGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                            AcDbIntArray& geomIds) const {
    return subGetGripPoints(points, osnapModes, geomIds);
}
Acad::ErrorStatus AcDbEntity::subGetGripPoints(AcGePoint3dArray&, AcDbIntArray&,
                                               AcDbIntArray&) const {
    return Acad::eNotApplicable;
}
Acad::ErrorStatus AcDbEntity::moveGripPointsAt(const AcDbIntArray& indices,
                                               const AcGeVector3d& offset) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    return indices.isEmpty() ? Acad::eOk : subMoveGripPointsAt(indices, offset);
}
Acad::ErrorStatus AcDbEntity::subMoveGripPointsAt(const AcDbIntArray&, const AcGeVector3d&) {
    return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbEntity::getStretchPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                               AcDbIntArray& geomIds) const {
    return subGetStretchPoints(points, osnapModes, geomIds);
}
Acad::ErrorStatus AcDbEntity::subGetStretchPoints(AcGePoint3dArray& points,
                                                  AcDbIntArray& osnapModes,
                                                  AcDbIntArray& geomIds) const {
    return subGetGripPoints(points, osnapModes, geomIds);
}
Acad::ErrorStatus AcDbEntity::moveStretchPointsAt(const AcDbIntArray& indices,
                                                  const AcGeVector3d& offset) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    return indices.isEmpty() ? Acad::eOk : subMoveStretchPointsAt(indices, offset);
}
Acad::ErrorStatus AcDbEntity::subMoveStretchPointsAt(const AcDbIntArray& indices,
                                                     const AcGeVector3d& offset) {
    return subMoveGripPointsAt(indices, offset);
}

Acad::ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d& m) {
    return isWriteEnabled() ? subTransformBy(m) : Acad::eNotOpenForWrite;
}
Acad::ErrorStatus AcDbEntity::subTransformBy(const AcGeMatrix3d& m) {
    if (!m.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    assertWriteEnabled();
    xDataTransformBy(m);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::getTransformedCopy(const AcGeMatrix3d& m, AcDbEntity*& copy) const {
    copy = nullptr;
    return subGetTransformedCopy(m, copy);
}
Acad::ErrorStatus AcDbEntity::subGetTransformedCopy(const AcGeMatrix3d& m,
                                                    AcDbEntity*& copy) const {
    std::unique_ptr<AcRxObject> made(isA()->create());
    auto* entity = AcDbEntity::cast(made.get());
    if (entity == nullptr) return Acad::eNotApplicable;
    MemoryFiler filer(AcDb::kCopyFiler);
    Acad::ErrorStatus es = dwgOutFields(&filer);
    filer.rewind();
    if (es == Acad::eOk) es = entity->dwgInFields(&filer);
    if (es == Acad::eOk) es = entity->transformBy(m);
    if (es != Acad::eOk) return es;
    (void)made.release();  // the caller's now
    copy = entity;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::explode(AcDbVoidPtrArray& set) const { return subExplode(set); }

Acad::ErrorStatus AcDbEntity::subExplode(AcDbVoidPtrArray& set) const {
    if (!pictureExploder) return Acad::eCannotExplodeEntity;
    AcDbVoidPtrArray parts;
    pictureExploder(pictureOf(*this, kAcGiForExplode), parts);
    // What would only become itself again is as simple as it can be.
    const bool same = parts.length() == 1 && static_cast<AcDbEntity*>(parts[0])->isA() == isA();
    if (same) delete static_cast<AcDbEntity*>(parts[0]);
    if (same || parts.isEmpty()) return Acad::eCannotExplodeEntity;
    set.append(parts);
    return Acad::eOk;
}
