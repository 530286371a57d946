// SPDX-License-Identifier: MIT
// Undo and redo. A record holds the state that the drawing does not have; going back or forth
// exchanges the two, so both directions are one code. Cost: O(records of the group).
#include "prancheta/database/undo.h"

#include <algorithm>
#include <cstring>
#include <unordered_set>
#include <utility>

#include "prancheta/base/memory.h"
#include "prancheta/base/raised.h"
#include "prancheta/database/memory_filer.h"
#include "prancheta/database/object_access.h"

namespace prancheta {

struct UndoLog::Record {
    enum Kind : std::uint8_t { Modified, Appended, Erased, Variable };
    AcDbStub* stub = nullptr;
    SavedState state;
    std::uint32_t variable = 0;  // place in the group's list
    Kind kind = Modified;
    bool erased = false;  // Erased: what the object became
};

struct UndoLog::Group {
    std::wstring name;
    std::vector<Record> records;
    std::vector<SavedVariable> variables;
    std::uint64_t before = 0;  // revisions
    std::uint64_t after = 0;
};

namespace {

/// The next one finds it: what was done must not be lost for want of a place.
template <class Group>
void makeRoom(std::vector<Group>& groups) {
    if (groups.size() == groups.capacity()) groups.reserve(2 * groups.size() + 1);
}

}  // namespace

UndoLog::UndoLog(AcDbDatabase& database) : m_database(database) {}
UndoLog::~UndoLog() = default;

// --- States --------------------------------------------------------------------------------------

UndoLog::SavedState UndoLog::stateOf(const AcDbObject& object) {
    MemoryFiler filer(AcDb::kUndoFiler);
    (void)object.dwgOutFields(&filer);  // what it failed to write it fails to read, too
    const std::size_t size = filer.bytes().size();
    auto state = std::make_unique_for_overwrite<char[]>(sizeof size + size);
    std::memcpy(state.get(), &size, sizeof size);
    std::copy(filer.bytes().begin(), filer.bytes().end(), state.get() + sizeof size);
    return state;
}

void UndoLog::putBack(AcDbObject& object, const SavedState& state) {
    AcDbStub& stub = *ObjectAccess::stub(object);
    const bool writer = std::exchange(stub.writer, true);
    const bool modified = stub.modified;
    std::size_t size = 0;
    std::memcpy(&size, state.get(), sizeof size);
    MemoryFiler filer(AcDb::kUndoFiler, {state.get() + sizeof size, size});
    (void)object.dwgInFields(&filer);
    stub.writer = writer;
    stub.modified = modified;
    stub.recorded = false;
}

// --- Groups --------------------------------------------------------------------------------------

/// What was known of objects is no longer that of the open group; those that stay open are recorded
/// anew when they change again.
void UndoLog::startGroup() {
    ++m_group;
    for (const auto& [stub, state] : m_opened) const_cast<AcDbStub*>(stub)->recorded = false;
    m_opened.clear();
}

void UndoLog::begin(std::wstring commandName) {
    if (m_depth == 0) {
        auto open = std::make_unique<Group>();
        open->name = std::move(commandName);
        open->before = m_revision;
        makeRoom(m_done);
        startGroup();
        m_open = std::move(open);
    }
    ++m_depth;
}

void UndoLog::end() {
    if (m_depth == 0 || --m_depth > 0) return;
    const std::unique_ptr<Group> group = std::move(m_open);
    closeGroup(std::move(*group));
    startGroup();
}

void UndoLog::closeGroup(Group group) {
    if (group.records.empty()) return;
    // An object that stays open beyond the group is recorded anew when it changes again.
    for (const Record& record : group.records)
        if (record.stub != nullptr) record.stub->recorded = false;
    group.after = m_revision;
    group.records.shrink_to_fit();
    m_undone.clear();
    m_done.push_back(std::move(group));
}

void UndoLog::flushOpenGroup() {
    if (m_open == nullptr || m_open->records.empty()) return;
    Group group;
    group.name = m_open->name;
    std::swap(group, *m_open);
    closeGroup(std::move(group));
    startGroup();
    m_open->before = m_revision;
}

void UndoLog::rollbackOpenGroup() {
    if (m_open == nullptr || m_open->records.empty() || m_undoing) return;
    exchange(*m_open, true);
    m_open->records.clear();
    m_open->variables.clear();
    startGroup();
    m_revision = m_open->before;
}

bool UndoLog::undo(std::wstring* name) {
    if (m_undoing) return false;
    flushOpenGroup();
    if (m_done.empty()) return false;
    makeRoom(m_undone);
    if (name != nullptr) *name = m_done.back().name;
    Group group = std::move(m_done.back());
    m_done.pop_back();
    exchange(group, true);
    m_revision = group.before;
    if (m_open) m_open->before = m_revision;
    m_undone.push_back(std::move(group));
    forgetStale();
    return true;
}

bool UndoLog::redo(std::wstring* name) {
    if (m_undoing) return false;
    flushOpenGroup();
    if (m_undone.empty()) return false;
    makeRoom(m_done);
    if (name != nullptr) *name = m_undone.back().name;
    Group group = std::move(m_undone.back());
    m_undone.pop_back();
    exchange(group, false);
    m_revision = group.after;
    if (m_open) m_open->before = m_revision;
    m_done.push_back(std::move(group));
    return true;
}

void UndoLog::forgetStale() {
    while (!m_marks.empty() && m_marks.back() > m_done.size()) m_marks.pop_back();
    m_userStart = std::min(m_userStart, m_done.size());
    if (m_scriptStart) m_scriptStart = std::min(*m_scriptStart, m_done.size());
}

void UndoLog::mark() {
    flushOpenGroup();
    m_marks.push_back(m_done.size());
}

bool UndoLog::backToMark() {
    flushOpenGroup();
    if (m_marks.empty()) return false;
    const std::size_t target = m_marks.back();
    while (m_done.size() > target)
        if (!undo()) return false;
    m_marks.pop_back();
    return true;
}

void UndoLog::beginUserGroup() {
    if (m_userDepth++ > 0) return;
    flushOpenGroup();
    m_userStart = m_done.size();
}

void UndoLog::endUserGroup() {
    if (m_userDepth == 0 || --m_userDepth > 0) return;
    merge(m_userStart);
}

void UndoLog::beginScriptGroup() {
    flushOpenGroup();
    m_scriptStart = m_done.size();
    m_depthBeforeScript = m_userDepth;
}

void UndoLog::endScriptGroup() {
    if (!m_scriptStart) return;
    m_userDepth = std::min(m_userDepth, m_depthBeforeScript);
    merge(*m_scriptStart);
    m_scriptStart.reset();
}

/// Puts the records of a later group behind those of this one.
void UndoLog::append(Group& whole, Group& later) {
    for (Record& record : later.records)
        record.variable += static_cast<std::uint32_t>(whole.variables.size());
    std::move(later.records.begin(), later.records.end(), std::back_inserter(whole.records));
    std::move(later.variables.begin(), later.variables.end(), std::back_inserter(whole.variables));
    whole.after = later.after;
}

/// The groups from this one on become one.
void UndoLog::merge(std::size_t start) {
    flushOpenGroup();
    if (m_done.size() < start + 2) return;
    Group& whole = m_done[start];
    whole.name = L"GRUPO";
    for (std::size_t i = start + 1; i < m_done.size(); ++i) append(whole, m_done[i]);
    m_done.erase(m_done.begin() + static_cast<std::ptrdiff_t>(start) + 1, m_done.end());
    m_undone.clear();
    forgetStale();
}

void UndoLog::clear() {
    m_done.clear();
    m_undone.clear();
    m_marks.clear();
    m_userDepth = 0;
    m_userStart = 0;
    m_depthBeforeScript = 0;
    if (m_scriptStart) m_scriptStart = 0;
    startGroup();
    if (m_open == nullptr) return;
    m_open->records.clear();
    m_open->variables.clear();
    m_open->before = m_revision;
}

std::size_t UndoLog::groupCount() const { return m_done.size(); }

// --- Records -------------------------------------------------------------------------------------

bool UndoLog::holds(const AcDbStub* stub) const {
    return m_open != nullptr && stub->undoGroup == m_group;
}

void UndoLog::add(Record record, SavedVariable* variable) {
    const std::uint64_t before = std::exchange(m_revision, ++m_lastRevision);
    const bool covers = record.kind == Record::Modified || record.kind == Record::Appended;
    if (m_open != nullptr && covers) record.stub->undoGroup = m_group;
    Group alone;
    Group& group = m_open != nullptr ? *m_open : alone;
    if (variable != nullptr) {
        record.variable = static_cast<std::uint32_t>(group.variables.size());
        group.variables.push_back(std::move(*variable));
    }
    group.records.push_back(std::move(record));
    if (m_open != nullptr) return;
    alone.before = before;
    alone.after = m_revision;
    m_undone.clear();
    m_done.push_back(std::move(alone));
}

void UndoLog::recordModified(AcDbObject& object) {
    if (!m_recording || m_undoing) return;
    AcDbStub* const stub = object.objectId();
    if (holds(stub)) {
        m_opened.insert_or_assign(stub, stateOf(object));
        m_revision = ++m_lastRevision;
        return;
    }
    add({stub, stateOf(object)});
}

void UndoLog::settled(const AcDbStub* stub) {
    if (!m_opened.empty()) m_opened.erase(stub);
}

void UndoLog::willNotCancel(AcDbObject& object) {
    AcDbStub* const stub = object.objectId();
    if (!m_recording || m_undoing || stub == nullptr || !holds(stub)) return;
    stub->recorded = true;
    m_revision = ++m_lastRevision;
}

void UndoLog::recordAppended(AcDbObject& object) {
    if (!m_recording || m_undoing) return;
    add({object.objectId(), {}, 0, Record::Appended});
}

void UndoLog::recordErased(AcDbObject& object, bool erased) {
    if (!m_recording || m_undoing) return;
    add({object.objectId(), {}, 0, Record::Erased, erased});
}

void UndoLog::recordVariable(std::wstring name) {
    if (!m_recording || m_undoing) return;
    const VariableInfo* info = m_database.core().variables().find(name);
    if (info == nullptr) return;
    SavedVariable variable{std::move(name), info->value};
    add({nullptr, {}, 0, Record::Variable}, &variable);
}

bool UndoLog::takeLast(const AcDbStub* stub, int kind, Record& taken) {
    const auto takeFrom = [&](std::vector<Record>& records) {
        for (std::size_t i = records.size(); i-- > 0;) {
            if (records[i].stub != stub || records[i].kind != kind) continue;
            taken = std::move(records[i]);
            records.erase(records.begin() + static_cast<std::ptrdiff_t>(i));
            return true;
        }
        return false;
    };
    if (m_open != nullptr && takeFrom(m_open->records)) return true;
    for (std::size_t i = m_done.size(); i-- > 0;) {
        if (!takeFrom(m_done[i].records)) continue;
        if (!m_done[i].records.empty()) return true;
        m_done.erase(m_done.begin() + static_cast<std::ptrdiff_t>(i));
        for (std::size_t& mark : m_marks)
            if (mark > i) --mark;
        if (m_userStart > i) --m_userStart;
        if (m_scriptStart && *m_scriptStart > i) --*m_scriptStart;
        return true;
    }
    return false;
}

void UndoLog::takeBack(AcDbObject& object) {
    if (m_undoing) return;
    AcDbStub* stub = object.objectId();
    Record record;
    const Raised undoing(m_undoing);  // nothing is recorded
    if (stub->isNew) {
        (void)takeLast(stub, Record::Appended, record);  // not there when recording was off
        stub->undoGroup = 0;
        stub->erased = true;
    } else {
        if (stub->erased != stub->wasErased && takeLast(stub, Record::Erased, record))
            stub->erased = stub->wasErased;
        if (const auto opened = m_opened.find(stub); opened != m_opened.end()) {
            putBack(object, opened->second);
            m_opened.erase(opened);
        } else if (stub->recorded && takeLast(stub, Record::Modified, record)) {
            putBack(object, record.state);
            stub->undoGroup = 0;
        }
    }
}

// --- Exchange ------------------------------------------------------------------------------------

void UndoLog::exchangeRecord(Group& group, Record& record, bool backwards) {
    // A module that deletes a resident object leaves its record without one.
    if (record.stub != nullptr && record.stub->object == nullptr) return;
    switch (record.kind) {
        case Record::Modified: {
            SavedState present = insist([&] { return stateOf(*record.stub->object); });
            insist([&] { putBack(*record.stub->object, record.state); });
            record.state = std::move(present);
            return;
        }
        case Record::Appended:
        case Record::Erased:
            record.stub->erased =
                record.kind == Record::Appended ? backwards : record.erased != backwards;
            record.stub->wasErased = record.stub->erased;
            record.stub->recorded = false;
            if (!record.stub->erased) ObjectAccess::cameBack(*record.stub->object);
            return;
        case Record::Variable: {
            SystemVariables& variables = m_database.core().variables();
            auto& [name, value] = group.variables[record.variable];
            VariableValue present = insist([&] { return variables.find(name)->value; });
            insist([&] { variables.force(name, value); });
            value = std::move(present);
            return;
        }
    }
}

// Reactors are told when everything is in place, so that they never see half of a group.
void UndoLog::notify(const Group& group, bool backwards) {
    DatabaseCore& core = m_database.core();
    std::unordered_set<const AcDbStub*> told;
    const std::size_t count = group.records.size();
    for (std::size_t i = 0; i < count; ++i) {
        const Record& record = group.records[backwards ? count - 1 - i : i];
        if (record.stub == nullptr || record.stub->object == nullptr) continue;
        const AcDbObject& object = *record.stub->object;
        if (record.kind == Record::Appended) core.notifyUnAppended(object, !backwards);
        if (record.kind == Record::Erased) core.notifyErased(object, record.erased != backwards);
        if (record.kind == Record::Modified && !record.stub->erased &&
            (count == 1 || told.insert(record.stub).second))
            core.notifyModified(object);
    }
}

void UndoLog::exchange(Group& group, bool backwards) {
    const Raised undoing(m_undoing);  // nothing is recorded
    const std::size_t count = group.records.size();
    for (std::size_t i = 0; i < count; ++i)
        exchangeRecord(group, group.records[backwards ? count - 1 - i : i], backwards);
    insist([&] { notify(group, backwards); });
}

// --- Steps ---------------------------------------------------------------------------------------

UndoSteps::UndoSteps(UndoLog& log) : m_log(log), m_before(log.m_done.size()) {
    m_log.flushOpenGroup();
    m_first = m_log.m_done.size();
}

bool UndoSteps::undo() {
    m_log.flushOpenGroup();
    if (m_log.m_done.size() <= m_first || !m_log.undo()) return false;
    m_log.m_undone.pop_back();
    return true;
}

UndoSteps::~UndoSteps() {
    m_log.flushOpenGroup();
    if (m_log.m_open == nullptr || m_log.m_done.size() <= m_before) return;
    UndoLog::Group whole = std::move(m_log.m_done[m_before]);
    for (std::size_t i = m_before + 1; i < m_log.m_done.size(); ++i)
        UndoLog::append(whole, m_log.m_done[i]);
    m_log.m_done.erase(m_log.m_done.begin() + static_cast<std::ptrdiff_t>(m_before),
                       m_log.m_done.end());
    whole.name = m_log.m_open->name;
    *m_log.m_open = std::move(whole);
    m_log.startGroup();
}

}  // namespace prancheta
