// SPDX-License-Identifier: MIT
// Records by the names that a file uses.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>

#include "dbsymtb.h"
#include "prancheta/dxf/encoding.h"
#include "prancheta/dxf/tag.h"

namespace prancheta::dxf {

/// Finds records by name, keeping the answers by the name's bytes in the file. What is missing is
/// made, because files in the wild name layers and styles without a record.
class LoadNames {
public:
    enum Kind { kLayer, kLinetype, kTextStyle, kDimStyle, kBlock, kKinds };

    LoadNames(AcDbDatabase& database, Charset charset) : m_database(database), m_charset(charset) {}
    virtual ~LoadNames() = default;

    Charset charset() const { return m_charset; }
    void setCharset(Charset charset) { m_charset = charset; }
    AcDbDatabase& database() { return m_database; }
    std::wstring text(std::string_view value) const { return decodeText(value, m_charset); }
    AcDbObjectId find(Kind kind, std::string_view name);
    /// Object of a handle, also of one that the file has not told yet; null for 0.
    AcDbObjectId byHandle(std::string_view handle);

protected:
    /// Called once for each name.
    virtual AcDbObjectId resolve(Kind kind, const std::wstring& name) = 0;

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>()(text);
        }
    };
    AcDbDatabase& m_database;
    Charset m_charset;
    std::unordered_map<std::string, AcDbObjectId, Hash, std::equal_to<>> m_known[kKinds];
};

}  // namespace prancheta::dxf
