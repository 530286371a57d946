// SPDX-License-Identifier: MIT
// Associative hatches follow the objects of their boundary.
#pragma once

#include <string>
#include <unordered_set>

#include "dbhatch.h"

namespace prancheta {

class DisplayList;

/// Notes what changes in a drawing; at the end of each step of undo the hatches that depend on it
/// are made anew inside that step. It depends on an object when that has the hatch among its
/// persistent reactors and the hatch names it as a source.
class HatchFollower : public AcDbDatabaseReactor {
public:
    /// Follows `database`, which must outlive it.
    explicit HatchFollower(AcDbDatabase& database);
    ~HatchFollower() override;
    HatchFollower(const HatchFollower&) = delete;
    HatchFollower& operator=(const HatchFollower&) = delete;

    /// Lines for the user about hatches that no longer follow; empty: all went well.
    std::wstring follow(DisplayList& display);
    /// What was noted so far does not count: undo and redo bring hatches back themselves.
    void forget();

    void objectAppended(const AcDbDatabase*, const AcDbObject* object) override { note(object); }
    void objectModified(const AcDbDatabase*, const AcDbObject* object) override { note(object); }
    void objectErased(const AcDbDatabase*, const AcDbObject* object,
                      Adesk::Boolean erased) override {
        if (erased) note(object);
    }

private:
    void note(const AcDbObject* object);

    AcDbDatabase& m_database;
    std::unordered_set<AcDbStub*> m_changed;
};

/// Names the hatch to the objects that bound it, so that it is followed; the hatch is open for
/// read or write.
void tieToSources(const AcDbHatch& hatch);

}  // namespace prancheta
