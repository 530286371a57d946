// SPDX-License-Identifier: MIT
// Dimensions that stay with what they measure.
#pragma once

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "dbapserv.h"
#include "dbdim.h"

namespace prancheta {

class DisplayList;
class Editor;

/// A point of a dimension that lies on a snap point of an entity is tied to it: the dimension keeps
/// in its extended data which point of which entity, so that the tie is saved, undone and copied
/// with both. At the end of each command the dimensions follow what was changed. One that was moved
/// away from what it measured is tied to it no more.
class DimensionTies : public AcDbDatabaseReactor {
public:
    /// Follows `database`, which must outlive it. O(entities of the spaces).
    explicit DimensionTies(AcDbDatabase& database);
    ~DimensionTies() override;

    /// Ties each measured point of a new dimension to the topmost entity that has a snap point
    /// there.
    void tie(AcDbObjectId dimension, DisplayList& display);
    /// The end of a command, inside its step of undo.
    void settle();

    void objectAppended(const AcDbDatabase*, const AcDbObject* o) override { note(*o); }
    void objectModified(const AcDbDatabase*, const AcDbObject* o) override { note(*o); }
    void objectErased(const AcDbDatabase*, const AcDbObject* o, Adesk::Boolean) override {
        note(*o);
    }

private:
    void note(const AcDbObject& object);
    void index(AcDbObjectId dimension);
    void follow(AcDbObjectId dimension);

    AcDbDatabase& m_database;
    bool m_settling = false;
    std::unordered_map<const AcDbStub*, std::vector<AcDbObjectId>> m_byTarget;
    std::vector<AcDbObjectId> m_changed;  ///< since the last command, each once
    std::unordered_set<const AcDbStub*> m_changedOnes;
};

/// Of a dimension that was just drawn.
void tieDimension(Editor& editor, AcDbObjectId dimension);

}  // namespace prancheta
