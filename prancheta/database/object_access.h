// SPDX-License-Identifier: MIT
// The host's door to the private parts of objects; no checks, no notifications, no undo unless
// said.
#pragma once

#include <optional>

#include "dbdict.h"
#include "dbsymtb.h"
#include "dbxrecrd.h"
#include "prancheta/database/database_core.h"
#include "prancheta/graphics/palette.h"

namespace prancheta {

struct ObjectAccess {
    // Every object.
    static AcDbStub* stub(const AcDbObject& o) { return o.m_stub; }
    static void setStub(AcDbObject& o, AcDbStub* stub) { o.m_stub = stub; }
    static void setOwner(AcDbObject& o, AcDbObjectId owner) { o.m_owner = owner; }
    /// Null when the object has none.
    static const ObjectExtra* extra(const AcDbObject& o) { return o.m_extra.get(); }
    static ObjectExtra& makeExtra(AcDbObject& o) {
        if (!o.m_extra) o.m_extra = std::make_unique<ObjectExtra>();
        return *o.m_extra;
    }
    /// Frees the extra part when nothing is in it.
    static void dropEmptyExtra(AcDbObject& o);
    /// Forgets the true colour that a file gave the object: it would go over a colour index.
    static void dropTrueColor(AcDbObject& o);
    /// That of an entity or layer.
    static std::optional<Rgb> trueColor(const AcDbObject& o);
    /// Over the index, for an entity or layer without one.
    static void setTrueColor(AcDbObject& o, Rgb color);
    /// False when the object or one of those that own it is erased: such objects are not written to
    /// files. An erased entity keeps its extension dictionary, for undo.
    static bool isAlive(const AcDbObject& o);

    // Entities: as they are stored, null meaning "not set" (layer) and "by layer" (linetype).
    static AcDbObjectId layer(const AcDbEntity& e) { return AcDbObjectId(e.m_layer); }
    static void setLayer(AcDbEntity& e, AcDbObjectId id) { e.m_layer = id; }
    static AcDbObjectId linetype(const AcDbEntity& e) { return AcDbObjectId(e.m_linetype); }
    static void setLinetype(AcDbEntity& e, AcDbObjectId id) { e.m_linetype = id; }
    static void setColor(AcDbEntity& e, Adesk::UInt16 color) { e.m_color = color; }
    /// Factor, above 0.
    static void setLinetypeScale(AcDbEntity& e, double scale) { e.m_linetypeScale = scale; }
    static void setLineWeight(AcDbEntity& e, Adesk::Int16 weight) { e.m_lineWeight = weight; }
    static void setVisible(AcDbEntity& e, bool visible) { e.m_visibility = visible ? 0 : 1; }

    // Symbol tables. Records appear in the order in which they were added, erased ones included.
    static const std::vector<AcDbObjectId>& records(const AcDbSymbolTable& t) {
        return t.m_records;
    }
    static std::vector<AcDbObjectId>& records(AcDbSymbolTable& t) { return t.m_records; }
    static const std::wstring& name(const AcDbSymbolTableRecord& r) { return r.m_name; }
    /// Any name, also a forbidden one of a file; the table of a resident record finds it by it.
    static void setName(AcDbSymbolTableRecord& r, std::wstring name);
    /// Last record of this name; erased ones only when asked for.
    static AcDbObjectId lookup(const AcDbSymbolTable& t, std::wstring_view name,
                               bool erased = false);
    /// The living one; null when there is none, or no such table.
    static AcDbObjectId lookup(AcDbObjectId table, std::wstring_view name) {
        const AcDbStub* const stub = table;
        if (stub == nullptr || stub->object == nullptr) return {};
        return lookup(static_cast<const AcDbSymbolTable&>(*stub->object), name);
    }
    /// Empty for null.
    static std::wstring recordName(AcDbObjectId record) {
        const AcDbStub* const stub = record;
        if (stub == nullptr || stub->object == nullptr) return {};
        return name(static_cast<const AcDbSymbolTableRecord&>(*stub->object));
    }
    /// Makes the record resident in the table (handle 0: the next free one) and leaves it open for
    /// write. False when name or handle is taken; the caller still owns the record then. Announced.
    static bool addRecord(AcDbSymbolTable& t, AcDbSymbolTableRecord* record,
                          Adesk::UInt64 handle = 0);
    /// To be called when an object came back: its table or dictionary finds it by name again.
    static void cameBack(AcDbObject& o);

    static const std::vector<AcDbObjectId>& entities(const AcDbBlockTableRecord& r) {
        return r.m_entities;
    }
    static std::vector<AcDbObjectId>& entities(AcDbBlockTableRecord& r) { return r.m_entities; }
    static void setFrozen(AcDbLayerTableRecord& r, bool frozen) { r.m_frozen = frozen; }
    /// Drawing units at scale 1; below 0 a gap, 0 a dot.
    static std::vector<double>& dashes(AcDbLinetypeTableRecord& r) { return r.m_dashes; }

    // Dictionaries. Entries whose object is erased are still listed.
    static const std::vector<std::pair<std::wstring, AcDbObjectId>>& entries(
        const AcDbDictionary& d) {
        return d.m_entries;
    }
    /// Adds an entry for an object that is (or will be) resident; a present one of this key is
    /// hidden.
    static void addEntry(AcDbDictionary& d, std::wstring key, AcDbObjectId id);

    static const resbuf* list(const AcDbXrecord& x) { return x.m_list; }
    /// Takes the list over.
    static void setList(AcDbXrecord& x, resbuf* list);

    // Databases.
    static StubPool& stubs(DatabaseCore& core) { return core.m_stubs; }

    /// Ends a write access: flags, notifications.
    static void finishWrite(AcDbObject& o);
};

}  // namespace prancheta
