// SPDX-License-Identifier: MIT
// Finds the installation folder and keeps the user's copy.
#include "prancheta/editor/installation.h"

#include <algorithm>
#include <string>
#include <vector>

#include "prancheta/base/file.h"
#include "prancheta/base/library.h"
#include "prancheta/base/utf8_path.h"

namespace prancheta {
namespace {

namespace fs = std::filesystem;

/// Written last, so that a copy that was broken off is made again.
constexpr const char* kStamp = "versao";
/// What users do not edit; everything else is theirs once it is there.
constexpr const char* kOurs[] = {".dcl", ".slb", ".sld", ".json", ".md", ".csv"};
/// Where the system keeps what programs write for one user.
#ifdef _WIN32
constexpr const char* kDataVariable = "LOCALAPPDATA";
#else
constexpr const char* kDataVariable = "XDG_DATA_HOME";
#endif

fs::path userFolder() {
    const fs::path data = pathFromUtf8(environment(kDataVariable));
    if (data.is_absolute()) return data / "prancheta" / "instalacao";
    const std::string home = environment("HOME");
    if (home.empty()) return {};
    return pathFromUtf8(home) / ".local" / "share" / "prancheta" / "instalacao";
}

/// Changes with every package: the files' names, sizes and dates.
std::string stampOf(const fs::path& folder) {
    std::vector<std::string> lines;
    std::error_code ignored;
    for (const auto& entry : fs::recursive_directory_iterator(folder, ignored)) {
        if (!entry.is_regular_file(ignored)) continue;
        const auto when = entry.last_write_time(ignored).time_since_epoch().count();
        lines.push_back(entry.path().lexically_relative(folder).string() + " " +
                        std::to_string(entry.file_size(ignored)) + " " + std::to_string(when));
    }
    std::sort(lines.begin(), lines.end());
    std::string out;
    for (const std::string& line : lines) out += line + "\n";
    return out;
}

Result<void> copyFile(const fs::path& from, const fs::path& to) {
    const Result<std::string> bytes = readFile(from);
    if (!bytes) return bytes.error();
    AtomicFile file(to);
    if (auto opened = file.open(); !opened) return opened;
    file.write(*bytes);
    return file.commit();
}

Result<void> writeText(const fs::path& path, const std::string& text) {
    AtomicFile file(path);
    if (auto opened = file.open(); !opened) return opened;
    file.write(text);
    return file.commit();
}

Result<void> copyAll(const fs::path& from, const fs::path& to) {
    std::error_code error;
    for (const auto& entry : fs::recursive_directory_iterator(from, error)) {
        const fs::path target = to / entry.path().lexically_relative(from);
        std::error_code failed;
        if (entry.is_directory(failed)) {
            fs::create_directories(target, failed);
            if (failed)
                return Error{"a pasta não pôde ser criada: " + errnoText(failed.value()) +
                                 "; confira o espaço e as permissões",
                             target.string(), 0, 0};
            continue;
        }
        const bool ours =
            std::find(std::begin(kOurs), std::end(kOurs), target.extension()) != std::end(kOurs);
        if (!ours && fs::exists(target, failed)) continue;
        if (auto copied = copyFile(entry.path(), target); !copied) return copied;
    }
    return {};
}

}  // namespace

Result<fs::path> usableInstallation(const fs::path& programFolder) {
    std::error_code ignored;
    const fs::path beside = programFolder.parent_path() / "instalacao";
    if (fs::is_directory(beside, ignored)) return beside;
    const fs::path shipped =
        programFolder.parent_path().parent_path() / "share" / "prancheta" / "instalacao";
    if (!fs::is_directory(shipped, ignored)) return fs::path();
    const fs::path own = userFolder();
    if (own.empty()) return shipped;
    const std::string stamp = stampOf(shipped);
    const Result<std::string> present = readFile(own / kStamp);
    if (present && *present == stamp) return own;
    fs::create_directories(own, ignored);  // copyAll says why when it cannot write
    if (auto copied = copyAll(shipped, own); !copied) return copied.error();
    if (auto stamped = writeText(own / kStamp, stamp); !stamped) return stamped.error();
    return own;
}

}  // namespace prancheta
