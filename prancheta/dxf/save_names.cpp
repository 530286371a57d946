// SPDX-License-Identifier: MIT
// Names of records as a file shows them.
#include "prancheta/dxf/save_names.h"

#include "prancheta/base/text.h"
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
            at->second = encodeText(m_rules == Rules::R12 ? restricted(*record)
                                                          : ObjectAccess::name(*record));
    return at->second;
}

std::wstring SaveNames::restricted(const AcDbSymbolTableRecord& record) {
    constexpr std::size_t kLongest = 31;
    const std::wstring original = ObjectAccess::name(record);
    std::wstring capitals;
    for (const wchar_t c : withoutAccents(original))
        capitals += c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
    std::wstring name = capitals.substr(0, kLongest);
    for (wchar_t& c : name) {
        const bool known = (c >= L'A' && c <= L'Z') || (c >= L'0' && c <= L'9') || c == L'$' ||
                           c == L'_' || c == L'-';
        if (!known) c = L'_';
    }
    const std::wstring wanted = name;
    for (int number = 2; !m_taken.emplace(record.isA(), name).second; ++number) {
        const std::wstring ending = L"_" + std::to_wstring(number);
        name = wanted.substr(0, kLongest - ending.size()) + ending;
    }
    if (record.isKindOf(AcDbLayerTableRecord::desc()) && !equalNoCase(name, original))
        m_changed.push_back(original + L": " + name);
    return name;
}

const std::string& SaveNames::of(AcDbObjectId id, const std::string& otherwise) {
    const std::string& name = of(id);
    return name.empty() || id.isErased() ? otherwise : name;
}

}  // namespace prancheta::dxf
