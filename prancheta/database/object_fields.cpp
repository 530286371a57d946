// SPDX-License-Identifier: MIT
// What every object files: owner, extended data, reactors, extension dictionary.
#include <algorithm>
#include <charconv>

#include "prancheta/base/text.h"
#include "prancheta/database/memory_filer.h"
#include "prancheta/database/object_access.h"

using namespace prancheta;

namespace {

enum Part : Adesk::UInt8 { kXdata = 1, kForeign = 2, kReactors = 4, kExtensionDictionary = 8 };

/// Object of a handle in hexadecimal text; null when the drawing has none.
AcDbObjectId idOfHandle(const AcDbDatabase* database, std::string_view text) {
    Adesk::UInt64 handle = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), handle, 16);
    if (database == nullptr || error != std::errc() || end != text.data() + text.size()) return {};
    return AcDbObjectId(database->core().find(handle));
}

std::string handleText(AcDbObjectId id) {
    ACHAR buffer[17];
    id.handle().getIntoAsciiBuffer(buffer);
    return toUtf8(buffer);
}

/// Handles that the drawing knows go out as references, so that a clone's follow its copies: among
/// extended data, and in another drawing among all groups, where one that did not come along goes.
bool isHandle(const AcDbDwgFiler& filer, int code) {
    if (code == 1005) return true;
    const bool refers =
        (code >= 320 && code < 370) || (code >= 390 && code < 400) || code == 480 || code == 481;
    return refers && filer.filerType() == AcDb::kWblockCloneFiler;
}

template <class Tags>
void writeTags(AcDbDwgFiler& filer, const Tags& tags, const AcDbDatabase* database) {
    filer.writeUInt32(static_cast<Adesk::UInt32>(tags.size()));
    for (const auto& tag : tags) {
        filer.writeInt32(tag.code);
        AcDbObjectId id;
        if (isHandle(filer, tag.code)) {
            id = idOfHandle(database, tag.value);
            filer.writeBool(!id.isNull());
        }
        if (id.isNull())
            writeNarrow(filer, tag.value);
        else
            filer.writeSoftPointerId(id);
    }
}

RawTags readTags(AcDbDwgFiler& filer) {
    Adesk::UInt32 count = 0;
    filer.readUInt32(&count);
    RawTags tags;
    for (; count > 0 && filer.filerStatus() == Acad::eOk; --count) {
        RawTag tag;
        Adesk::Int32 code = 0;
        filer.readInt32(&code);
        tag.code = code;
        bool known = false;
        AcDbSoftPointerId id;
        const bool handle = isHandle(filer, code);
        if (handle) filer.readBool(&known);
        if (known)
            filer.readSoftPointerId(&id);
        else
            tag.value = readNarrow(filer);
        const bool lost =
            handle && id.isNull() && (known || filer.filerType() == AcDb::kWblockCloneFiler);
        if (known || lost) tag.value = lost ? "0" : handleText(id);
        if (!lost || code == 1005) tags.push_back(std::move(tag));
    }
    return tags;
}

}  // namespace

