// SPDX-License-Identifier: MIT
// Paths are wide on one system and bytes on the other, by custom UTF-8.
#include "texts/path.h"

#include <algorithm>

#include "texts/encoding.h"
#include "texts/letters.h"

namespace texts {

namespace fs = std::filesystem;

#ifdef _WIN32

fs::path pathOf(std::wstring_view text) { return text; }
fs::path entryOf(const fs::path& folder, const fs::path& name) { return folder / name; }
std::wstring shown(const fs::path& path) { return path.native(); }

#else

fs::path pathOf(std::wstring_view text) {
    std::string bytes = encodeUtf8(text);
    std::ranges::replace(bytes, '\\', '/');
    return bytes;
}

fs::path entryOf(const fs::path& folder, const fs::path& name) {
    std::error_code error;
    fs::path spelled = folder / name;
    if (fs::exists(spelled, error)) return spelled;
    const std::optional<std::wstring> wanted = decodeUtf8(name.native());
    if (!wanted) return spelled;
    fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const std::optional<std::wstring> found = decodeUtf8(entry->path().filename().native());
        if (found && equalIgnoringCase(*found, *wanted)) return folder / entry->path().filename();
    }
    return spelled;
}

std::wstring shown(const fs::path& path) {
    const std::string& bytes = path.native();
    if (std::optional<std::wstring> text = decodeUtf8(bytes)) return *std::move(text);
    std::wstring text;
    for (const char c : bytes)
        text += static_cast<unsigned char>(c) < 0x80 ? static_cast<wchar_t>(c) : L'?';
    return text;
}

#endif

}  // namespace texts
