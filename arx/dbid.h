// SPDX-License-Identifier: MIT
// Object identifiers and handles.
#pragma once

#include "acdb.h"
#include "rxclass.h"

class AcDbDatabase;
/// The host's record of one object; opaque to modules.
class AcDbStub;

/// Persistent name of an object, unique in its drawing; 0 is "none".
class AcDbHandle {
public:
    constexpr AcDbHandle() = default;
    constexpr explicit AcDbHandle(Adesk::UInt64 value) : m_value(value) {}
    /// Upper-case hexadecimal text; the buffer holds 17 characters.
    bool getIntoAsciiBuffer(ACHAR* buffer) const;
    constexpr bool isNull() const { return m_value == 0; }
    constexpr Adesk::UInt64 value() const { return m_value; }
    constexpr bool operator==(const AcDbHandle& h) const { return m_value == h.m_value; }
    constexpr bool operator!=(const AcDbHandle& h) const { return m_value != h.m_value; }
    constexpr bool operator<(const AcDbHandle& h) const { return m_value < h.m_value; }

private:
    Adesk::UInt64 m_value = 0;
};

/// Name of an object while its drawing is open. Copying is free; a null id names nothing.
class AcDbObjectId {
public:
    static const AcDbObjectId kNull;

    constexpr AcDbObjectId() = default;
    constexpr explicit AcDbObjectId(AcDbStub* stub) : m_stub(stub) {}

    constexpr bool isNull() const { return m_stub == nullptr; }
    /// True when it names an object that exists or existed in an open drawing.
    bool isValid() const;
    bool isErased() const;
    bool isResident() const;
    void setNull() { m_stub = nullptr; }
    AcDbHandle handle() const;
    AcDbDatabase* database() const;
    AcRxClass* objectClass() const;
    Adesk::LongPtr asOldId() const { return reinterpret_cast<Adesk::LongPtr>(m_stub); }
    AcDbObjectId& setFromOldId(Adesk::LongPtr id) {
        m_stub = reinterpret_cast<AcDbStub*>(id);
        return *this;
    }
    operator AcDbStub*() const { return m_stub; }
    constexpr bool operator==(const AcDbObjectId& id) const { return m_stub == id.m_stub; }
    constexpr bool operator!=(const AcDbObjectId& id) const { return m_stub != id.m_stub; }
    bool operator<(const AcDbObjectId& id) const { return m_stub < id.m_stub; }

protected:
    AcDbStub* m_stub = nullptr;
};

/// The four kinds of reference differ only in how they are filed.
class AcDbHardOwnershipId : public AcDbObjectId {
public:
    constexpr AcDbHardOwnershipId() = default;
    constexpr AcDbHardOwnershipId(const AcDbObjectId& id) : AcDbObjectId(id) {}
};
class AcDbSoftOwnershipId : public AcDbObjectId {
public:
    constexpr AcDbSoftOwnershipId() = default;
    constexpr AcDbSoftOwnershipId(const AcDbObjectId& id) : AcDbObjectId(id) {}
};
class AcDbHardPointerId : public AcDbObjectId {
public:
    constexpr AcDbHardPointerId() = default;
    constexpr AcDbHardPointerId(const AcDbObjectId& id) : AcDbObjectId(id) {}
};
class AcDbSoftPointerId : public AcDbObjectId {
public:
    constexpr AcDbSoftPointerId() = default;
    constexpr AcDbSoftPointerId(const AcDbObjectId& id) : AcDbObjectId(id) {}
};