Acad::ErrorStatus AcDbObject::dwgOutFields(AcDbDwgFiler* filer) const {
    if (filer->filerType() == AcDb::kUndoFiler) filer->writeSoftPointerId(ownerId());
    // A copy outside the drawing can neither share a dictionary nor be told of changes.
    const bool links = filer->filerType() != AcDb::kCopyFiler;
    Adesk::UInt8 parts = 0;
    if (m_extra) {
        if (!m_extra->xdata.empty()) parts |= kXdata;
        if (!m_extra->foreign.empty()) parts |= kForeign;
        if (links && !m_extra->reactors.empty()) parts |= kReactors;
        if (links && !m_extra->extensionDictionary.isNull()) parts |= kExtensionDictionary;
    }
    filer->writeUInt8(parts);
    if (parts & kXdata) writeTags(*filer, m_extra->xdata, database());
    if (parts & kForeign) {
        const bool crosses = filer->filerType() == AcDb::kWblockCloneFiler;
        writeTags(*filer, m_extra->foreign, crosses ? database() : nullptr);
    }
    if (parts & kReactors) {
        filer->writeUInt32(static_cast<Adesk::UInt32>(m_extra->reactors.size()));
        for (AcDbObjectId id : m_extra->reactors) filer->writeSoftPointerId(id);
    }
    if (parts & kExtensionDictionary) filer->writeHardOwnershipId(m_extra->extensionDictionary);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbObject::dwgInFields(AcDbDwgFiler* filer) {
    assertWriteEnabled();
    if (filer->filerType() == AcDb::kUndoFiler) {
        AcDbSoftPointerId owner;
        filer->readSoftPointerId(&owner);
        m_owner = owner;
    }
    Adesk::UInt8 parts = 0;
    filer->readUInt8(&parts);
    m_extra.reset();
    if (parts == 0) return filer->filerStatus();
    ObjectExtra& extra = ObjectAccess::makeExtra(*this);
    if (parts & kXdata) extra.xdata = readTags(*filer);
    if (parts & kForeign) extra.foreign = readTags(*filer);
    if (parts & kReactors) {
        Adesk::UInt32 count = 0;
        filer->readUInt32(&count);
        for (; count > 0 && filer->filerStatus() == Acad::eOk; --count) {
            AcDbSoftPointerId id;
            filer->readSoftPointerId(&id);
            if (!id.isNull()) extra.reactors.push_back(id);
        }
    }
    if (parts & kExtensionDictionary) {
        AcDbHardOwnershipId id;
        filer->readHardOwnershipId(&id);
        extra.extensionDictionary = id;
    }
    return filer->filerStatus();
}

// What all objects have in common is written and read by the file's own code.
Acad::ErrorStatus AcDbObject::dxfOutFields(AcDbDxfFiler* filer) const {
    return filer->filerStatus();
}
Acad::ErrorStatus AcDbObject::dxfInFields(AcDbDxfFiler* filer) {
    assertWriteEnabled();
    return filer->filerStatus();
}

AcDbObjectId AcDbObject::extensionDictionary() const {
    const AcDbObjectId id = m_extra ? m_extra->extensionDictionary : AcDbObjectId();
    return id.isErased() ? AcDbObjectId() : id;
}

Acad::ErrorStatus AcDbObject::createExtensionDictionary() {
    if (m_stub == nullptr) return Acad::eNoDatabase;
    if (!m_stub->writer) return Acad::eNotOpenForWrite;
    if (!extensionDictionary().isNull()) return Acad::eAlreadyInDb;
    assertWriteEnabled();
    auto* dictionary = new AcDbDictionary;
    DatabaseCore& core = m_stub->database->core();
    (void)core.makeResident(*dictionary, objectId());  // fails for taken handles only
    core.announce(*dictionary);
    ObjectAccess::makeExtra(*this).extensionDictionary = dictionary->objectId();
    return dictionary->close();
}

Acad::ErrorStatus AcDbObject::addPersistentReactor(AcDbObjectId id) {
    if (id.isNull()) return Acad::eNullObjectId;
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (m_extra) {
        const auto& known = m_extra->reactors;
        if (std::find(known.begin(), known.end(), id) != known.end()) return Acad::eDuplicateKey;
    }
    assertWriteEnabled();
    ObjectAccess::makeExtra(*this).reactors.push_back(id);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::removePersistentReactor(AcDbObjectId id) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    if (!m_extra) return Acad::eKeyNotFound;
    std::vector<AcDbObjectId>& known = m_extra->reactors;
    const auto at = std::find(known.begin(), known.end(), id);
    if (at == known.end()) return Acad::eKeyNotFound;
    assertWriteEnabled();
    known.erase(at);
    ObjectAccess::dropEmptyExtra(*this);
    return Acad::eOk;
}
