// SPDX-License-Identifier: MIT
// Identifiers, handles, opening of objects.
#include <cwchar>

#include "prancheta/database/database_core.h"

using prancheta::StubPool;

namespace {

constexpr int kMaxReaders = 256;

}  // namespace

const AcDbObjectId AcDbObjectId::kNull;

bool AcDbHandle::getIntoAsciiBuffer(ACHAR* buffer) const {
    if (buffer == nullptr) return false;
    std::swprintf(buffer, 17, L"%llX", static_cast<unsigned long long>(m_value));
    return true;
}

bool AcDbObjectId::isValid() const {
    return m_stub != nullptr && StubPool::owns(m_stub) && m_stub->object != nullptr;
}
bool AcDbObjectId::isErased() const {
    return m_stub != nullptr && (m_stub->erased || m_stub->object == nullptr);
}
bool AcDbObjectId::isResident() const { return m_stub != nullptr && m_stub->object != nullptr; }
AcDbHandle AcDbObjectId::handle() const {
    return AcDbHandle(m_stub != nullptr ? m_stub->handle : 0);
}
AcDbDatabase* AcDbObjectId::database() const {
    return m_stub != nullptr ? m_stub->database : nullptr;
}
AcRxClass* AcDbObjectId::objectClass() const {
    return isResident() ? m_stub->object->isA() : nullptr;
}

Acad::ErrorStatus acdbOpenObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased) {
    object = nullptr;
    AcDbStub* stub = id;
    if (stub == nullptr) return Acad::eNullObjectId;
    // Modules may keep ids of a drawing that was closed meanwhile.
    if (!StubPool::owns(stub)) return Acad::eNullObjectId;
    if (stub->object == nullptr) return Acad::eNullObjectPointer;
    if (stub->erased && !openErased) return Acad::eWasErased;
    switch (mode) {
        case AcDb::kForNotify:
            if (stub->notifying == UINT8_MAX) return Acad::eAtMaxReaders;
            ++stub->notifying;
            break;
        case AcDb::kForRead:
            if (stub->writer) return Acad::eWasOpenForWrite;
            if (stub->readers >= kMaxReaders) return Acad::eAtMaxReaders;
            ++stub->readers;
            break;
        case AcDb::kForWrite:
            if (stub->writer) return Acad::eWasOpenForWrite;
            if (stub->readers > 0) return Acad::eWasOpenForRead;
            if (stub->telling > 0) return Acad::eWasNotifying;
            stub->writer = true;
            stub->wasErased = stub->erased;
            stub->recorded = stub->modified = false;
            break;
        default:
            return Acad::eInvalidInput;
    }
    object = stub->object;
    return Acad::eOk;
}

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased) {
    return acdbOpenObject<AcDbEntity>(entity, id, mode, openErased);
}

Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id) {
    ads_name_clear(name);
    if (id.isNull()) return Acad::eNullObjectId;
    name[0] = id.asOldId();
    return Acad::eOk;
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name) {
    id.setFromOldId(name[0]);
    // A name may be any two words, a selection set's too: it is looked up, never followed.
    if (name[1] == 0 && StubPool::owns(id)) return Acad::eOk;
    id.setNull();
    return Acad::eInvalidAdsName;
}
