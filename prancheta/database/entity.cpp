// SPDX-License-Identifier: MIT
// What all entities have: layer, colour, linetype, scale, weight, visibility.
#include <cmath>

#include "acutmem.h"
#include "prancheta/database/object_access.h"

using namespace prancheta;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbEntity, AcDbObject)

AcDbEntity::AcDbEntity() = default;
AcDbEntity::~AcDbEntity() = default;

namespace {

AcDbDatabase* databaseFor(const AcDbEntity& entity) {
    AcDbDatabase* own = entity.database();
    return own != nullptr ? own : acdbHostApplicationServices()->workingDatabase();
}

/// Copy of a record's name for the caller; `otherwise` for a null id.
ACHAR* copyOfName(AcDbObjectId id, const ACHAR* otherwise) {
    ACHAR* copy = nullptr;
    if (const AcDbStub* stub = id; stub != nullptr && stub->object != nullptr)
        (void)static_cast<const AcDbSymbolTableRecord*>(stub->object)->getName(copy);
    else
        (void)acutNewString(otherwise, copy);
    return copy;
}

Acad::ErrorStatus checkRecord(const AcDbEntity& entity, AcDbObjectId id, AcRxClass* recordClass) {
    if (id.isNull()) return Acad::eNullObjectId;
    if (id.objectClass() != recordClass) return Acad::eWrongObjectType;
    if (entity.database() != nullptr && id.database() != entity.database())
        return Acad::eWrongDatabase;
    return id.isErased() ? Acad::eWasErased : Acad::eOk;
}

bool isLineWeight(AcDb::LineWeight weight) {
    return weight >= AcDb::kLnWtByLwDefault && weight <= AcDb::kLnWt211;
}

template <class Value>
Acad::ErrorStatus assign(AcDbEntity& entity, Value& member, Value value) {
    if (!entity.isWriteEnabled()) return Acad::eNotOpenForWrite;
    entity.assertWriteEnabled();
    member = value;
    return Acad::eOk;
}

}  // namespace

ACHAR* AcDbEntity::layer() const { return copyOfName(layerId(), L"0"); }
AcDbObjectId AcDbEntity::layerId() const { return AcDbObjectId(m_layer); }

Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR* name, Adesk::Boolean doSubents, bool hidden) {
    const AcDbDatabase* where = databaseFor(*this);
    if (where == nullptr) return Acad::eNoDatabase;
    const AcDbObjectId id =
        ObjectAccess::lookup(where->layerTableId(), name != nullptr ? name : L"");
    return id.isNull() ? Acad::eKeyNotFound : setLayer(id, doSubents, hidden);
}
Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId id, Adesk::Boolean, bool) {
    const Acad::ErrorStatus es = checkRecord(*this, id, AcDbLayerTableRecord::desc());
    return es == Acad::eOk ? assign<AcDbStub*>(*this, m_layer, id) : es;
}

Adesk::UInt16 AcDbEntity::colorIndex() const { return m_color; }
Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16 index, Adesk::Boolean) {
    if (index > 256) return Acad::eInvalidInput;
    const Acad::ErrorStatus es = assign(*this, m_color, index);
    if (es == Acad::eOk) ObjectAccess::dropTrueColor(*this);
    return es;
}

ACHAR* AcDbEntity::linetype() const { return copyOfName(linetypeId(), L"ByLayer"); }
AcDbObjectId AcDbEntity::linetypeId() const {
    if (m_linetype != nullptr) return AcDbObjectId(m_linetype);
    const AcDbDatabase* where = databaseFor(*this);
    return where != nullptr ? where->byLayerLinetype() : AcDbObjectId();
}
Acad::ErrorStatus AcDbEntity::setLinetype(const ACHAR* name, Adesk::Boolean doSubents) {
    const AcDbDatabase* where = databaseFor(*this);
    if (where == nullptr) return Acad::eNoDatabase;
    const AcDbObjectId id =
        ObjectAccess::lookup(where->linetypeTableId(), name != nullptr ? name : L"");
    return id.isNull() ? Acad::eKeyNotFound : setLinetype(id, doSubents);
}
Acad::ErrorStatus AcDbEntity::setLinetype(AcDbObjectId id, Adesk::Boolean) {
    const Acad::ErrorStatus es = checkRecord(*this, id, AcDbLinetypeTableRecord::desc());
    return es == Acad::eOk ? assign<AcDbStub*>(*this, m_linetype, id) : es;
}

