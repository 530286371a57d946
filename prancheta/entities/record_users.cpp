// SPDX-License-Identifier: MIT
// References are found by filing every object as a clone would.
#include "prancheta/entities/record_users.h"

#include <charconv>
#include <functional>

#include "dbdim.h"
#include "dbents.h"
#include "dbmtext.h"
#include "prancheta/base/text.h"
#include "prancheta/database/memory_filer.h"
#include "prancheta/database/object_access.h"
#include "prancheta/entities/foreign_entity.h"

namespace prancheta {

namespace {

bool isRecord(const AcDbStub* stub) {
    return stub != nullptr && !stub->erased && stub->object != nullptr &&
           stub->object->isKindOf(AcDbSymbolTableRecord::desc());
}

/// The record whose part the object is, or that it is itself; null for the drawing's own.
AcDbStub* userOf(const AcDbObject& object) {
    constexpr int kDeepest = 100;  // owners of a damaged file may go in a circle
    AcDbStub* stub = object.objectId();
    for (int depth = 0; stub != nullptr && stub->object != nullptr && depth < kDeepest; ++depth) {
        if (isRecord(stub)) {
            const auto* const block = AcDbBlockTableRecord::cast(stub->object);
            return block != nullptr && block->isLayout() ? nullptr : stub;
        }
        stub = stub->object->ownerId();
    }
    return nullptr;
}

/// Texts that are written for readers: no name among them means a record.
bool isWording(const AcDbObject& object) {
    for (const AcRxClass* const each : {AcDbText::desc(), AcDbMText::desc(), AcDbDimension::desc(),
                                        AcDbSymbolTableRecord::desc()})
        if (object.isKindOf(each)) return true;
    return false;
}

/// Tells references and texts.
class NeedsFiler : public MemoryFiler {
public:
    NeedsFiler() : MemoryFiler(AcDb::kDeepCloneFiler) {}
    std::function<void(std::wstring_view)> textWritten;
    Acad::ErrorStatus writeString(const ACHAR* text) override {
        if (textWritten && text != nullptr) textWritten(text);
        return filerStatus();
    }
    Acad::ErrorStatus writeBytes(const void*, Adesk::UInt32) override { return filerStatus(); }
};

bool namesRecord(int code) {
    return code == 2 || code == 3 || (code >= 6 && code <= 8) || code == 1003;
}

}  // namespace

bool isReference(int code) {
    return (code >= 320 && code < 370) || (code >= 390 && code < 400) || code == 480 ||
           code == 481 || code == 1005;
}

RecordUsers::RecordUsers(AcDbDatabase& database) : m_database(database) {
    const StubPool& stubs = ObjectAccess::stubs(database.core());
    for (std::size_t i = 0; i < stubs.size(); ++i)
        if (stubs[i].object != nullptr && ObjectAccess::isAlive(*stubs[i].object))
            takeObject(*stubs[i].object);
    const ForeignContent& kept = database.core().foreign();
    for (const auto& [name, tags] : kept.header) takeTags(nullptr, tags);
    for (const auto& [name, tags] : kept.tables) takeTags(nullptr, tags);
    for (const RawTags& tags : kept.objects) takeTags(nullptr, tags);
    for (const RawTags& tags : kept.sections) takeTags(nullptr, tags);
    takeTags(nullptr, kept.shapeStyles);
    takeVariables();
}

void RecordUsers::takeObject(const AcDbObject& object) {
    AcDbStub* const user = userOf(object);
    NeedsFiler filer;
    filer.referenceWritten = [&](AcDbObjectId id) { add(user, id); };
    if (!isWording(object))
        filer.textWritten = [&](std::wstring_view text) { takeName(user, text); };
    (void)object.dwgOutFields(&filer);  // what it has told until it refuses counts
    if (const ObjectExtra* const extra = ObjectAccess::extra(object)) {
        takeTags(user, extra->xdata);
        takeTags(user, extra->foreign.empty() ? RawTags() : RawTags(extra->foreign));
    }
    if (const auto* const foreign = ForeignEntity::cast(&object)) takeTags(user, foreign->tags());
}

template <class Tags>
void RecordUsers::takeTags(AcDbStub* user, const Tags& tags) {
    for (const auto& tag : tags) {
        if (namesRecord(tag.code)) takeName(user, toWide(trim(std::string_view(tag.value))));
        if (!isReference(tag.code)) continue;
        const std::string_view text = trim(std::string_view(tag.value));
        Adesk::UInt64 handle = 0;
        (void)std::from_chars(text.data(), text.data() + text.size(), handle, 16);
        if (handle != 0) add(user, AcDbObjectId(m_database.core().find(handle)));
    }
}

void RecordUsers::takeVariables() {
    for (const VariableInfo& info : m_database.core().variables().all())
        if (const auto* const text = std::get_if<std::wstring>(&info.value))
            takeName(nullptr, *text);
}

void RecordUsers::takeName(AcDbStub* user, std::wstring_view name) {
    if (name.empty() || name.size() > 255) return;
    for (const auto table :
         {&AcDbDatabase::blockTableId, &AcDbDatabase::layerTableId, &AcDbDatabase::linetypeTableId,
          &AcDbDatabase::textStyleTableId, &AcDbDatabase::dimStyleTableId})
        add(user, ObjectAccess::lookup((m_database.*table)(), name));
}

void RecordUsers::add(AcDbStub* user, AcDbObjectId needed) {
    AcDbStub* const stub = needed;
    if (stub == user || !isRecord(stub)) return;
    if (m_needs[user].insert(stub).second) ++m_users[stub];
}

bool RecordUsers::isUnused(AcDbObjectId record) const {
    const auto found = m_users.find(record);
    return found == m_users.end() || found->second == 0;
}

void RecordUsers::gone(AcDbObjectId record) {
    const auto needs = m_needs.find(record);
    if (needs == m_needs.end()) return;
    for (AcDbStub* const needed : needs->second) --m_users[needed];
    m_needs.erase(needs);
}

}  // namespace prancheta
