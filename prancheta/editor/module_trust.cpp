// SPDX-License-Identifier: MIT
// Which modules a script may have loaded without anybody being asked.
#include <algorithm>

#include "prancheta/base/file.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/modules.h"

namespace prancheta {
namespace {

namespace fs = std::filesystem;

/// Where a file or folder really is: a link does not lend its folder's name to what stands
/// elsewhere.
fs::path realPath(const fs::path& path) {
    std::error_code error;
    fs::path real = fs::weakly_canonical(path, error);
    if (error) real = path;
    return real.has_filename() ? real : real.parent_path();
}

bool isBelow(fs::path file, const fs::path& folder) {
    while (file.has_relative_path()) {
        file = file.parent_path();
        if (file == folder) return true;
    }
    return false;
}

/// The folder stands in a list of folders between semicolons; one that ends in `...` means all
/// below it, too.
bool isNamed(const fs::path& file, std::wstring_view folders) {
    while (!folders.empty()) {
        const std::size_t end = std::min(folders.find(L';'), folders.size());
        const std::wstring_view entry = trim(folders.substr(0, end));
        folders.remove_prefix(std::min(end + 1, folders.size()));
        const fs::path folder = resolvePath(entry);
        if (folder.is_relative()) continue;  // would be wherever the program was started
        const bool deep = folder.filename() == "...";
        const fs::path real = realPath(deep ? folder.parent_path() : folder);
        if (deep ? isBelow(file, real) : file.parent_path() == real) return true;
    }
    return false;
}

}  // namespace

void ModuleTable::trust(const fs::path& path) { m_trusted.push_back(realPath(locate(path))); }

ModuleTable::Trust ModuleTable::trustOf(const fs::path& path) {
    const fs::path located = locate(path);
    const std::wstring name = toWide(located.filename().string());
    if (find(name) != nullptr) return Trust::Free;  // nothing is loaded
    const fs::path file = realPath(located);
    const bool own = !m_folder.empty() && file.parent_path() == realPath(m_folder);
    const bool usual = std::any_of(kDefaultModules.begin(), kDefaultModules.end(),
                                   [&](const std::wstring& m) { return equalNoCase(m, name); });
    if (own && usual) return Trust::Free;
    if (m_others == Others::Barred) return Trust::Barred;
    const bool named = std::find(m_trusted.begin(), m_trusted.end(), file) != m_trusted.end() ||
                       isNamed(file, m_editor.variables().text(L"TRUSTEDPATHS"));
    return own || named ? Trust::Free : Trust::Unknown;
}

}  // namespace prancheta
