// SPDX-License-Identifier: MIT
// The host's part of a drawing database: objects, handles, undo, variables, what foreign files
// brought.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "dbapserv.h"
#include "prancheta/database/handle_table.h"
#include "prancheta/database/object_extra.h"
#include "prancheta/database/stub_pool.h"
#include "prancheta/database/sysvars.h"
#include "prancheta/database/undo.h"
#include "prancheta/graphics/palette.h"

namespace prancheta {

/// Whatever an opened file held that no object stands for; written back as it was.
struct ForeignContent {
    std::string acadVersion;                              ///< "AC1032", empty for a new drawing
    std::vector<std::pair<std::string, RawTags>> header;  ///< variables that the host does not keep
    RawTags classes;                                      ///< section CLASSES
    std::vector<std::pair<std::string, RawTags>>
        tables;                     ///< whole tables that the host does not keep (VIEW, UCS, VPORT)
    RawTags shapeStyles;            ///< records of table STYLE without a name: files of shapes
    std::vector<RawTags> objects;   ///< objects of section OBJECTS not kept as objects
    std::vector<RawTags> sections;  ///< whole unknown sections
};

class DatabaseCore {
public:
    enum TableIndex { kBlocks, kLayers, kLinetypes, kTextStyles, kDimStyles, kRegApps };

    explicit DatabaseCore(AcDbDatabase& database);
    ~DatabaseCore();
    DatabaseCore(const DatabaseCore&) = delete;
    DatabaseCore& operator=(const DatabaseCore&) = delete;

    /// Once, right after the database knows its core: tables, spaces, default drawing.
    void build(bool buildDefaultDrawing);

    UndoLog& undo() { return m_undo; }
    SystemVariables& variables() { return m_variables; }
    /// Of CECOLOR, which new entities take.
    std::optional<Rgb> currentTrueColor() const;
    ForeignContent& foreign() { return m_foreign; }

    /// Makes an object resident: gives it a record, a handle (0 = next free one) and an owner. The
    /// object is left open for write. False when the handle is taken. Nobody is told and nothing is
    /// recorded, see announce().
    bool makeResident(AcDbObject& object, AcDbObjectId owner, Adesk::UInt64 handle = 0);
    /// Appends to a space or block with a handle of its own; for readers of files. Not recorded for
    /// undo when recording is off.
    Acad::ErrorStatus appendWithHandle(AcDbObjectId blockRecord, AcDbEntity* entity,
                                       Adesk::UInt64 handle, AcDbObjectId& id);
    AcDbStub* find(Adesk::UInt64 handle) const;
    Adesk::UInt64 nextHandle() const { return m_nextHandle; }
    /// Raises the next handle above `handle`.
    void reserveHandle(Adesk::UInt64 handle);
    /// Gives an object another handle; false when it is taken. The tables and spaces of a database
    /// made without the default drawing have none until then, so that they can take those of a
    /// file.
    bool changeHandle(AcDbObjectId id, Adesk::UInt64 handle);
    /// Gives the next free handles to all objects without one.
    void assignMissingHandles();

    /// Records for undo that the object was appended, and tells the reactors.
    void announce(AcDbObject& object);

    AcDbObjectId modelSpaceId() const { return m_modelSpace; }
    /// The sheet whose block has the name that every drawing knows.
    AcDbObjectId paperSpaceId() const;
    /// New entities go there; the model again when its block goes.
    AcDbObjectId currentSpaceId() const;
    void setCurrentSpace(AcDbObjectId block) { m_currentSpace = block; }

    /// Current layer, linetype, text style, dimension style.
    enum Current { kLayer, kLinetype, kTextStyle, kDimStyle };
    AcDbObjectId current(Current which) const { return m_current[which]; }
    /// To be called after a record got another name or other values: variables that show it follow.
    void recordChanged(const AcDbObject& record);

    /// Entities of model space that are not erased, in drawing order. O(entities).
    std::vector<AcDbObjectId> modelSpace() const;

    /// Finds or makes (null id for a name that is not allowed); the standard patterns (HIDDEN,
    /// CENTER, DASHED, PHANTOM) are known by name.
    AcDbObjectId ensureLayer(std::wstring_view name, Adesk::UInt16 color = 7);
    AcDbObjectId ensureLinetype(std::wstring_view name);
    AcDbObjectId ensureRegApp(std::wstring_view name);

    /// Reactors, in the order in which they were added.
    std::vector<AcDbDatabaseReactor*>& reactors() { return m_reactors; }
    void notifyAppended(const AcDbObject& object);
    void notifyModified(const AcDbObject& object);
    void notifyErased(const AcDbObject& object, bool erased);
    void notifyUnAppended(const AcDbObject& object, bool reAppended);
    /// Whether somebody was not told of a change for want of memory since this was asked last: what
    /// was done has to be taken back.
    bool takeUntold() { return std::exchange(m_untold, false); }

    /// Set by the editor to tell the front end; called for every entity that enters a space (when
    /// it is closed for the first time, brought back or redone) or goes (erased, undone).
    std::function<void(const AcDbEntity&)> onEntityAppended;
    std::function<void(const AcDbEntity&)> onEntityErased;

    /// Layer 0, the three linetypes, style Standard of texts and dimensions, application ACAD: adds
    /// what is missing and makes it current where nothing is. Readers of files call it at the end.
    void addRequiredRecords();

    /// True when an entity of this class or one derived from it is in the database, erased ones
    /// included.
    bool hasObjectsOf(const AcRxClass* entityClass) const;

private:
    friend class ::AcDbDatabase;
    friend struct ObjectAccess;
    void linkVariables();
    Result<void> checkVariable(const VariableInfo& info, const VariableValue& value) const;
    void variableChanged(VariableInfo& info);
    bool textFollows() const;
    void showCurrent();
    void showDimStyle();

    AcDbDatabase& m_database;
    StubPool m_stubs;
    HandleTable m_byHandle;
    Adesk::UInt64 m_nextHandle = 1;
    AcDbObjectId m_tables[6];
    AcDbObjectId m_rootDictionary;
    AcDbObjectId m_modelSpace;
    AcDbObjectId m_currentSpace;
    AcDbObjectId m_current[4];
    bool m_untold = false;
    bool m_textFollows = true;  ///< TEXTSIZE goes with the DIMSCALE that is being set
    std::vector<AcDbDatabaseReactor*> m_reactors;
    ForeignContent m_foreign;
    SystemVariables m_variables;
    UndoLog m_undo;
};

}  // namespace prancheta
