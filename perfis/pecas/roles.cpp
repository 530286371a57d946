// SPDX-License-Identifier: MIT
// The table of the roles.
#include "perfis/pecas/roles.h"

#include <string_view>

#include "perfis/entities/zpobject.h"
#include "texts/letters.h"
#include "texts/number.h"

namespace perfis {
namespace {

struct RoleName {
    int role;
    std::wstring_view word;
};
constexpr RoleName kRoles[] = {
    {ZpObject::kBarra, L"barra"},
    {ZpObject::kMontante, L"montante"},
    {ZpObject::kDiagonal, L"diagonal"},
    {ZpObject::kBanzoInferior, L"banzo_inferior"},
    {ZpObject::kBanzoSuperior, L"banzo_superior"},
    {ZpObject::kViga, L"viga"},
    {ZpObject::kPilar, L"pilar"},
    {ZpObject::kTerca, L"ter\u00E7a"},
};

/// "Terça", "terca" and "banzo inferior" are meant, too.
std::wstring plain(std::wstring_view word) {
    std::wstring text = texts::lower(word);
    for (wchar_t& c : text) {
        if (c == L'\u00E7') c = L'c';
        if (c == L' ' || c == L'-') c = L'_';
    }
    return text;
}

}  // namespace

std::optional<int> roleCalled(const std::wstring& word) {
    const std::optional<double> number = texts::exactReal(word);
    for (const RoleName& name : kRoles)
        if (plain(name.word) == plain(word) || (number && *number == name.role)) return name.role;
    return {};
}

std::wstring roleWord(int role) {
    for (const RoleName& name : kRoles)
        if (name.role == role && role != ZpObject::kBarra) return std::wstring(name.word);
    return {};
}

std::wstring roleWords() {
    std::wstring text;
    for (const RoleName& name : kRoles)
        text += (text.empty() ? L"" : L", ") + std::wstring(name.word);
    return text;
}

}  // namespace perfis
