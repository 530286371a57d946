// SPDX-License-Identifier: MIT
// Names of records as a file shows them.
#include "prancheta/dxf/save_names.h"

#include "prancheta/database/object_access.h"
#include "prancheta/dxf/encoding.h"

namespace prancheta::dxf {

const std::string& SaveNames::of(AcDbObjectId id) {
    static const std::string kNone;
    const AcDbStub* stub = id;
    if (stub == nullptr || stub->object == nullptr) return kNone;
    const auto [at, isNew] = m_names.try_emplace(stub);
    if (isNew)
        if (const auto* record = AcDbSymbolTableRecord::cast(stub->object))
            at->second = encodeText(ObjectAccess::name(*record));
    return at->second;
}

const std::string& SaveNames::of(AcDbObjectId id, const std::string& otherwise) {
    const std::string& name = of(id);
    return name.empty() || id.isErased() ? otherwise : name;
}

}  // namespace prancheta::dxf
