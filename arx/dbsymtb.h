// SPDX-License-Identifier: MIT
// Symbol tables: layers, linetypes, styles, blocks, registered applications.
#pragma once

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "dbapserv.h"

class AcDbSymbolTableRecord : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord);

    /// The caller frees the text with acutDelString.
    Acad::ErrorStatus getName(ACHAR*& name) const;
    Acad::ErrorStatus getName(const ACHAR*& name) const;
    /// eInvalidKey for an empty name or a forbidden character, eDuplicateRecordName when it is
    /// taken.
    Acad::ErrorStatus setName(const ACHAR* name);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

protected:
    AcDbSymbolTableRecord() = default;
    Acad::ErrorStatus subErase(Adesk::Boolean erasing) override;

private:
    friend struct prancheta::ObjectAccess;
    std::wstring m_name;
};

/// Visits the records of a table in the order in which they were added.
class AcDbSymbolTableIterator {
public:
    explicit AcDbSymbolTableIterator(std::vector<AcDbObjectId> ids) : m_ids(std::move(ids)) {}
    void start() { m_at = 0; }
    bool done() const { return m_at >= m_ids.size(); }
    void step() { ++m_at; }
    Acad::ErrorStatus getRecordId(AcDbObjectId& id) const {
        if (done()) return Acad::eInvalidIndex;
        id = m_ids[m_at];
        return Acad::eOk;
    }

private:
    std::vector<AcDbObjectId> m_ids;
    std::size_t m_at = 0;
};

class AcDbSymbolTable : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTable);

    /// Names are found without regard to case. eKeyNotFound; `id` is null then.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id, bool getErased = false) const;
    bool has(const ACHAR* name) const;
    bool has(AcDbObjectId id) const;
    /// The database owns the record afterwards; it stays open for write. eDuplicateRecordName.
    Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
    Acad::ErrorStatus add(AcDbSymbolTableRecord* record);
    /// The caller deletes the iterator.
    Acad::ErrorStatus newIterator(AcDbSymbolTableIterator*& iterator) const;

protected:
    AcDbSymbolTable() = default;

private:
    friend struct prancheta::ObjectAccess;
    std::vector<AcDbObjectId> m_records;
    std::unordered_map<std::wstring, AcDbObjectId> m_byName;  // key in lower case
};

class AcDbLinetypeTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbLinetypeTableRecord);
    AcDbLinetypeTableRecord() = default;

    std::wstring comments() const { return m_comments; }
    Acad::ErrorStatus setComments(const ACHAR* text);
    int numDashes() const { return static_cast<int>(m_dashes.size()); }
    Acad::ErrorStatus setNumDashes(int count);
    /// Positive dash, negative gap, 0 dot; drawing units at scale 1.
    double dashLengthAt(int index) const { return m_dashes[static_cast<std::size_t>(index)]; }
    Acad::ErrorStatus setDashLengthAt(int index, double length);
    /// Sum of the absolute lengths.
    double patternLength() const;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct prancheta::ObjectAccess;
    std::wstring m_comments;
    std::vector<double> m_dashes;
};

class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord);
    AcDbLayerTableRecord() = default;

    bool isFrozen() const { return m_frozen; }
    bool isLocked() const { return m_locked; }
    bool isOff() const { return m_off; }
    bool isPlottable() const { return m_plottable; }
    /// eInvalidLayer: the current layer cannot be frozen.
    Acad::ErrorStatus setIsFrozen(bool frozen);
    Acad::ErrorStatus setIsLocked(bool locked);
    Acad::ErrorStatus setIsOff(bool off);
    Acad::ErrorStatus setIsPlottable(bool plottable);
    Adesk::UInt16 colorIndex() const { return m_color; }
    /// eInvalidInput outside 1..255.
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 index);
    AcDbObjectId linetypeObjectId() const;
    Acad::ErrorStatus setLinetypeObjectId(AcDbObjectId id);
    AcDb::LineWeight lineWeight() const { return static_cast<AcDb::LineWeight>(m_lineWeight); }
    Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct prancheta::ObjectAccess;
    AcDbObjectId m_linetype;
    Adesk::UInt16 m_color = 7;
    Adesk::Int16 m_lineWeight = -3;
    bool m_frozen = false;
    bool m_locked = false;
    bool m_off = false;
    bool m_plottable = true;
};

class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord);
    AcDbTextStyleTableRecord() = default;

    /// 0: each text has its own height.
    double textSize() const { return m_textSize; }
    Acad::ErrorStatus setTextSize(double size);
    double xScale() const { return m_xScale; }
    Acad::ErrorStatus setXScale(double scale);
    /// From upright, radians; less than 85 degrees.
    double obliquingAngle() const { return m_oblique; }
    Acad::ErrorStatus setObliquingAngle(double angle);
    std::wstring fileName() const { return m_fileName; }
    Acad::ErrorStatus setFileName(const ACHAR* name);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct prancheta::ObjectAccess;
    double m_textSize = 0.0;
    double m_xScale = 1.0;
    double m_oblique = 0.0;
    std::wstring m_fileName = L"txt";
};

