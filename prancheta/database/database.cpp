// SPDX-License-Identifier: MIT
// The database as modules see it.
#include <algorithm>
#include <charconv>

#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/database/register.h"
#include "prancheta/graphics/palette.h"

using namespace prancheta;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDatabase, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDatabaseReactor, AcRxObject)

namespace {

Acad::ErrorStatus checkRecord(const AcDbDatabase& database, AcDbObjectId id, AcRxClass* wanted) {
    if (id.isNull()) return Acad::eNullObjectId;
    if (id.database() != &database) return Acad::eWrongDatabase;
    if (id.objectClass() != wanted) return Acad::eWrongObjectType;
    return id.isErased() ? Acad::eWasErased : Acad::eOk;
}

}  // namespace

AcDbDatabase::AcDbDatabase(bool buildDefaultDrawing, bool) {
    registerDatabaseClasses();
    m_core = std::make_unique<DatabaseCore>(*this);
    m_core->build(buildDefaultDrawing);
}

AcDbDatabase::~AcDbDatabase() {
    const auto reactors = m_core->reactors();
    for (AcDbDatabaseReactor* reactor : reactors) reactor->goodbye(this);
    AcDbHostApplicationServices* services = acdbHostApplicationServices();
    if (services->workingDatabase() == this) services->setWorkingDatabase(nullptr);
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, blockTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, layerTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, linetypeTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, textStyleTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, dimStyleTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbRegAppTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, regAppTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getNamedObjectsDictionary(AcDbDictionary*& dictionary,
                                                          AcDb::OpenMode mode) {
    return acdbOpenObject(dictionary, namedObjectsDictionaryId(), mode);
}

AcDbObjectId AcDbDatabase::blockTableId() const { return m_core->m_tables[DatabaseCore::kBlocks]; }
AcDbObjectId AcDbDatabase::layerTableId() const { return m_core->m_tables[DatabaseCore::kLayers]; }
AcDbObjectId AcDbDatabase::linetypeTableId() const {
    return m_core->m_tables[DatabaseCore::kLinetypes];
}
AcDbObjectId AcDbDatabase::textStyleTableId() const {
    return m_core->m_tables[DatabaseCore::kTextStyles];
}
AcDbObjectId AcDbDatabase::dimStyleTableId() const {
    return m_core->m_tables[DatabaseCore::kDimStyles];
}
AcDbObjectId AcDbDatabase::regAppTableId() const {
    return m_core->m_tables[DatabaseCore::kRegApps];
}
AcDbObjectId AcDbDatabase::namedObjectsDictionaryId() const { return m_core->m_rootDictionary; }
AcDbObjectId AcDbDatabase::layerZero() const { return ObjectAccess::lookup(layerTableId(), L"0"); }
AcDbObjectId AcDbDatabase::continuousLinetype() const {
    return ObjectAccess::lookup(linetypeTableId(), L"Continuous");
}
AcDbObjectId AcDbDatabase::byLayerLinetype() const {
    return ObjectAccess::lookup(linetypeTableId(), L"ByLayer");
}
AcDbObjectId AcDbDatabase::byBlockLinetype() const {
    return ObjectAccess::lookup(linetypeTableId(), L"ByBlock");
}
AcDbObjectId AcDbDatabase::currentSpaceId() const { return m_core->currentSpaceId(); }

AcDbObjectId AcDbDatabase::clayer() const { return m_core->current(DatabaseCore::kLayer); }
AcDbObjectId AcDbDatabase::celtype() const { return m_core->current(DatabaseCore::kLinetype); }
AcDbObjectId AcDbDatabase::textstyle() const { return m_core->current(DatabaseCore::kTextStyle); }
AcDbObjectId AcDbDatabase::dimstyle() const { return m_core->current(DatabaseCore::kDimStyle); }

// The variables are the one place where these values live; setting them there records them for
// undo.
Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId id) {
    const Acad::ErrorStatus es = checkRecord(*this, id, AcDbLayerTableRecord::desc());
    if (es != Acad::eOk) return es;
    if (static_cast<AcDbLayerTableRecord*>(static_cast<AcDbStub*>(id)->object)->isFrozen())
        return Acad::eInvalidLayer;
    m_core->variables().force(L"CLAYER", ObjectAccess::recordName(id));
    return Acad::eOk;
}
Acad::ErrorStatus AcDbDatabase::setCeltype(AcDbObjectId id) {
    const Acad::ErrorStatus es = checkRecord(*this, id, AcDbLinetypeTableRecord::desc());
    if (es == Acad::eOk) m_core->variables().force(L"CELTYPE", ObjectAccess::recordName(id));
    return es;
}
Acad::ErrorStatus AcDbDatabase::setTextstyle(AcDbObjectId id) {
    const Acad::ErrorStatus es = checkRecord(*this, id, AcDbTextStyleTableRecord::desc());
    if (es == Acad::eOk) m_core->variables().force(L"TEXTSTYLE", ObjectAccess::recordName(id));
    return es;
}
Acad::ErrorStatus AcDbDatabase::setDimstyle(AcDbObjectId id) {
    const Acad::ErrorStatus es = checkRecord(*this, id, AcDbDimStyleTableRecord::desc());
    if (es == Acad::eOk) m_core->variables().force(L"DIMSTYLE", ObjectAccess::recordName(id));
    return es;
}

