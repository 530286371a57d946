// SPDX-License-Identifier: MIT
// Undo and redo of whole commands.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "dbapserv.h"
#include "prancheta/database/sysvars.h"

namespace prancheta {

/// Log of what commands did to one database. Between begin() and end() the state before an object's
/// first change, every append and every erase are recorded; undo() takes the last group back by
/// exchanging the recorded state with the present one, so redo is the same exchange again. An
/// object that the group appended has no state in it: it goes and comes as a whole. Changes made
/// outside a group are recorded as a group of their own without a name. Cost: O(objects touched)
/// memory; a change of an object that the group knows keeps its state only until the access ends,
/// so that cancel() can give it up.
class UndoLog {
public:
    explicit UndoLog(AcDbDatabase& database);
    ~UndoLog();
    UndoLog(const UndoLog&) = delete;
    UndoLog& operator=(const UndoLog&) = delete;

    /// Groups nest: only the outermost pair counts. A group in which nothing happened leaves no
    /// trace and keeps what can be redone.
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

    /// UNDO Mark and Back; false and no change when there is no mark.
    void mark();
    bool backToMark();
    /// UNDO Begin and End: the groups in between become one. Until then undo takes them back one by
    /// one.
    void beginUserGroup();
    void endUserGroup();
    /// The same for a script, whatever user groups it begins and ends: those that it leaves open
    /// end with it.
    void beginScriptGroup();
    void endScriptGroup();

    void clear();
    std::size_t groupCount() const;
    /// Grows with every change and shrinks with undo: equal numbers mean equal drawings.
    std::uint64_t revision() const { return m_revision; }

    /// Called by the database. Nothing is recorded while undo or redo runs or recording is off.
    void recordModified(AcDbObject& object);
    void recordAppended(AcDbObject& object);
    void recordErased(AcDbObject& object, bool erased);
    /// A database variable (current layer, DIMSCALE, ...) is about to change; its present value is
    /// kept.
    void recordVariable(std::wstring name);
    /// Gives up what was recorded of an object since it was opened for write: state and erasure are
    /// as they were, a new object is taken out. What recording missed stays.
    void takeBack(AcDbObject& object);
    /// An access for write ended: what takeBack() would have needed goes.
    void settled(const AcDbStub* stub);
    /// To be called right after opening a large object for write by who will not cancel(): saves
    /// keeping its state for that when the group holds one already.
    void willNotCancel(AcDbObject& object);
    void setRecording(bool on) { m_recording = on; }
    bool undoing() const { return m_undoing; }

private:
    friend class UndoSteps;
    struct Record;
    struct Group;
    struct SavedVariable {
        std::wstring name;
        VariableValue value;
    };
    /// Dwg fields of an object behind their length.
    using SavedState = std::unique_ptr<char[]>;
    static SavedState stateOf(const AcDbObject& object);
    static void putBack(AcDbObject& object, const SavedState& state);

    void add(Record record, SavedVariable* variable = nullptr);
    bool holds(const AcDbStub* stub) const;
    void startGroup();
    void exchange(Group& group, bool backwards);
    void exchangeRecord(Group& group, Record& record, bool backwards);
    void notify(const Group& group, bool backwards);
    void flushOpenGroup();
    void closeGroup(Group group);
    static void append(Group& whole, Group& later);
    void merge(std::size_t start);
    void forgetStale();
    bool takeLast(const AcDbStub* stub, int kind, Record& taken);

    AcDbDatabase& m_database;
    std::vector<Group> m_done;
    std::vector<Group> m_undone;
    std::unique_ptr<Group> m_open;
    /// States at the opening of objects that the open group knows, as long as they are open.
    std::unordered_map<const AcDbStub*, SavedState> m_opened;
    std::uint32_t m_group = 0;  // number of the open group, which its objects' records carry
    std::vector<std::size_t> m_marks;
    int m_depth = 0;
    int m_userDepth = 0;
    std::size_t m_userStart = 0;
    std::optional<std::size_t> m_scriptStart;
    int m_depthBeforeScript = 0;  // of user groups
    bool m_recording = true;
    bool m_undoing = false;
    std::uint64_t m_revision = 0;
    std::uint64_t m_lastRevision = 0;
};

/// What the open group does while this lives is kept in steps, which can be taken back one by one;
/// at the end they are one again, part of the open group. The group has to live longer.
class UndoSteps {
public:
    explicit UndoSteps(UndoLog& log);
    ~UndoSteps();
    UndoSteps(const UndoSteps&) = delete;
    UndoSteps& operator=(const UndoSteps&) = delete;

    /// Here one step ends; a step in which nothing happened is none.
    void next() { m_log.flushOpenGroup(); }
    /// Takes the last step back for good; false when there is none.
    bool undo();

private:
    UndoLog& m_log;
    std::size_t m_before;  // groups that were there; with what the open one did before the steps
    std::size_t m_first;
};

}  // namespace prancheta