/// Sizes in drawing units at dimscale 1; the names are those of the dimension variables.
struct AcDbDimStyleValues {
    double dimscale = 1.0;
    double dimasz = 2.5;
    double dimexo = 0.625;
    double dimdli = 3.75;
    double dimexe = 1.25;
    double dimtxt = 2.5;
    double dimgap = 0.625;
    Adesk::Int16 dimtad = 1;
    Adesk::Int16 dimtih = 0;
    Adesk::Int16 dimtoh = 0;
    Adesk::Int16 dimdec = 2;
    Adesk::Int16 dimzin = 8;
    Adesk::Int16 dimdsep = L',';
    double dimlfac = 1.0;       ///< measured lengths are multiplied by it
    double dimrnd = 0.0;        ///< and rounded to it; 0 rounds by the decimals alone
    double dimtsz = 0.0;        ///< oblique strokes of this size instead of arrows
    Adesk::Int16 dimtix = 0;    ///< 1: the text stays between the extension lines
    Adesk::Int16 dimadec = -1;  ///< decimals of degrees; -1: as dimdec
    Adesk::Int16 dimse1 = 0;    ///< 1: without the first extension line
    Adesk::Int16 dimse2 = 0;
    Adesk::Int16 dimsah = 0;  ///< 1: dimblk1 and dimblk2 instead of dimblk
    Adesk::Int16 dimclrd = 0;
    Adesk::Int16 dimclre = 0;
    Adesk::Int16 dimclrt = 0;
    std::wstring dimpost;  ///< text about "<>", the measured value; without "<>" it follows it
    /// Blocks drawn for arrows; null is the filled arrow.
    AcDbObjectId dimblk;
    AcDbObjectId dimblk1;
    AcDbObjectId dimblk2;
};

class AcDbDimStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbDimStyleTableRecord);
    AcDbDimStyleTableRecord() = default;

    const AcDbDimStyleValues& values() const { return m_values; }
    Acad::ErrorStatus setValues(const AcDbDimStyleValues& values);
    AcDbObjectId dimtxsty() const { return m_textStyle; }
    Acad::ErrorStatus setDimtxsty(AcDbObjectId id);
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct prancheta::ObjectAccess;
    AcDbDimStyleValues m_values;
    AcDbObjectId m_textStyle;
};

class AcDbRegAppTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbRegAppTableRecord);
    AcDbRegAppTableRecord() = default;
};

class AcDbBlockTableRecordIterator {
public:
    explicit AcDbBlockTableRecordIterator(std::vector<AcDbObjectId> ids) : m_ids(std::move(ids)) {}
    void start() { m_at = 0; }
    bool done() const { return m_at >= m_ids.size(); }
    void step() { ++m_at; }
    Acad::ErrorStatus getEntityId(AcDbObjectId& id) const {
        if (done()) return Acad::eInvalidIndex;
        id = m_ids[m_at];
        return Acad::eOk;
    }

private:
    std::vector<AcDbObjectId> m_ids;
    std::size_t m_at = 0;
};

class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord);
    AcDbBlockTableRecord() = default;

    /// After success the database owns the entity, which stays open for write until close(). On
    /// failure (eAlreadyInDb, eNullEntityPointer) the caller still owns it.
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
    /// Entities that are not erased, in drawing order. The caller deletes the iterator.
    Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator) const;
    AcGePoint3d origin() const { return m_origin; }
    Acad::ErrorStatus setOrigin(const AcGePoint3d& origin);
    bool isAnonymous() const;
    bool isLayout() const;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct prancheta::ObjectAccess;
    AcGePoint3d m_origin;
    std::vector<AcDbObjectId> m_entities;
};

#define PRANCHETA_SYMBOL_TABLE(TABLE, RECORD)                                            \
    class TABLE : public AcDbSymbolTable {                                               \
    public:                                                                              \
        ACRX_DECLARE_MEMBERS(TABLE);                                                     \
        TABLE() = default;                                                               \
        using AcDbSymbolTable::getAt;                                                    \
        /* Opens the record of this name. */                                             \
        Acad::ErrorStatus getAt(const ACHAR* name, RECORD*& record, AcDb::OpenMode mode, \
                                bool openErased = false) const {                         \
            AcDbObjectId id;                                                             \
            record = nullptr;                                                            \
            const Acad::ErrorStatus es = getAt(name, id, openErased);                    \
            return es != Acad::eOk ? es : acdbOpenObject(record, id, mode, openErased);  \
        }                                                                                \
    }

PRANCHETA_SYMBOL_TABLE(AcDbBlockTable, AcDbBlockTableRecord);
PRANCHETA_SYMBOL_TABLE(AcDbLayerTable, AcDbLayerTableRecord);
PRANCHETA_SYMBOL_TABLE(AcDbLinetypeTable, AcDbLinetypeTableRecord);
PRANCHETA_SYMBOL_TABLE(AcDbTextStyleTable, AcDbTextStyleTableRecord);
PRANCHETA_SYMBOL_TABLE(AcDbDimStyleTable, AcDbDimStyleTableRecord);
PRANCHETA_SYMBOL_TABLE(AcDbRegAppTable, AcDbRegAppTableRecord);
