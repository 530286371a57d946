// SPDX-License-Identifier: MIT
// The drawing database, its reactors, and the services that give the working one.
#pragma once

#include "dbmain.h"

class AcDbBlockTable;
class AcDbBlockTableRecord;
class AcDbDictionary;
class AcDbDimStyleTable;
class AcDbLayerTable;
class AcDbLinetypeTable;
class AcDbRegAppTable;
class AcDbSymbolTable;
class AcDbTextStyleTable;

namespace prancheta {
class DatabaseCore;
}

/// Told of what happens to the objects of one database. Notified after the fact; the objects are
/// open for notification only: read them, do not open them for write inside.
class AcDbDatabaseReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabaseReactor);
    virtual void objectAppended(const AcDbDatabase*, const AcDbObject*) {}
    /// Undo took a new object out again; redo put it back.
    virtual void objectUnAppended(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectReAppended(const AcDbDatabase*, const AcDbObject*) {}
    /// At the close of an object that was changed, and after undo or redo gave it another state.
    virtual void objectModified(const AcDbDatabase*, const AcDbObject*) {}
    /// `erased` is false when the object was brought back.
    virtual void objectErased(const AcDbDatabase*, const AcDbObject*, Adesk::Boolean erased) {
        (void)erased;
    }
    virtual void goodbye(const AcDbDatabase*) {}
};

/// Pairs of original and copy made by one deep clone.
class AcDbIdMapping {
public:
    virtual ~AcDbIdMapping() = default;
    /// Null id when `original` was not cloned.
    virtual AcDbObjectId copyOf(AcDbObjectId original) const = 0;
};

class AcDbDatabase : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabase);

    /// With `buildDefaultDrawing`: layer 0, linetypes ByBlock, ByLayer, Continuous, styles
    /// Standard, model and paper space. Without: tables and spaces only.
    explicit AcDbDatabase(bool buildDefaultDrawing = true, bool noDocument = false);
    ~AcDbDatabase() override;
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbRegAppTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode) {
        return getSymbolTable(table, mode);
    }
    Acad::ErrorStatus getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode) {
        return getSymbolTable(table, mode);
    }
    Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& dictionary,
                                                AcDb::OpenMode mode = AcDb::kForRead);

    AcDbObjectId blockTableId() const;
    AcDbObjectId layerTableId() const;
    AcDbObjectId linetypeTableId() const;
    AcDbObjectId textStyleTableId() const;
    AcDbObjectId dimStyleTableId() const;
    AcDbObjectId regAppTableId() const;
    AcDbObjectId namedObjectsDictionaryId() const;
    AcDbObjectId layerZero() const;
    AcDbObjectId continuousLinetype() const;
    AcDbObjectId byLayerLinetype() const;
    AcDbObjectId byBlockLinetype() const;
    AcDbObjectId currentSpaceId() const;

    AcDbObjectId clayer() const;
    /// eNullObjectId, eInvalidLayer for a frozen layer.
    Acad::ErrorStatus setClayer(AcDbObjectId id);
    AcDbObjectId celtype() const;
    Acad::ErrorStatus setCeltype(AcDbObjectId id);
    Adesk::UInt16 cecolor() const;
    Acad::ErrorStatus setCecolor(Adesk::UInt16 index);
    double celtscale() const;
    AcDbObjectId textstyle() const;
    Acad::ErrorStatus setTextstyle(AcDbObjectId id);
    AcDbObjectId dimstyle() const;
    Acad::ErrorStatus setDimstyle(AcDbObjectId id);
    double dimscale() const;
    Acad::ErrorStatus setDimscale(double scale);
    double ltscale() const;
    Acad::ErrorStatus setLtscale(double scale);

    /// Reads a DXF file into a drawing that was made without the default one and is still empty.
    /// eFilerError for a file that cannot be read, eBadDxfSequence for a damaged one; the drawing
    /// is of no use then. The working database stays the one that it was.
    Acad::ErrorStatus dxfIn(const ACHAR* dxfFilename, const ACHAR* logFilename = nullptr);

    /// eUnknownHandle does not exist here: eKeyNotFound when no object has this handle.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound,
                                      const AcDbHandle& handle);
    /// Makes any object that is no entity resident (dictionaries' children and the like).
    Acad::ErrorStatus addAcDbObject(AcDbObjectId& id, AcDbObject* object);

    /// Copies the entities with their references among themselves translated, and appends the
    /// copies to `owner`. `mapping` may be null; the caller deletes it.
    Acad::ErrorStatus deepCloneObjects(const AcDbObjectIdArray& ids, AcDbObjectId owner,
                                       AcDbObjectIdArray& copies);

    void addReactor(AcDbDatabaseReactor* reactor);
    void removeReactor(AcDbDatabaseReactor* reactor);

    /// The host's own part.
    prancheta::DatabaseCore& core() const { return *m_core; }

private:
    std::unique_ptr<prancheta::DatabaseCore> m_core;
};

class AcDbHostApplicationServices : public AcRxObject {
public:
    AcDbDatabase* workingDatabase() const { return m_working; }
    void setWorkingDatabase(AcDbDatabase* database) { m_working = database; }

private:
    AcDbDatabase* m_working = nullptr;
};

AcDbHostApplicationServices* acdbHostApplicationServices();
