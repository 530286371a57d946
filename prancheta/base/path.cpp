// SPDX-License-Identifier: MIT
// Paths as programs of any system write them.
#include <algorithm>

#include "prancheta/base/file.h"
#include "prancheta/base/text.h"

namespace prancheta {
namespace fs = std::filesystem;
namespace {

/// The entry of `folder` whose name differs from `name` in case only; `name` itself when there is
/// none.
fs::path entryNoCase(const fs::path& folder, const fs::path& name) {
    const std::wstring wanted = foldCase(toWide(name.string()));
    std::error_code error;
    for (fs::directory_iterator it(folder.empty() ? fs::path(".") : folder, error), end;
         !error && it != end; it.increment(error)) {
        if (foldCase(toWide(it->path().filename().string())) == wanted)
            return it->path().filename();
    }
    return name;
}

}  // namespace

fs::path resolvePath(std::string_view utf8Path) {
    std::string slashed(utf8Path);
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    fs::path asWritten(std::u8string(slashed.begin(), slashed.end()));
    std::error_code error;
    if (fs::exists(asWritten, error)) return asWritten;

    fs::path found;
    for (const fs::path& part : asWritten) {
        const fs::path next = found / part;
        const bool plain = part.empty() || part == "/" || part == "." || part == "..";
        found = plain || fs::exists(next, error) ? next : found / entryNoCase(found, part);
    }
    return found;
}

fs::path resolvePath(std::wstring_view path) { return resolvePath(std::string_view(toUtf8(path))); }

}  // namespace prancheta