Adesk::UInt16 AcDbDatabase::cecolor() const {
    const std::wstring text = m_core->variables().text(L"CECOLOR");
    if (equalNoCase(text, L"BYLAYER")) return 256;
    if (const auto color = m_core->currentTrueColor())
        return static_cast<Adesk::UInt16>(nearestIndex(*color));
    double number = 0.0;
    return parseNumber(std::wstring_view(text), number) ? static_cast<Adesk::UInt16>(number) : 0;
}
Acad::ErrorStatus AcDbDatabase::setCecolor(Adesk::UInt16 index) {
    if (index > 256) return Acad::eInvalidInput;
    const std::wstring text = index == 256 ? L"BYLAYER"
                              : index == 0 ? L"BYBLOCK"
                                           : std::to_wstring(index);
    m_core->variables().force(L"CECOLOR", text);
    return Acad::eOk;
}
double AcDbDatabase::celtscale() const { return m_core->variables().real(L"CELTSCALE"); }
double AcDbDatabase::dimscale() const { return m_core->variables().real(L"DIMSCALE"); }
Acad::ErrorStatus AcDbDatabase::setDimscale(double scale) {
    return m_core->variables().set(L"DIMSCALE", scale).ok() ? Acad::eOk : Acad::eInvalidInput;
}
double AcDbDatabase::ltscale() const { return m_core->variables().real(L"LTSCALE"); }
Acad::ErrorStatus AcDbDatabase::setLtscale(double scale) {
    return m_core->variables().set(L"LTSCALE", scale).ok() ? Acad::eOk : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound,
                                                const AcDbHandle& handle) {
    id = AcDbObjectId(m_core->find(handle.value()));
    if (!id.isNull()) return Acad::eOk;
    if (!createIfNotFound || handle.isNull()) return Acad::eKeyNotFound;
    AcDbStub& stub = m_core->m_stubs.add();
    stub.database = this;
    id = AcDbObjectId(&stub);
    m_core->changeHandle(id, handle.value());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObjectId& id, AcDbObject* object) {
    id.setNull();
    if (object == nullptr) return Acad::eNullObjectPointer;
    if (!object->objectId().isNull()) return Acad::eAlreadyInDb;
    if (object->isKindOf(AcDbEntity::desc())) return Acad::eWrongObjectType;
    (void)m_core->makeResident(*object, object->ownerId());  // fails for taken handles only
    m_core->announce(*object);
    id = object->objectId();
    return Acad::eOk;
}

void AcDbDatabase::addReactor(AcDbDatabaseReactor* reactor) {
    auto& all = m_core->reactors();
    if (reactor != nullptr && std::find(all.begin(), all.end(), reactor) == all.end())
        all.push_back(reactor);
}
void AcDbDatabase::removeReactor(AcDbDatabaseReactor* reactor) {
    auto& all = m_core->reactors();
    all.erase(std::remove(all.begin(), all.end(), reactor), all.end());
}

AcDbHostApplicationServices* acdbHostApplicationServices() {
    static AcDbHostApplicationServices services;
    return &services;
}
