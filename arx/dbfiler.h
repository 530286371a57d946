// SPDX-License-Identifier: MIT
// Filers: how objects write and read their own data.
#pragma once

#include "adsdef.h"
#include "dbid.h"
#include "gemat3d.h"

/// Sequence of values without names. Undo, copy, clone and drag all go through it, so an object
/// writes a version number first and reads in the order in which it wrote.
class AcDbDwgFiler {
public:
    virtual ~AcDbDwgFiler() = default;

    virtual Acad::ErrorStatus filerStatus() const = 0;
    virtual AcDb::FilerType filerType() const = 0;
    virtual void setFilerStatus(Acad::ErrorStatus es) = 0;
    virtual void resetFilerStatus() = 0;
    virtual AcDb::AcDbDwgVersion dwgVersion() const { return AcDb::kDHL_CURRENT; }

    virtual Acad::ErrorStatus writeBytes(const void* data, Adesk::UInt32 size) = 0;
    virtual Acad::ErrorStatus readBytes(void* data, Adesk::UInt32 size) = 0;
    virtual Acad::ErrorStatus writeString(const ACHAR* text) = 0;
    /// The caller frees the text with acutDelString.
    virtual Acad::ErrorStatus readString(ACHAR** text) = 0;
    virtual Acad::ErrorStatus writeHardOwnershipId(const AcDbHardOwnershipId& id) = 0;
    virtual Acad::ErrorStatus readHardOwnershipId(AcDbHardOwnershipId* id) = 0;
    virtual Acad::ErrorStatus writeSoftOwnershipId(const AcDbSoftOwnershipId& id) = 0;
    virtual Acad::ErrorStatus readSoftOwnershipId(AcDbSoftOwnershipId* id) = 0;
    virtual Acad::ErrorStatus writeHardPointerId(const AcDbHardPointerId& id) = 0;
    virtual Acad::ErrorStatus readHardPointerId(AcDbHardPointerId* id) = 0;
    virtual Acad::ErrorStatus writeSoftPointerId(const AcDbSoftPointerId& id) = 0;
    virtual Acad::ErrorStatus readSoftPointerId(AcDbSoftPointerId* id) = 0;

    Acad::ErrorStatus writeBool(bool v) { return writePlain(v); }
    Acad::ErrorStatus readBool(bool* v) { return readPlain(v); }
    Acad::ErrorStatus writeInt8(Adesk::Int8 v) { return writePlain(v); }
    Acad::ErrorStatus readInt8(Adesk::Int8* v) { return readPlain(v); }
    Acad::ErrorStatus writeInt16(Adesk::Int16 v) { return writePlain(v); }
    Acad::ErrorStatus readInt16(Adesk::Int16* v) { return readPlain(v); }
    Acad::ErrorStatus writeInt32(Adesk::Int32 v) { return writePlain(v); }
    Acad::ErrorStatus readInt32(Adesk::Int32* v) { return readPlain(v); }
    Acad::ErrorStatus writeUInt8(Adesk::UInt8 v) { return writePlain(v); }
    Acad::ErrorStatus readUInt8(Adesk::UInt8* v) { return readPlain(v); }
    Acad::ErrorStatus writeUInt16(Adesk::UInt16 v) { return writePlain(v); }
    Acad::ErrorStatus readUInt16(Adesk::UInt16* v) { return readPlain(v); }
    Acad::ErrorStatus writeUInt32(Adesk::UInt32 v) { return writePlain(v); }
    Acad::ErrorStatus readUInt32(Adesk::UInt32* v) { return readPlain(v); }
    Acad::ErrorStatus writeDouble(double v) { return writePlain(v); }
    Acad::ErrorStatus readDouble(double* v) { return readPlain(v); }
    Acad::ErrorStatus writePoint3d(const AcGePoint3d& p) { return writePlain(p); }
    Acad::ErrorStatus readPoint3d(AcGePoint3d* p) { return readPlain(p); }
    Acad::ErrorStatus writeVector3d(const AcGeVector3d& v) { return writePlain(v); }
    Acad::ErrorStatus readVector3d(AcGeVector3d* v) { return readPlain(v); }

