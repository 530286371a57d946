// SPDX-License-Identifier: MIT
// Records by the names that a file uses.
#include "prancheta/dxf/load_names.h"

#include "prancheta/base/text.h"

namespace prancheta::dxf {

AcDbObjectId LoadNames::find(Kind kind, std::string_view name) {
    auto& known = m_known[kind];
    if (const auto at = known.find(name); at != known.end()) return at->second;
    const AcDbObjectId id = resolve(kind, std::wstring(trim(std::wstring_view(text(name)))));
    known.emplace(name, id);
    return id;
}

AcDbObjectId LoadNames::byHandle(std::string_view handle) {
    std::uint64_t value = 0;
    AcDbObjectId id;
    if (parseHandle(handle, value) && value != 0)
        (void)m_database.getAcDbObjectId(id, true, AcDbHandle(value));
    return id;
}

}  // namespace prancheta::dxf
