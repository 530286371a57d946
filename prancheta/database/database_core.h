// SPDX-License-Identifier: MIT
// The host's part of a drawing database: objects, handles, undo, variables, what foreign files brought.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "dbapserv.h"
#include "prancheta/database/sysvars.h"
#include "prancheta/database/undo.h"

/// One object's record. Lives as long as its database, also when the object is erased.
class AcDbStub {
public:
    AcDbDatabase* database = nullptr;
    AcDbObject* object = nullptr;  ///< owned
    Adesk::UInt64 handle = 0;
    std::int16_t readers = 0;
    bool writer = false;
    bool erased = false;    ///< erased, or taken out by undo
    bool isNew = false;     ///< appended and not yet closed
    bool recorded = false;  ///< state kept for undo since it was opened for write
    bool modified = false;  ///< changed since it was opened for write
    std::uint8_t notifying = 0;
};

namespace prancheta {

/// One group of a DXF file as it stands: code and text of the value (UTF-8, not trimmed).
struct RawTag {
    int code = 0;
    std::string value;
};
using RawTags = std::vector<RawTag>;

struct ObjectExtra {
    RawTags xdata;    ///< 1001 and what follows it, all applications
    RawTags foreign;  ///< groups of an opened file that the class does not model, in file order
    std::vector<AcDbObjectId> reactors;
    AcDbObjectId extensionDictionary;
};

/// Whatever an opened file held that no object stands for; written back as it was.
struct ForeignContent {
    std::string acadVersion;                         ///< "AC1032", empty for a new drawing
    std::vector<std::pair<std::string, RawTags>> header;  ///< variables that the host does not keep
    RawTags classes;                                 ///< section CLASSES
    std::vector<std::pair<std::string, RawTags>> tables;  ///< whole tables that the host does not keep (VIEW, UCS, VPORT)
    std::vector<RawTags> objects;                    ///< objects of section OBJECTS not kept as objects
    std::vector<RawTags> sections;                   ///< whole unknown sections
};

class DatabaseCore {
public:
    DatabaseCore(AcDbDatabase& database, bool buildDefaultDrawing);
    ~DatabaseCore();
    DatabaseCore(const DatabaseCore&) = delete;
    DatabaseCore& operator=(const DatabaseCore&) = delete;

    UndoLog& undo() { return m_undo; }
    SystemVariables& variables() { return m_variables; }
    ForeignContent& foreign() { return m_foreign; }

    /// Makes an object resident: gives it a record, a handle (0 = next free one) and an owner. The object is
    /// left open for write. False when the handle is taken.
    bool makeResident(AcDbObject& object, AcDbObjectId owner, Adesk::UInt64 handle = 0);
    /// Appends to a space or block with a handle of its own; for readers of files. Not recorded for undo
    /// when recording is off.
    Acad::ErrorStatus appendWithHandle(AcDbObjectId blockRecord, AcDbEntity* entity, Adesk::UInt64 handle, AcDbObjectId& id);
    AcDbStub* find(Adesk::UInt64 handle) const;
    Adesk::UInt64 nextHandle() const { return m_nextHandle; }
    /// Raises the next handle above `handle`.
    void reserveHandle(Adesk::UInt64 handle);

    AcDbObjectId modelSpaceId() const { return m_modelSpace; }
    AcDbObjectId paperSpaceId() const { return m_paperSpace; }

    /// Entities of model space that are not erased, in drawing order. O(entities).
    std::vector<AcDbObjectId> modelSpace() const;

    /// Finds or makes; the standard patterns (HIDDEN, CENTER, DASHED, PHANTOM) are known by name.
    AcDbObjectId ensureLayer(std::wstring_view name, Adesk::UInt16 color = 7);
    AcDbObjectId ensureLinetype(std::wstring_view name);
    AcDbObjectId ensureRegApp(std::wstring_view name);

    /// Reactors, in the order in which they were added.
    std::vector<AcDbDatabaseReactor*>& reactors() { return m_reactors; }
    void notifyAppended(const AcDbObject& object);
    void notifyModified(const AcDbObject& object);
    void notifyErased(const AcDbObject& object, bool erased);
    void notifyUnAppended(const AcDbObject& object, bool reAppended);

    /// Set by the editor to tell the front end; called for every entity that enters a space or is erased.
    std::function<void(const AcDbEntity&)> onEntityAppended;
    std::function<void(const AcDbEntity&)> onEntityErased;

    /// True when an entity of this class or one derived from it is in the database, erased ones included.
    bool hasObjectsOf(const AcRxClass* entityClass) const;

private:
    friend class ::AcDbDatabase;
    friend struct ObjectAccess;
    AcDbDatabase& m_database;
    std::deque<AcDbStub> m_stubs;
    std::unordered_map<Adesk::UInt64, AcDbStub*> m_byHandle;
    Adesk::UInt64 m_nextHandle = 1;
    AcDbObjectId m_tables[6];
    AcDbObjectId m_rootDictionary;
    AcDbObjectId m_modelSpace;
    AcDbObjectId m_paperSpace;
    std::vector<AcDbDatabaseReactor*> m_reactors;
    ForeignContent m_foreign;
    SystemVariables m_variables;
    UndoLog m_undo;
};

}  // namespace prancheta
