// SPDX-License-Identifier: MIT
// Filer into memory: undo, copies, clones.
#include "prancheta/database/memory_filer.h"

#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "acutmem.h"

namespace prancheta {

Acad::ErrorStatus MemoryFiler::writeBytes(const void* data, Adesk::UInt32 size) {
    const char* first = static_cast<const char*>(data);
    m_bytes.insert(m_bytes.end(), first, first + size);
    return m_status;
}

Acad::ErrorStatus MemoryFiler::readBytes(void* data, Adesk::UInt32 size) {
    if (m_status == Acad::eOk && size > m_source.size()) m_status = Acad::eOutOfRange;
    if (m_status != Acad::eOk) {
        std::memset(data, 0, size);
        return m_status;
    }
    if (size != 0) std::memcpy(data, m_source.data(), size);
    m_source = m_source.subspan(size);
    return m_status;
}

Acad::ErrorStatus MemoryFiler::writeString(const ACHAR* text) {
    const auto length = static_cast<Adesk::UInt32>(text != nullptr ? std::wcslen(text) : 0);
    writeBytes(&length, sizeof length);
    return writeBytes(text, length * static_cast<Adesk::UInt32>(sizeof(ACHAR)));
}

Acad::ErrorStatus MemoryFiler::readString(ACHAR** text) {
    Adesk::UInt32 length = 0;
    readBytes(&length, sizeof length);
    if (m_status == Acad::eOk && length > m_source.size() / sizeof(ACHAR))
        m_status = Acad::eOutOfRange;
    if (m_status != Acad::eOk) length = 0;
    *text = static_cast<ACHAR*>(std::malloc((length + 1) * sizeof(ACHAR)));
    if (*text == nullptr) return m_status = Acad::eOutOfMemory;
    readBytes(*text, length * static_cast<Adesk::UInt32>(sizeof(ACHAR)));
    (*text)[length] = L'\0';
    return m_status;
}

Acad::ErrorStatus MemoryFiler::writeId(const AcDbObjectId& id) {
    if (referenceWritten) referenceWritten(id);
    const Adesk::LongPtr word = id.asOldId();
    return writeBytes(&word, sizeof word);
}

AcDbObjectId MemoryFiler::readPlain() {
    Adesk::LongPtr word = 0;
    readBytes(&word, sizeof word);
    AcDbObjectId id;
    id.setFromOldId(word);
    return id;
}

AcDbObjectId MemoryFiler::readId() {
    const AcDbObjectId id = readPlain();
    return translate && !id.isNull() ? translate(id) : id;
}

AcDbObjectId MemoryFiler::readOwned() {
    if (!translateOwned) return readId();
    const AcDbObjectId id = readPlain();
    return id.isNull() ? id : translateOwned(id);
}

Acad::ErrorStatus MemoryFiler::writeHardOwnershipId(const AcDbHardOwnershipId& id) {
    if (ownedWritten && !id.isNull()) ownedWritten(id);
    return writeId(id);
}
Acad::ErrorStatus MemoryFiler::readHardOwnershipId(AcDbHardOwnershipId* id) {
    *id = readOwned();
    return m_status;
}
Acad::ErrorStatus MemoryFiler::writeSoftOwnershipId(const AcDbSoftOwnershipId& id) {
    if (ownedWritten && !id.isNull()) ownedWritten(id);
    return writeId(id);
}
Acad::ErrorStatus MemoryFiler::readSoftOwnershipId(AcDbSoftOwnershipId* id) {
    *id = readOwned();
    return m_status;
}
Acad::ErrorStatus MemoryFiler::writeHardPointerId(const AcDbHardPointerId& id) {
    return writeId(id);
}
Acad::ErrorStatus MemoryFiler::readHardPointerId(AcDbHardPointerId* id) {
    *id = readId();
    return m_status;
}
Acad::ErrorStatus MemoryFiler::writeSoftPointerId(const AcDbSoftPointerId& id) {
    return writeId(id);
}
Acad::ErrorStatus MemoryFiler::readSoftPointerId(AcDbSoftPointerId* id) {
    *id = readId();
    return m_status;
}

void writeText(AcDbDwgFiler& filer, const std::wstring& text) { filer.writeString(text.c_str()); }

std::wstring readText(AcDbDwgFiler& filer) {
    ACHAR* text = nullptr;
    filer.readString(&text);
    std::wstring result = text != nullptr ? text : L"";
    acutDelString(text);
    return result;
}

void writeNarrow(AcDbDwgFiler& filer, std::string_view text) {
    filer.writeUInt32(static_cast<Adesk::UInt32>(text.size()));
    filer.writeBytes(text.data(), static_cast<Adesk::UInt32>(text.size()));
}

std::string readNarrow(AcDbDwgFiler& filer) {
    Adesk::UInt32 size = 0;
    filer.readUInt32(&size);
    // Read piecewise, so that a wrong length costs no memory.
    std::string text;
    char piece[256];
    while (size > 0 && filer.filerStatus() == Acad::eOk) {
        const Adesk::UInt32 n = size < sizeof piece ? size : sizeof piece;
        if (filer.readBytes(piece, n) != Acad::eOk) break;
        text.append(piece, n);
        size -= n;
    }
    return text;
}

}  // namespace prancheta