    Acad::ErrorStatus writeItem(bool v) { return writePlain(v); }
    Acad::ErrorStatus readItem(bool* v) { return readPlain(v); }
    Acad::ErrorStatus writeItem(Adesk::Int8 v) { return writePlain(v); }
    Acad::ErrorStatus readItem(Adesk::Int8* v) { return readPlain(v); }
    Acad::ErrorStatus writeItem(Adesk::Int16 v) { return writePlain(v); }
    Acad::ErrorStatus readItem(Adesk::Int16* v) { return readPlain(v); }
    Acad::ErrorStatus writeItem(Adesk::Int32 v) { return writePlain(v); }
    Acad::ErrorStatus readItem(Adesk::Int32* v) { return readPlain(v); }
    Acad::ErrorStatus writeItem(Adesk::UInt8 v) { return writePlain(v); }
    Acad::ErrorStatus readItem(Adesk::UInt8* v) { return readPlain(v); }
    Acad::ErrorStatus writeItem(Adesk::UInt16 v) { return writePlain(v); }
    Acad::ErrorStatus readItem(Adesk::UInt16* v) { return readPlain(v); }
    Acad::ErrorStatus writeItem(Adesk::UInt32 v) { return writePlain(v); }
    Acad::ErrorStatus readItem(Adesk::UInt32* v) { return readPlain(v); }
    Acad::ErrorStatus writeItem(double v) { return writePlain(v); }
    Acad::ErrorStatus readItem(double* v) { return readPlain(v); }
    Acad::ErrorStatus writeItem(const AcGePoint3d& p) { return writePlain(p); }
    Acad::ErrorStatus readItem(AcGePoint3d* p) { return readPlain(p); }
    Acad::ErrorStatus writeItem(const AcGeVector3d& v) { return writePlain(v); }
    Acad::ErrorStatus readItem(AcGeVector3d* v) { return readPlain(v); }
    Acad::ErrorStatus writeItem(const AcDbHandle& h) { return writePlain(h); }
    Acad::ErrorStatus readItem(AcDbHandle* h) { return readPlain(h); }
    Acad::ErrorStatus writeItem(const ACHAR* text) { return writeString(text); }
    Acad::ErrorStatus readItem(ACHAR** text) { return readString(text); }
    Acad::ErrorStatus writeItem(const AcDbHardOwnershipId& id) { return writeHardOwnershipId(id); }
    Acad::ErrorStatus readItem(AcDbHardOwnershipId* id) { return readHardOwnershipId(id); }
    Acad::ErrorStatus writeItem(const AcDbSoftOwnershipId& id) { return writeSoftOwnershipId(id); }
    Acad::ErrorStatus readItem(AcDbSoftOwnershipId* id) { return readSoftOwnershipId(id); }
    Acad::ErrorStatus writeItem(const AcDbHardPointerId& id) { return writeHardPointerId(id); }
    Acad::ErrorStatus readItem(AcDbHardPointerId* id) { return readHardPointerId(id); }
    Acad::ErrorStatus writeItem(const AcDbSoftPointerId& id) { return writeSoftPointerId(id); }
    Acad::ErrorStatus readItem(AcDbSoftPointerId* id) { return readSoftPointerId(id); }
    /// An id says by its class which kind of reference it is.
    Acad::ErrorStatus writeItem(const AcDbObjectId&) = delete;

private:
    template <class T>
    Acad::ErrorStatus writePlain(const T& v) {
        return writeBytes(&v, sizeof(T));
    }
    template <class T>
    Acad::ErrorStatus readPlain(T* v) {
        return readBytes(v, sizeof(T));
    }
};

/// Sequence of values named by group codes: how objects are kept in files.
class AcDbDxfFiler {
public:
    virtual ~AcDbDxfFiler() = default;

    virtual Acad::ErrorStatus filerStatus() const = 0;
    virtual AcDb::FilerType filerType() const { return AcDb::kFileFiler; }
    virtual void resetFilerStatus() = 0;
    /// Records why reading failed; `text` is for the user.
    virtual Acad::ErrorStatus setError(Acad::ErrorStatus es, const ACHAR* text, ...) = 0;

    virtual Acad::ErrorStatus writeString(int code, const ACHAR* text) = 0;
    virtual Acad::ErrorStatus writeDouble(int code, double v) = 0;
    virtual Acad::ErrorStatus writePoint3d(int code, const AcGePoint3d& p) = 0;
    virtual Acad::ErrorStatus writeInt16(int code, Adesk::Int16 v) = 0;
    virtual Acad::ErrorStatus writeInt32(int code, Adesk::Int32 v) = 0;
    virtual Acad::ErrorStatus writeBool(int code, bool v) = 0;
    /// `code` 330..369 or 1005.
    virtual Acad::ErrorStatus writeObjectId(int code, const AcDbObjectId& id) = 0;

    Acad::ErrorStatus writeItem(int code, const ACHAR* text) { return writeString(code, text); }
    Acad::ErrorStatus writeItem(int code, double v) { return writeDouble(code, v); }
    Acad::ErrorStatus writeItem(int code, const AcGePoint3d& p) { return writePoint3d(code, p); }
    Acad::ErrorStatus writeItem(int code, Adesk::Int16 v) { return writeInt16(code, v); }
    Acad::ErrorStatus writeItem(int code, Adesk::Int32 v) { return writeInt32(code, v); }
    Acad::ErrorStatus writeItem(int code, bool v) { return writeBool(code, v); }
    Acad::ErrorStatus writeItem(int code, const AcDbObjectId& id) {
        return writeObjectId(code, id);
    }

    /// Next group: `value->restype` is the group code. A text is allocated and freed by the caller
    /// with acutDelString; a reference comes as `rlname`, see acdbGetObjectId. Fails at the end of
    /// the object.
    virtual Acad::ErrorStatus readItem(resbuf* value) = 0;
    Acad::ErrorStatus readResBuf(resbuf* value) { return readItem(value); }
    /// Makes the next readItem give the last group again.
    virtual void pushBackItem() = 0;
    /// True, and the marker consumed, when the next group is `100 name`.
    virtual bool atSubclassData(const ACHAR* name) = 0;
    virtual bool atEOF() = 0;
};
