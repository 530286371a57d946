// SPDX-License-Identifier: MIT
// Single shapes of built-up sections.
#include "zp/objects/secao/single.h"

#include <algorithm>
#include <array>
#include <vector>

#include "texts/letters.h"

namespace zp::secao {
namespace {

struct BuiltUp {
    const wchar_t* perfil;
    const wchar_t* single;
    /// The height of the whole is the width of the single one.
    bool lying = false;
};

/// Each of two equal shapes.
constexpr std::array kBuiltUps{
    BuiltUp{L"2U ][", L"U"},   BuiltUp{L"2U []", L"U"},         BuiltUp{L"2Ue ][", L"Ue"},
    BuiltUp{L"2Ue []", L"Ue"}, BuiltUp{L"2L []", L"L"},         BuiltUp{L"2L T", L"L"},
    BuiltUp{L"2L U", L"L"},    BuiltUp{L"2L X", L"L"},          BuiltUp{L"2L +", L"L"},
    BuiltUp{L"2L Z", L"L"},    BuiltUp{L"2Cr ][", L"Cr", true},
};

/// "200x75x3" with its first two sizes changed.
std::wstring turned(const std::wstring& sizes) {
    const std::size_t first = sizes.find(L'x');
    if (first == std::wstring::npos) return sizes;
    const std::size_t second = std::min(sizes.find(L'x', first + 1), sizes.size());
    return sizes.substr(first + 1, second - first - 1) + L'x' + sizes.substr(0, first) +
           sizes.substr(second);
}

}  // namespace

Single singleOf(const std::wstring& perfil, const std::wstring& dimensoes) {
    const auto* const built = std::ranges::find(kBuiltUps, perfil, &BuiltUp::perfil);
    if (built == kBuiltUps.end()) return {1, perfil, dimensoes};
    const std::wstring sizes = dimensoes.substr(0, dimensoes.find(L' '));
    return {2, built->single, built->lying ? turned(sizes) : sizes};
}

std::wstring designacaoText(const std::wstring& perfil, const std::wstring& dimensoes,
                            const std::wstring& name) {
    if (name.empty()) return texts::trimmed(perfil + L' ' + dimensoes);
    if (singleOf(perfil, dimensoes).count == 1) return name;
    const std::size_t sizes = std::min(name.find(L' '), name.size());
    const std::size_t gaps = std::min(dimensoes.find(L' '), dimensoes.size());
    return perfil + name.substr(sizes) + dimensoes.substr(gaps);
}

std::wstring designationKey(std::wstring_view designation) {
    std::wstring key;
    bool decimals = false;
    // "3,00" is the 3 of the lists.
    const auto endNumber = [&] {
        while (decimals && key.ends_with(L'0')) key.pop_back();
        if (decimals && key.ends_with(L',')) key.pop_back();
        decimals = false;
    };
    for (const wchar_t c : texts::lower(designation)) {
        if (c == L' ') continue;
        const bool sign = c == L'.' || c == L',';
        if (sign || c < L'0' || c > L'9') endNumber();
        key += sign ? L',' : c;
        decimals = decimals || sign;
    }
    endNumber();
    return key;
}

}  // namespace zp::secao
