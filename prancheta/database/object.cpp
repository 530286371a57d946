// SPDX-License-Identifier: MIT
// Access to objects: reading, writing, erasing, and who is told of it.
#include <algorithm>
#include <cmath>

#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"

using prancheta::DatabaseCore;
using prancheta::ObjectAccess;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbObject, AcRxObject)

AcDbObject::AcDbObject() = default;

AcDbObject::~AcDbObject() {
    if (m_stub != nullptr) m_stub->object = nullptr;
}

AcDbObjectId AcDbObject::objectId() const { return AcDbObjectId(m_stub); }
AcDbObjectId AcDbObject::ownerId() const { return AcDbObjectId(m_owner); }
AcDbDatabase* AcDbObject::database() const {
    return m_stub != nullptr ? m_stub->database : nullptr;
}

Acad::ErrorStatus AcDbObject::setOwnerId(AcDbObjectId id) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    assertWriteEnabled();
    m_owner = id;
    return Acad::eOk;
}

void AcDbObject::getAdsName(ads_name& name) const { (void)acdbGetAdsName(name, objectId()); }

Acad::ErrorStatus AcDbObject::close() {
    if (m_stub == nullptr) return Acad::eOk;
    if (m_stub->notifying > 0) {
        --m_stub->notifying;
        return Acad::eOk;
    }
    if (m_stub->writer) {
        const Acad::ErrorStatus es = subClose();
        ObjectAccess::finishWrite(*this);
        return es;
    }
    if (m_stub->readers == 0) return Acad::eNotOpenForRead;
    const Acad::ErrorStatus es = subClose();
    if (--m_stub->readers == 0 && m_stub->modified) ObjectAccess::finishWrite(*this);
    return es;
}

