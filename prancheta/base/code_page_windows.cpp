// SPDX-License-Identifier: MIT
// Code pages by the tables of Windows.
#include <windows.h>

#include <cstdlib>

#include "prancheta/base/code_page.h"
#include "prancheta/base/code_point.h"

namespace prancheta {
namespace {

UINT numberOf(const void* page) { return static_cast<UINT>(reinterpret_cast<UINT_PTR>(page)); }

/// Pages that Windows has by number only.
UINT numberOfName(const std::string& name) {
    constexpr UINT kIso8859 = 28590;
    if (name.starts_with("CP")) return static_cast<UINT>(std::atoi(name.c_str() + 2));
    if (name.starts_with("ISO8859-"))
        return kIso8859 + static_cast<UINT>(std::atoi(name.c_str() + 8));
    return 0;
}

}  // namespace

SystemPage::SystemPage(const std::string& name) {
    const UINT number = numberOfName(name);
    if (number != 0 && IsValidCodePage(number) != 0)
        m_page = reinterpret_cast<void*>(static_cast<UINT_PTR>(number));
}

SystemPage::~SystemPage() = default;

bool SystemPage::known() const { return m_page != nullptr; }

std::optional<char32_t> SystemPage::decode(std::string_view bytes) const {
    const UINT number = numberOf(m_page);
    if (bytes.size() == 1 && IsDBCSLeadByteEx(number, static_cast<BYTE>(bytes[0])) != 0) return {};
    wchar_t units[4] = {};
    const int count = MultiByteToWideChar(number, MB_ERR_INVALID_CHARS, bytes.data(),
                                          static_cast<int>(bytes.size()), units, 4);
    if (count <= 0) return {};
    std::size_t at = 0;
    const char32_t c = nextWide({units, static_cast<std::size_t>(count)}, at);
    return at == static_cast<std::size_t>(count) ? std::optional(c) : std::nullopt;
}

}  // namespace prancheta
