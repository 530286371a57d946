// SPDX-License-Identifier: MIT
// Filer into memory: undo, copies, clones.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dbfiler.h"

namespace prancheta {

/// Writes to a buffer of its own, or reads from bytes that outlive it. References are kept as they
/// are.
class MemoryFiler : public AcDbDwgFiler {
public:
    explicit MemoryFiler(AcDb::FilerType type) : m_type(type) {}
    MemoryFiler(AcDb::FilerType type, std::span<const char> source)
        : m_type(type), m_source(source) {}

    const std::vector<char>& bytes() const { return m_bytes; }
    /// Starts reading what was written.
    void rewind() { m_source = m_bytes; }
    /// True when everything was read.
    bool atEnd() const { return m_source.empty(); }
    /// Applied to every reference that is read.
    std::function<AcDbObjectId(AcDbObjectId)> translate;
    /// Applied instead to those that the object owns, where it is given.
    std::function<AcDbObjectId(AcDbObjectId)> translateOwned;
    /// Called for every reference that is written.
    std::function<void(AcDbObjectId)> referenceWritten;
    /// Called for every object that the writer owns.
    std::function<void(AcDbObjectId)> ownedWritten;

    Acad::ErrorStatus filerStatus() const override { return m_status; }
    AcDb::FilerType filerType() const override { return m_type; }
    void setFilerStatus(Acad::ErrorStatus es) override { m_status = es; }
    void resetFilerStatus() override { m_status = Acad::eOk; }

    Acad::ErrorStatus writeBytes(const void* data, Adesk::UInt32 size) override;
    Acad::ErrorStatus readBytes(void* data, Adesk::UInt32 size) override;
    Acad::ErrorStatus writeString(const ACHAR* text) override;
    Acad::ErrorStatus readString(ACHAR** text) override;
    Acad::ErrorStatus writeHardOwnershipId(const AcDbHardOwnershipId& id) override;
    Acad::ErrorStatus readHardOwnershipId(AcDbHardOwnershipId* id) override;
    Acad::ErrorStatus writeSoftOwnershipId(const AcDbSoftOwnershipId& id) override;
    Acad::ErrorStatus readSoftOwnershipId(AcDbSoftOwnershipId* id) override;
    Acad::ErrorStatus writeHardPointerId(const AcDbHardPointerId& id) override;
    Acad::ErrorStatus readHardPointerId(AcDbHardPointerId* id) override;
    Acad::ErrorStatus writeSoftPointerId(const AcDbSoftPointerId& id) override;
    Acad::ErrorStatus readSoftPointerId(AcDbSoftPointerId* id) override;

private:
    Acad::ErrorStatus writeId(const AcDbObjectId& id);
    AcDbObjectId readPlain();
    AcDbObjectId readId();
    AcDbObjectId readOwned();

    AcDb::FilerType m_type;
    std::vector<char> m_bytes;
    std::span<const char> m_source;
    Acad::ErrorStatus m_status = Acad::eOk;
};

/// Texts of any content, also narrow ones, by any filer.
void writeText(AcDbDwgFiler& filer, const std::wstring& text);
std::wstring readText(AcDbDwgFiler& filer);
void writeNarrow(AcDbDwgFiler& filer, std::string_view text);
std::string readNarrow(AcDbDwgFiler& filer);

}  // namespace prancheta
