// SPDX-License-Identifier: MIT
// Records of free groups.
#include "dbxrecrd.h"

#include <cstdlib>

#include "acutmem.h"
#include "prancheta/database/memory_filer.h"
#include "prancheta/database/object_access.h"
#include "prancheta/database/value_list.h"

using namespace prancheta;

ACRX_DXF_DEFINE_MEMBERS(AcDbXrecord, AcDbObject, 0, 0, 0, XRECORD, "")

namespace {

bool mayStand(int code) {
    return code >= 1 && code <= 369 && code != 5 && code != 105 &&
           kindOfValue(code) != ValueKind::Unknown;
}

/// Kind of reference that the DXF format gives a group code.
void writeReference(AcDbDwgFiler& filer, int code, AcDbObjectId id) {
    if (code < 340)
        filer.writeSoftPointerId(id);
    else if (code < 350)
        filer.writeHardPointerId(id);
    else if (code < 360)
        filer.writeSoftOwnershipId(id);
    else
        filer.writeHardOwnershipId(id);
}

AcDbObjectId readReference(AcDbDwgFiler& filer, int code) {
    AcDbSoftPointerId softPointer;
    AcDbHardPointerId hardPointer;
    AcDbSoftOwnershipId softOwner;
    AcDbHardOwnershipId hardOwner;
    if (code < 340) return filer.readSoftPointerId(&softPointer), softPointer;
    if (code < 350) return filer.readHardPointerId(&hardPointer), hardPointer;
    if (code < 360) return filer.readSoftOwnershipId(&softOwner), softOwner;
    return filer.readHardOwnershipId(&hardOwner), hardOwner;
}

void writeValue(AcDbDwgFiler& filer, const resbuf& item) {
    const ads_u_val& value = item.resval;
    switch (kindOfValue(item.restype)) {
        case ValueKind::Text:
            filer.writeString(value.rstring);
            break;
        case ValueKind::Real:
            filer.writeDouble(value.rreal);
            break;
        case ValueKind::Point:
            filer.writeBytes(value.rpoint, sizeof value.rpoint);
            break;
        case ValueKind::Int16:
            filer.writeInt16(value.rint);
            break;
        case ValueKind::Int32:
            filer.writeInt32(value.rlong);
            break;
        case ValueKind::Name: {
            AcDbObjectId id;
            (void)acdbGetObjectId(id, value.rlname);  // null for a name that is none
            writeReference(filer, item.restype, id);
            break;
        }
        case ValueKind::Binary:
            filer.writeInt16(value.rbinary.clen);
            filer.writeBytes(value.rbinary.buf, static_cast<Adesk::UInt32>(value.rbinary.clen));
            break;
        default:
            break;
    }
}

void readValue(AcDbDwgFiler& filer, resbuf& item) {
    ads_u_val& value = item.resval;
    switch (kindOfValue(item.restype)) {
        case ValueKind::Text:
            filer.readString(&value.rstring);
            break;
        case ValueKind::Real:
            filer.readDouble(&value.rreal);
            break;
        case ValueKind::Point:
            filer.readBytes(value.rpoint, sizeof value.rpoint);
            break;
        case ValueKind::Int16:
            filer.readInt16(&value.rint);
            break;
        case ValueKind::Int32:
            filer.readInt32(&value.rlong);
            break;
        case ValueKind::Name:
            (void)acdbGetAdsName(value.rlname, readReference(filer, item.restype));  // may be null
            break;
        case ValueKind::Binary: {
            short size = 0;
            filer.readInt16(&size);
            if (filer.filerStatus() != Acad::eOk || size < 0) break;
            value.rbinary.buf = static_cast<char*>(std::malloc(static_cast<std::size_t>(size) + 1));
            value.rbinary.clen = size;
            filer.readBytes(value.rbinary.buf, static_cast<Adesk::UInt32>(size));
            break;
        }
        default:
            break;
    }
}

}  // namespace

AcDbXrecord::AcDbXrecord() = default;
AcDbXrecord::~AcDbXrecord() { acutRelRb(m_list); }

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf& list, AcDbDatabase*) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    for (const resbuf* item = &list; item != nullptr; item = item->rbnext)
        if (!mayStand(item->restype)) return Acad::eInvalidInput;
    assertWriteEnabled();
    ObjectAccess::setList(*this, copyList(&list).release());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::rbChain(resbuf** list, AcDbDatabase*) const {
    if (list == nullptr) return Acad::eInvalidInput;
    *list = copyList(m_list).release();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbObject::dwgOutFields(filer);
    for (const resbuf* item = m_list; item != nullptr; item = item->rbnext) {
        filer->writeInt16(item->restype);
        writeValue(*filer, *item);
    }
    return filer->writeInt16(0);
}

Acad::ErrorStatus AcDbXrecord::dwgInFields(AcDbDwgFiler* filer) {
    AcDbObject::dwgInFields(filer);
    ListBuilder list;
    for (;;) {
        Adesk::Int16 code = 0;
        if (filer->readInt16(&code) != Acad::eOk || code == 0) break;
        resbuf* item = acutNewRb(code);
        list.add(item);
        readValue(*filer, *item);
    }
    ObjectAccess::setList(*this, list.release());
    return filer->filerStatus();
}

namespace prancheta {

void ObjectAccess::setList(AcDbXrecord& x, resbuf* list) {
    acutRelRb(x.m_list);
    x.m_list = list;
}

}  // namespace prancheta
