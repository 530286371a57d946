// SPDX-License-Identifier: MIT
// Dictionary: named objects of a drawing.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "dbapserv.h"

class AcDbDictionaryIterator {
public:
    explicit AcDbDictionaryIterator(std::vector<std::pair<std::wstring, AcDbObjectId>> entries)
        : m_entries(std::move(entries)) {}
    bool done() const { return m_at >= m_entries.size(); }
    bool next() { return ++m_at < m_entries.size(); }
    const ACHAR* name() const { return m_entries[m_at].first.c_str(); }
    AcDbObjectId objectId() const { return m_entries[m_at].second; }

private:
    std::vector<std::pair<std::wstring, AcDbObjectId>> m_entries;
    std::size_t m_at = 0;
};

class AcDbDictionary : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDictionary);
    AcDbDictionary() = default;

    /// Case is kept and matters not. eKeyNotFound.
    Acad::ErrorStatus getAt(const ACHAR* key, AcDbObjectId& id) const;
    Acad::ErrorStatus getAt(const ACHAR* key, AcDbObject*& object, AcDb::OpenMode mode) const;
    bool has(const ACHAR* key) const;
    /// Makes the object resident, owned by this dictionary, open for write. An entry of this key is
    /// replaced and its object erased.
    Acad::ErrorStatus setAt(const ACHAR* key, AcDbObject* object, AcDbObjectId& id);
    /// Erases the entry's object.
    Acad::ErrorStatus remove(const ACHAR* key);
    Adesk::UInt32 numEntries() const;
    /// The caller deletes the iterator.
    AcDbDictionaryIterator* newIterator() const;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct prancheta::ObjectAccess;
    std::vector<std::pair<std::wstring, AcDbObjectId>>
        m_entries;  // erased ones included, undo brings them back
    std::unordered_map<std::wstring, std::size_t>
        m_byKey;  // key in lower case, position in m_entries
};
