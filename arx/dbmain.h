// SPDX-License-Identifier: MIT
// Objects and entities of the drawing database.
#pragma once

#include <memory>

#include "acgi.h"
#include "adsdef.h"
#include "dbfiler.h"
#include "dbidar.h"
#include "gept3dar.h"
#include "rxboiler.h"

class AcDbDatabase;
class AcDbObjectReactor;

namespace prancheta {
/// What few objects have: extended data, reactors, extension dictionary, groups of foreign files.
struct ObjectExtra;
/// The host's door to the private parts of objects.
struct ObjectAccess;
}  // namespace prancheta

/// Axis-aligned box; empty until a point is added.
class AcDbExtents {
public:
    AcGePoint3d minPoint() const { return m_min; }
    AcGePoint3d maxPoint() const { return m_max; }
    bool isEmpty() const { return m_min.x > m_max.x; }
    void addPoint(const AcGePoint3d& p);
    void addExt(const AcDbExtents& other);
    void set(const AcGePoint3d& lower, const AcGePoint3d& upper) {
        m_min = lower;
        m_max = upper;
    }

private:
    AcGePoint3d m_min{1e300, 1e300, 1e300};
    AcGePoint3d m_max{-1e300, -1e300, -1e300};
};

class AcDbObject : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObject);

    AcDbObject(const AcDbObject&) = delete;
    AcDbObject& operator=(const AcDbObject&) = delete;
    ~AcDbObject() override;

    AcDbObjectId objectId() const;
    AcDbObjectId ownerId() const;
    Acad::ErrorStatus setOwnerId(AcDbObjectId id);
    void getAdsName(ads_name& name) const;
    /// Null until the object is resident.
    AcDbDatabase* database() const;

    /// Ends the access that acdbOpenObject or an append gave. Objects that are not resident: eOk.
    Acad::ErrorStatus close();
    Acad::ErrorStatus erase(Adesk::Boolean erasing = Adesk::kTrue);
    /// Gives up the changes made since the object was opened for write and ends the access. A new
    /// object is taken out of the drawing again. Changes that undo does not record stay.
    Acad::ErrorStatus cancel();
    Acad::ErrorStatus upgradeOpen();
    Acad::ErrorStatus downgradeOpen();

    bool isErased() const;
    bool isReadEnabled() const;
    bool isWriteEnabled() const;
    bool isNewObject() const;
    /// True while undo or redo puts this object's state back.
    bool isUndoing() const;
    void assertReadEnabled() const;
    /// To be called before the first change of any member; records the state for undo.
    void assertWriteEnabled(Adesk::Boolean autoUndo = Adesk::kTrue,
                            Adesk::Boolean recordModified = Adesk::kTrue);

    /// Extended data of one application or of all; the caller frees the list. Null when there is
    /// none.
    resbuf* xData(const ACHAR* application = nullptr) const;
    /// Replaces the data of the applications named in the list (1001 groups). eRegappIdNotFound for
    /// an unregistered application, eOutOfRange above 16 KB; nothing changes then.
    Acad::ErrorStatus setXData(const resbuf* data);
    AcDbObjectId extensionDictionary() const;
    Acad::ErrorStatus createExtensionDictionary();
    Acad::ErrorStatus addPersistentReactor(AcDbObjectId id);
    Acad::ErrorStatus removePersistentReactor(AcDbObjectId id);

    virtual Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const;
    virtual Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer);
    virtual Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const;
    virtual Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer);

protected:
    AcDbObject();
    virtual Acad::ErrorStatus subErase(Adesk::Boolean erasing);
    virtual Acad::ErrorStatus subClose();

private:
    friend struct prancheta::ObjectAccess;
    AcDbStub* m_stub = nullptr;
    AcDbStub* m_owner = nullptr;
    std::unique_ptr<prancheta::ObjectExtra> m_extra;
};

