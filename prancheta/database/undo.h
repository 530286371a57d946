// SPDX-License-Identifier: MIT
// Undo and redo of whole commands.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "dbapserv.h"

namespace prancheta {

/// Log of what commands did to one database. Between begin() and end() every first change of an object in
/// one opening, every append and every erase is recorded; undo() takes the last group back by exchanging
/// the recorded state with the present one, so redo is the same exchange again. Changes made outside a group
/// are recorded as a group of their own without a name. Cost: O(objects touched).
class UndoLog {
public:
    explicit UndoLog(AcDbDatabase& database) : m_database(database) {}
    ~UndoLog();
    UndoLog(const UndoLog&) = delete;
    UndoLog& operator=(const UndoLog&) = delete;

    /// Groups nest: only the outermost pair counts. A group in which nothing happened leaves no trace
    /// and keeps what can be redone.
    void begin(std::wstring commandName);
    void end();
    bool inGroup() const { return m_depth > 0; }
    /// Takes back what the open group did so far (a failed command) and keeps the group open.
    void rollbackOpenGroup();

    bool canUndo() const { return !m_done.empty(); }
    bool canRedo() const { return !m_undone.empty(); }
    /// False when there is nothing; `name` receives the command's name.
    bool undo(std::wstring* name = nullptr);
    bool redo(std::wstring* name = nullptr);

    /// UNDO Mark and Back; UNDO Begin and End.
    void mark();
    bool backToMark();
    void beginUserGroup();
    void endUserGroup();

    void clear();
    std::size_t groupCount() const { return m_done.size(); }
    /// Grows with every change and shrinks with undo: equal numbers mean equal drawings.
    std::uint64_t revision() const { return m_revision; }

    /// Called by the database. Nothing is recorded while undo or redo runs or recording is off.
    void recordModified(AcDbObject& object);
    void recordAppended(AcDbObject& object);
    void recordErased(AcDbObject& object, bool erased);
    /// A database variable (current layer, DIMSCALE, ...) was changed; `restore` exchanges its value.
    void recordVariable(std::wstring name);
    void setRecording(bool on) { m_recording = on; }
    bool undoing() const { return m_undoing; }

private:
    struct Record;
    struct Group;
    void exchange(Group& group, bool backwards);

    AcDbDatabase& m_database;
    std::deque<Group> m_done;
    std::vector<Group> m_undone;
    int m_depth = 0;
    int m_userDepth = 0;
    bool m_recording = true;
    bool m_undoing = false;
    std::uint64_t m_revision = 0;
};

}  // namespace prancheta