Acad::ErrorStatus AcDbObject::erase(Adesk::Boolean erasing) {
    if (m_stub == nullptr) return Acad::eNoDatabase;
    if (!m_stub->writer) return Acad::eNotOpenForWrite;
    const bool wanted = erasing != Adesk::kFalse;
    if (m_stub->erased == wanted) return wanted ? Acad::eWasErased : Acad::eWasNotErased;
    const Acad::ErrorStatus es = subErase(erasing);
    if (es != Acad::eOk) return es;
    m_stub->database->core().undo().recordErased(*this, wanted);
    m_stub->erased = wanted;
    if (!wanted) ObjectAccess::cameBack(*this);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::cancel() {
    if (m_stub == nullptr) return Acad::eOk;
    if (!m_stub->writer) return close();
    DatabaseCore& core = m_stub->database->core();
    core.undo().takeBack(*this);
    const bool wasNew = m_stub->isNew;
    m_stub->writer = m_stub->isNew = m_stub->recorded = m_stub->modified = false;
    if (wasNew) core.notifyUnAppended(*this, false);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::upgradeOpen() {
    if (m_stub == nullptr) return Acad::eOk;
    if (m_stub->writer) return Acad::eWasOpenForWrite;
    if (m_stub->readers == 0) return Acad::eNotOpenForRead;
    if (m_stub->readers > 1) return Acad::eWasOpenForRead;
    if (m_stub->telling > 0) return Acad::eWasNotifying;
    m_stub->readers = 0;
    m_stub->writer = true;
    m_stub->wasErased = m_stub->erased;
    m_stub->recorded = m_stub->modified = false;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::downgradeOpen() {
    if (m_stub == nullptr) return Acad::eOk;
    if (!m_stub->writer)
        return m_stub->readers > 0 ? Acad::eWasOpenForRead : Acad::eNotOpenForWrite;
    ObjectAccess::finishWrite(*this);
    ++m_stub->readers;
    return Acad::eOk;
}

bool AcDbObject::isErased() const { return m_stub != nullptr && m_stub->erased; }
bool AcDbObject::isReadEnabled() const {
    return m_stub == nullptr || m_stub->writer || m_stub->readers > 0 || m_stub->notifying > 0 ||
           m_stub->telling > 0;
}
bool AcDbObject::isWriteEnabled() const { return m_stub == nullptr || m_stub->writer; }
bool AcDbObject::isNewObject() const { return m_stub != nullptr && m_stub->isNew; }
bool AcDbObject::isUndoing() const {
    return m_stub != nullptr && m_stub->database->core().undo().undoing();
}

// Reading a resident object that is not open does no harm here; nothing is checked.
void AcDbObject::assertReadEnabled() const {}

// Records the state also when the object is not open for write: a module that forgot to open it
// then loses neither undo nor the notification at close.
void AcDbObject::assertWriteEnabled(Adesk::Boolean autoUndo, Adesk::Boolean recordModified) {
    if (m_stub == nullptr) return;
    if (recordModified) m_stub->modified = true;
    if (!autoUndo || m_stub->recorded) return;
    m_stub->database->core().undo().recordModified(*this);
    m_stub->recorded = true;
}

Acad::ErrorStatus AcDbObject::subErase(Adesk::Boolean) { return Acad::eOk; }
Acad::ErrorStatus AcDbObject::subClose() { return Acad::eOk; }

namespace prancheta {

void ObjectAccess::finishWrite(AcDbObject& o) {
    AcDbStub& stub = *o.m_stub;
    DatabaseCore& core = stub.database->core();
    const bool modified = stub.modified;
    const bool erasedNow = stub.erased != stub.wasErased;
    if (stub.recorded) core.undo().settled(&stub);
    stub.writer = stub.isNew = stub.recorded = stub.modified = false;
    stub.wasErased = stub.erased;
    if (erasedNow)
        core.notifyErased(o, stub.erased);
    else if (modified && !stub.erased)
        core.notifyModified(o);
}

void ObjectAccess::dropEmptyExtra(AcDbObject& o) {
    const ObjectExtra* extra = o.m_extra.get();
    if (extra != nullptr && extra->xdata.empty() && extra->foreign.empty() &&
        extra->reactors.empty() && extra->extensionDictionary.isNull())
        o.m_extra.reset();
}

namespace {

/// Calls `visit` for each kept group in which an object's colour may stand: not for those of
/// applications, and of entities only for those that all have, since others have colours of their
/// own behind. Ends when `visit` returns true.
template <class Tags, class Visit>
void forCommonTags(const AcDbObject& o, Tags& kept, Visit visit) {
    const bool isEntity = o.isKindOf(AcDbEntity::desc());
    bool inGroup = false;
    for (auto& tag : kept) {
        if (isEntity && tag.code == 100) return;
        if (tag.code == 102) inGroup = tag.value != "}";
        if (!inGroup && visit(tag)) return;
    }
}

constexpr int kTrueColor = 420;
constexpr int kColorName = 430;
constexpr int kDropped = -1;

}  // namespace

void ObjectAccess::dropTrueColor(AcDbObject& o) {
    if (o.m_extra == nullptr || o.m_extra->foreign.empty()) return;
    RawTags& kept = o.m_extra->foreign;
    forCommonTags(o, kept, [](RawTag& tag) {
        if (tag.code == kTrueColor || tag.code == kColorName) tag.code = kDropped;
        return false;
    });
    std::erase_if(kept, [](const RawTag& tag) { return tag.code == kDropped; });
    dropEmptyExtra(o);
}

std::optional<Rgb> ObjectAccess::trueColor(const AcDbObject& o) {
    std::optional<Rgb> color;
    if (o.m_extra == nullptr || o.m_extra->foreign.empty()) return color;
    const RawTags& kept = o.m_extra->foreign;
    forCommonTags(o, kept, [&color](const RawTag& tag) {
        double number = 0.0;
        if (tag.code != kTrueColor || !parseNumber(std::string_view(tag.value), number) ||
            std::abs(number) > 4294967295.0)
            return false;
        color = rgbOf(static_cast<long long>(number));
        return true;
    });
    return color;
}

void ObjectAccess::setTrueColor(AcDbObject& o, Rgb color) {
    dropTrueColor(o);
    RawTags& kept = makeExtra(o).foreign;
    const RawTag tag{kTrueColor, std::to_string(numberOf(color))};
    // Groups of applications stand first, and must go on doing so.
    auto at =
        std::find_if(kept.begin(), kept.end(), [](const RawTag& each) { return each.code == 100; });
    if (!o.isKindOf(AcDbEntity::desc())) {
        constexpr const char* kLayer = "AcDbLayerTableRecord";
        at = std::find_if(at, kept.end(), [](const RawTag& each) { return each.value == kLayer; });
        at = at == kept.end() ? kept.insert(at, {100, kLayer}) + 1 : at + 1;
    }
    kept.insert(at, tag);
}

bool ObjectAccess::isAlive(const AcDbObject& o) {
    // Owners of a damaged file may go in a circle; no real chain is that long.
    const AcDbStub* stub = o.m_stub;
    for (int depth = 0; stub != nullptr && stub->object != nullptr && depth < 100; ++depth) {
        if (stub->erased) return false;
        stub = stub->object->m_owner;
    }
    return true;
}

void ObjectAccess::cameBack(AcDbObject& o) {
    if (o.m_owner == nullptr || o.m_owner->object == nullptr) return;
    if (auto* record = AcDbSymbolTableRecord::cast(&o)) {
        if (auto* table = AcDbSymbolTable::cast(o.m_owner->object))
            table->m_byName[foldCase(record->m_name)] = o.objectId();
        return;
    }
    auto* dictionary = AcDbDictionary::cast(o.m_owner->object);
    if (dictionary == nullptr) return;
    const auto& entries = dictionary->m_entries;
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (entries[i].second == o.objectId()) dictionary->m_byKey[foldCase(entries[i].first)] = i;
}

}  // namespace prancheta