class AcDbEntity : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbEntity);
    ~AcDbEntity() override;

    /// The caller frees the text with acutDelString.
    ACHAR* layer() const;
    AcDbObjectId layerId() const;
    /// The name is looked up in the entity's database, or in the working one. eKeyNotFound, and no
    /// change, for an unknown layer. Hidden layers are taken whatever the last argument says.
    Acad::ErrorStatus setLayer(const ACHAR* name, Adesk::Boolean doSubents = Adesk::kTrue,
                               bool allowHiddenLayer = false);
    Acad::ErrorStatus setLayer(AcDbObjectId id, Adesk::Boolean doSubents = Adesk::kTrue,
                               bool allowHiddenLayer = false);

    /// 1..255; 256 by layer, 0 by block.
    Adesk::UInt16 colorIndex() const;
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 index, Adesk::Boolean doSubents = Adesk::kTrue);
    ACHAR* linetype() const;
    AcDbObjectId linetypeId() const;
    Acad::ErrorStatus setLinetype(const ACHAR* name, Adesk::Boolean doSubents = Adesk::kTrue);
    Acad::ErrorStatus setLinetype(AcDbObjectId id, Adesk::Boolean doSubents = Adesk::kTrue);
    double linetypeScale() const;
    Acad::ErrorStatus setLinetypeScale(double scale, Adesk::Boolean doSubents = Adesk::kTrue);
    AcDb::LineWeight lineWeight() const;
    Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight,
                                    Adesk::Boolean doSubents = Adesk::kTrue);
    AcDb::Visibility visibility() const;
    Acad::ErrorStatus setVisibility(AcDb::Visibility visibility,
                                    Adesk::Boolean doSubents = Adesk::kTrue);
    AcDbObjectId blockId() const { return ownerId(); }
    /// Current layer, colour, linetype and so on of the database (null: the working one).
    void setDatabaseDefaults(AcDbDatabase* database = nullptr);
    Acad::ErrorStatus setPropertiesFrom(const AcDbEntity* other,
                                        Adesk::Boolean doSubents = Adesk::kTrue);

    /// eCannotScaleNonUniformly when the class cannot follow a transformation that is no
    /// similarity; those described by points alone, such as a line, follow any.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& m);
    Acad::ErrorStatus getTransformedCopy(const AcGeMatrix3d& m, AcDbEntity*& copy) const;
    /// Appends new entities, not resident, owned by the caller.
    Acad::ErrorStatus explode(AcDbVoidPtrArray& set) const;
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const;
    Acad::ErrorStatus getOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker,
                                     const AcGePoint3d& pick, const AcGePoint3d& last,
                                     const AcGeMatrix3d& view, AcGePoint3dArray& points,
                                     AcDbIntArray& geomIds) const;
    Acad::ErrorStatus getGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                    AcDbIntArray& geomIds) const;
    Acad::ErrorStatus moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset);
    /// The points that a frame takes hold of when entities are stretched, appended: those whose
    /// places are the entity's shape, or the one by which it stands. The grips unless overridden.
    Acad::ErrorStatus getStretchPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                       AcDbIntArray& geomIds) const;
    Acad::ErrorStatus moveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset);
    void list() const;
    Adesk::Boolean worldDraw(AcGiWorldDraw* draw);
    void viewportDraw(AcGiViewportDraw* draw);
    void recordGraphicsModified(bool modified = true);
    Acad::ErrorStatus draw();
    /// Frame in which the entity is described: from its own coordinates to the world's. Identity
    /// unless overridden. The host files the picture of a custom entity in this frame and reads a
    /// moved, turned or mirrored one back through transformBy.
    virtual void getEcs(AcGeMatrix3d& ecs) const;

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;

protected:
    AcDbEntity();
    /// True = complete; false asks for subViewportDraw.
    virtual Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw);
    virtual void subViewportDraw(AcGiViewportDraw* draw);
    virtual Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const;
    virtual Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& m);
    virtual Acad::ErrorStatus subGetTransformedCopy(const AcGeMatrix3d& m, AcDbEntity*& copy) const;
    virtual Acad::ErrorStatus subExplode(AcDbVoidPtrArray& set) const;
    virtual void subList() const;
    virtual Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker,
                                                const AcGePoint3d& pick, const AcGePoint3d& last,
                                                const AcGeMatrix3d& view, AcGePoint3dArray& points,
                                                AcDbIntArray& geomIds) const;
    virtual Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                               AcDbIntArray& geomIds) const;
    virtual Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices,
                                                  const AcGeVector3d& offset);
    virtual Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& points,
                                                  AcDbIntArray& osnapModes,
                                                  AcDbIntArray& geomIds) const;
    virtual Acad::ErrorStatus subMoveStretchPointsAt(const AcDbIntArray& indices,
                                                     const AcGeVector3d& offset);
    /// For classes whose transformBy does not call the base.
    void xDataTransformBy(const AcGeMatrix3d& m);

private:
    friend struct prancheta::ObjectAccess;
    AcDbStub* m_layer = nullptr;
    AcDbStub* m_linetype = nullptr;
    double m_linetypeScale = 1.0;
    Adesk::UInt16 m_color = 256;
    Adesk::Int16 m_lineWeight = -1;
    Adesk::UInt8 m_visibility = 0;
};

/// Opens a resident object. eNullObjectId (also for an id of a drawing that was closed),
/// eNullObjectPointer (only the handle is known), eWasErased, eWasOpenForWrite, eWasOpenForRead,
/// eWasNotifying (its reactors are being told), eAtMaxReaders; `object` is null on failure. Every
/// open is paired with close().
Acad::ErrorStatus acdbOpenObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased = false);
/// The same, eNotThatKindOfClass when it is no entity.
Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);

template <class T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased = false) {
    AcDbObject* any = nullptr;
    object = nullptr;
    const Acad::ErrorStatus es = acdbOpenObject(any, id, mode, openErased);
    if (es != Acad::eOk) return es;
    if (!any->isKindOf(T::desc())) {
        any->close();
        return Acad::eNotThatKindOfClass;
    }
    object = static_cast<T*>(any);
    return Acad::eOk;
}

/// eNullObjectId for a null id.
Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id);
/// eInvalidAdsName for a name that is no entity's.
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name);

/// Opens in the constructor, closes in the destructor.
template <class T>
class AcDbObjectPointer {
public:
    AcDbObjectPointer() = default;
    AcDbObjectPointer(AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false) {
        open(id, mode, openErased);
    }
    AcDbObjectPointer(const AcDbObjectPointer&) = delete;
    AcDbObjectPointer& operator=(const AcDbObjectPointer&) = delete;
    ~AcDbObjectPointer() { (void)close(); }

    Acad::ErrorStatus open(AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false) {
        (void)close();
        return m_status = acdbOpenObject(m_object, id, mode, openErased);
    }
    Acad::ErrorStatus close() {
        if (m_object == nullptr) return Acad::eOk;
        const Acad::ErrorStatus es = m_object->close();
        m_object = nullptr;
        return es;
    }
    Acad::ErrorStatus openStatus() const { return m_status; }
    T* object() const { return m_object; }
    T* operator->() const { return m_object; }
    operator T*() const { return m_object; }

private:
    T* m_object = nullptr;
    Acad::ErrorStatus m_status = Acad::eNullObjectPointer;
};