double AcDbEntity::linetypeScale() const { return m_linetypeScale; }
Acad::ErrorStatus AcDbEntity::setLinetypeScale(double scale, Adesk::Boolean) {
    if (!(scale > 0.0) || !std::isfinite(scale)) return Acad::eInvalidInput;
    return assign(*this, m_linetypeScale, scale);
}

AcDb::LineWeight AcDbEntity::lineWeight() const {
    return static_cast<AcDb::LineWeight>(m_lineWeight);
}
Acad::ErrorStatus AcDbEntity::setLineWeight(AcDb::LineWeight weight, Adesk::Boolean) {
    if (!isLineWeight(weight)) return Acad::eInvalidInput;
    return assign(*this, m_lineWeight, static_cast<Adesk::Int16>(weight));
}

AcDb::Visibility AcDbEntity::visibility() const {
    return static_cast<AcDb::Visibility>(m_visibility);
}
Acad::ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility visibility, Adesk::Boolean) {
    return assign(*this, m_visibility, static_cast<Adesk::UInt8>(visibility));
}

void AcDbEntity::setDatabaseDefaults(AcDbDatabase* database) {
    if (database == nullptr) database = databaseFor(*this);
    if (database == nullptr || !isWriteEnabled()) return;
    assertWriteEnabled();
    m_layer = database->clayer();
    m_linetype = database->celtype();
    m_linetypeScale = database->celtscale();
    m_lineWeight = database->core().variables().number(L"CELWEIGHT");
    m_color = database->cecolor();
    ObjectAccess::dropTrueColor(*this);
    if (const auto color = database->core().currentTrueColor())
        ObjectAccess::setTrueColor(*this, *color);
}

Acad::ErrorStatus AcDbEntity::setPropertiesFrom(const AcDbEntity* other, Adesk::Boolean) {
    if (other == nullptr) return Acad::eNullEntityPointer;
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (database() != nullptr && other->database() != nullptr && database() != other->database())
        return Acad::eWrongDatabase;
    assertWriteEnabled();
    m_layer = other->m_layer;
    m_linetype = other->m_linetype;
    m_linetypeScale = other->m_linetypeScale;
    m_color = other->m_color;
    m_lineWeight = other->m_lineWeight;
    m_visibility = other->m_visibility;
    ObjectAccess::dropTrueColor(*this);
    if (const auto color = ObjectAccess::trueColor(*other))
        ObjectAccess::setTrueColor(*this, *color);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbObject::dwgOutFields(filer);
    filer->writeHardPointerId(AcDbObjectId(m_layer));
    filer->writeHardPointerId(AcDbObjectId(m_linetype));
    filer->writeDouble(m_linetypeScale);
    filer->writeUInt16(m_color);
    filer->writeInt16(m_lineWeight);
    return filer->writeUInt8(m_visibility);
}

Acad::ErrorStatus AcDbEntity::dwgInFields(AcDbDwgFiler* filer) {
    AcDbObject::dwgInFields(filer);
    AcDbHardPointerId layer;
    AcDbHardPointerId linetype;
    filer->readHardPointerId(&layer);
    filer->readHardPointerId(&linetype);
    m_layer = layer;
    m_linetype = linetype;
    filer->readDouble(&m_linetypeScale);
    filer->readUInt16(&m_color);
    filer->readInt16(&m_lineWeight);
    filer->readUInt8(&m_visibility);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbEntity::dxfOutFields(AcDbDxfFiler* filer) const {
    return AcDbObject::dxfOutFields(filer);
}
Acad::ErrorStatus AcDbEntity::dxfInFields(AcDbDxfFiler* filer) {
    return AcDbObject::dxfInFields(filer);
}
