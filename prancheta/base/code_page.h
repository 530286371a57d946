// SPDX-License-Identifier: MIT
// Code pages of old files, as the system knows them.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace prancheta {

/// Bytes of one or two a character; those below 0x80 are ASCII. What is no character of the page
/// becomes one for private use, U+F780 to U+F7FF, so that every byte comes back as it was.
class CodePage {
public:
    /// By the name that drawings give it ("ANSI_1251", "DOS852", "iso8859-5"). Null when the system
    /// does not know it, or when it is not of this kind.
    static std::unique_ptr<const CodePage> named(std::string_view name);
    /// A page of which nothing but ASCII is known.
    CodePage();

    std::wstring toWide(std::string_view bytes) const;
    /// False, and nothing appended, when the page lacks the character.
    bool append(std::string& out, char32_t c) const;

private:
    void add(std::uint16_t bytes, char32_t c);

    std::array<char32_t, 128> m_single{};
    std::unordered_map<std::uint16_t, char32_t> m_double;  ///< lead byte first
    std::unordered_map<char32_t, std::uint16_t> m_bytes;
};

/// One page of the system's tables, while it is read.
class SystemPage {
public:
    explicit SystemPage(const std::string& number);
    ~SystemPage();
    SystemPage(const SystemPage&) = delete;
    SystemPage& operator=(const SystemPage&) = delete;

    bool known() const;
    /// The one character that the bytes are; nothing when they are none, or only the beginning of
    /// one.
    std::optional<char32_t> decode(std::string_view bytes) const;

private:
    void* m_page = nullptr;
};

}  // namespace prancheta
