// SPDX-License-Identifier: MIT
// Tables of a code page, filled from the system's once.
#include "prancheta/base/code_page.h"

#include <algorithm>

#include "prancheta/base/code_point.h"

namespace prancheta {
namespace {

constexpr char32_t kPrivate = 0xF700;
constexpr unsigned kFirstTrail = 0x40;

std::string bytesOf(std::uint16_t bytes) {
    std::string out;
    if (bytes > 0xFF) out.push_back(static_cast<char>(bytes >> 8));
    out.push_back(static_cast<char>(bytes & 0xFF));
    return out;
}

/// Name by which the systems know a page: CP and its number, or as the drawing says it.
std::string systemName(std::string_view name) {
    std::string upper(name);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    for (const std::string_view prefix : {"ANSI_", "DOS", "CP"})
        if (upper.starts_with(prefix)) return "CP" + upper.substr(prefix.size());
    return upper;
}

bool isName(std::string_view name) {
    return std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || c == '-' || c == '_';
    });
}

bool isAscii(const SystemPage& page) {
    for (char c = 0x20; c < 0x7F; ++c)
        if (page.decode({&c, 1}) != static_cast<char32_t>(c)) return false;
    return true;
}

}  // namespace

CodePage::CodePage() {
    for (std::uint16_t byte = 0x80; byte < 0x100; ++byte) add(byte, kPrivate + byte);
}

void CodePage::add(std::uint16_t bytes, char32_t c) {
    if (bytes > 0xFF)
        m_double[bytes] = c;
    else
        m_single[bytes - 0x80U] = c;
    m_bytes.try_emplace(c, bytes);
}

std::unique_ptr<const CodePage> CodePage::named(std::string_view name) {
    const std::string known = systemName(name);
    if (name.empty() || !isName(known)) return nullptr;
    const SystemPage system(known);
    if (!system.known() || !isAscii(system)) return nullptr;
    auto page = std::make_unique<CodePage>();
    for (std::uint16_t byte = 0x80; byte < 0x100; ++byte) {
        if (const auto c = system.decode(bytesOf(byte))) {
            page->m_bytes.erase(kPrivate + byte);
            page->add(byte, *c);
            continue;
        }
        for (unsigned trail = kFirstTrail; trail < 0xFF; ++trail) {
            const auto both = static_cast<std::uint16_t>(unsigned{byte} << 8 | trail);
            if (const auto c = system.decode(bytesOf(both))) page->add(both, *c);
        }
    }
    return page;
}

std::wstring CodePage::toWide(std::string_view bytes) const {
    std::wstring out;
    out.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        if (byte < 0x80) {
            out.push_back(static_cast<wchar_t>(byte));
            continue;
        }
        if (at + 1 < bytes.size() && !m_double.empty()) {
            const auto trail = static_cast<unsigned char>(bytes[at + 1]);
            const auto both =
                m_double.find(static_cast<std::uint16_t>(unsigned{byte} << 8 | trail));
            if (both != m_double.end()) {
                appendWide(out, both->second);
                ++at;
                continue;
            }
        }
        appendWide(out, m_single[byte - 0x80U]);
    }
    return out;
}

bool CodePage::append(std::string& out, char32_t c) const {
    if (c < 0x80) {
        out.push_back(static_cast<char>(c));
        return true;
    }
    const auto found = m_bytes.find(c);
    if (found == m_bytes.end()) return false;
    out += bytesOf(found->second);
    return true;
}

}  // namespace prancheta
