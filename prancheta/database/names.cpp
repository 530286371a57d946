// SPDX-License-Identifier: MIT
// Names of symbol table records.
#include "prancheta/database/names.h"

#include <algorithm>
#include <iterator>

#include "prancheta/base/symbol_name.h"
#include "prancheta/base/text.h"

namespace prancheta {

bool isValidName(std::wstring_view name, bool isBlock) {
    if (isBlock && name.size() > 1 && name.front() == L'*') name.remove_prefix(1);
    if (name.empty() || name.size() > 255) return false;
    return std::none_of(name.begin(), name.end(), [](wchar_t c) {
        return c < 32 || c == 127 ||
               (c < 128 && kForbiddenInNames.find(static_cast<char>(c)) != std::string_view::npos);
    });
}

bool isReservedName(std::wstring_view name) {
    static const std::wstring_view kReserved[] = {
        L"0", L"ByLayer", L"ByBlock", L"Continuous", L"*Model_Space", L"*Paper_Space", L"ACAD"};
    return std::any_of(std::begin(kReserved), std::end(kReserved),
                       [&](std::wstring_view r) { return equalNoCase(r, name); });
}

}  // namespace prancheta
