// SPDX-License-Identifier: MIT
// Who needs the records of a drawing: layers, blocks, styles, linetypes.
#pragma once

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "dbmain.h"

namespace prancheta {

/// Codes under which groups of files refer to other objects by their handles.
bool isReference(int code);

/// Looks at the whole drawing once. A record is needed by what refers to it: objects, other
/// records, variables, and what the drawing keeps of foreign files, by handle or by name. What lies
/// in a block counts as the block. O(objects + groups kept).
class RecordUsers {
public:
    explicit RecordUsers(AcDbDatabase& database);

    /// Nothing but itself needs it.
    bool isUnused(AcDbObjectId record) const;
    /// The record goes, and with it its needs.
    void gone(AcDbObjectId record);

private:
    void takeObject(const AcDbObject& object);
    void takeVariables();
    template <class Tags>
    void takeTags(AcDbStub* user, const Tags& tags);
    void takeName(AcDbStub* user, std::wstring_view name);
    void add(AcDbStub* user, AcDbObjectId needed);

    AcDbDatabase& m_database;
    std::unordered_map<AcDbStub*, std::unordered_set<AcDbStub*>> m_needs;  ///< null: the drawing
    std::unordered_map<AcDbStub*, std::size_t> m_users;
};

}  // namespace prancheta
