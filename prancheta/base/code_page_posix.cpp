// SPDX-License-Identifier: MIT
// Code pages by the converter of the C library.
#include <iconv.h>

#include "prancheta/base/code_page.h"

namespace prancheta {
namespace {

/// What iconv gives for a page that the system does not know.
// NOLINTNEXTLINE(performance-no-int-to-ptr): the interface's own value for none
void* const kNoConverter = reinterpret_cast<void*>(-1);

}  // namespace

SystemPage::SystemPage(const std::string& name)
    : m_page(iconv_open("UTF-32LE", name == "CP1361" ? "JOHAB" : name.c_str())) {}

SystemPage::~SystemPage() {
    if (known()) iconv_close(m_page);
}

bool SystemPage::known() const { return m_page != kNoConverter; }

std::optional<char32_t> SystemPage::decode(std::string_view bytes) const {
    std::string input(bytes);
    char* in = input.data();
    std::size_t inLeft = input.size();
    unsigned char units[16] = {};
    char* out = reinterpret_cast<char*>(units);
    std::size_t outLeft = sizeof units;
    iconv(m_page, nullptr, nullptr, nullptr, nullptr);
    constexpr auto kFailed = static_cast<std::size_t>(-1);
    if (iconv(m_page, &in, &inLeft, &out, &outLeft) == kFailed) return {};
    // Some pages hold a letter back until they know that no accent follows.
    if (iconv(m_page, nullptr, nullptr, &out, &outLeft) == kFailed) return {};
    if (inLeft != 0 || sizeof units - outLeft != 4) return {};
    return static_cast<char32_t>(units[0]) | static_cast<char32_t>(units[1]) << 8 |
           static_cast<char32_t>(units[2]) << 16 | static_cast<char32_t>(units[3]) << 24;
}

}  // namespace prancheta
