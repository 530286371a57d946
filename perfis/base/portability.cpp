// SPDX-License-Identifier: MIT
// The environment; files: names found as users of the other system typed them; when they changed,
// who writes them.
#include "perfis/base/portability.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <thread>

#include "files/replacement.h"
#include "texts/encoding.h"
#include "texts/path.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace perfis {
namespace {

namespace fs = std::filesystem;

struct FileState {
    std::uint64_t version = 0;
    std::chrono::nanoseconds age{};  ///< since the last change
};

/// Odd multiplier: two files of different size and equal time get different numbers.
std::uint64_t versionOf(std::int64_t time, std::uintmax_t size, std::uint64_t file) {
    constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15ULL;
    return static_cast<std::uint64_t>(time) +
           (static_cast<std::uint64_t>(size) + file * kSpread) * kSpread;
}

/// Tries until it works or patience ends.
template <class Try>
bool untilTaken(Try take) {
    const auto end = std::chrono::steady_clock::now() + FolderLock::kPatience;
    while (!take()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

#ifdef _WIN32

fs::path nativePath(std::wstring_view text) { return texts::pathOf(text); }

/// A file that goes with its handle.
int lockFolder(const fs::path& folder) {
    constexpr int kFlags = _O_CREAT | _O_RDWR | _O_TEMPORARY | _O_NOINHERIT;
    int descriptor = -1;
    const fs::path file = folder / L"listas.lock";
    (void)untilTaken([&] {
        return _wsopen_s(&descriptor, file.c_str(), kFlags, _SH_DENYRW, _S_IREAD | _S_IWRITE) == 0;
    });
    return descriptor;
}
void unlockFolder(int descriptor) { (void)_close(descriptor); }

FileState fileState(std::wstring_view path) {
    std::error_code error;
    const fs::path file = nativePath(path);
    const auto time = fs::last_write_time(file, error);
    if (error) return {};
    const std::uintmax_t size = fs::file_size(file, error);
    if (error) return {};
    return {versionOf(time.time_since_epoch().count(), size, 0),
            fs::file_time_type::clock::now() - time};
}

#else

fs::path nativePath(std::wstring_view text) {
    fs::path typed = texts::pathOf(text);
    std::error_code error;
    if (fs::exists(typed, error)) return typed;
    fs::path path;
    for (const fs::path& part : typed)
        path = part.has_root_directory() ? part : texts::entryOf(path, part);
    return path;
}

int lockFolder(const fs::path& folder) {
    const int descriptor =
        ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0)
        (void)untilTaken(
            [=] { return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK; });
    return descriptor;
}
void unlockFolder(int descriptor) { (void)::close(descriptor); }

/// Every command asks: one question to the system where the name is spelled right.
FileState fileState(std::wstring_view path) {
    struct stat status {};
    if (::stat(texts::pathOf(path).c_str(), &status) != 0 &&
        ::stat(nativePath(path).c_str(), &status) != 0)
        return {};
    const auto changed = std::chrono::seconds(status.st_ctim.tv_sec) +
                         std::chrono::nanoseconds(status.st_ctim.tv_nsec);
    return {versionOf(changed.count(), static_cast<std::uintmax_t>(status.st_size), status.st_ino),
            std::chrono::system_clock::now().time_since_epoch() - changed};
}

#endif

}  // namespace

std::optional<std::wstring> environmentText(const char* name) {
#ifdef _WIN32
    const std::wstring wideName(name, name + std::char_traits<char>::length(name));
    const wchar_t* const value = _wgetenv(wideName.c_str());
    if (value == nullptr || *value == L'\0') return std::nullopt;
    return std::wstring(value);
#else
    const char* const value = std::getenv(name);
    if (value == nullptr || *value == '\0') return std::nullopt;
    return texts::decodeText(value);
#endif
}

FolderLock::FolderLock(std::wstring_view fileInFolder)
    : m_descriptor(lockFolder(nativePath(fileInFolder).parent_path())) {}

FolderLock::~FolderLock() {
    if (m_descriptor >= 0) unlockFolder(m_descriptor);
}

std::uint64_t fileVersion(std::wstring_view path) { return fileState(path).version; }

std::uint64_t settledFileVersion(std::wstring_view path) {
    constexpr std::chrono::seconds kSettled(2);
    const FileState state = fileState(path);
    return state.age > kSettled ? state.version : 0;
}

std::optional<std::string> readFile(std::wstring_view path) {
    return files::readRegular(nativePath(path));
}

bool replaceFile(std::wstring_view path, std::string_view bytes) {
    return files::replace(nativePath(path), bytes) == 0;
}

bool keepOldFile(std::wstring_view path) {
    const fs::path file = nativePath(path);
    const std::optional<std::string> bytes = files::readRegular(file);
    if (!bytes) return true;
    std::error_code error;
    fs::path copy;
    for (int i = 1; copy.empty() || fs::exists(copy, error); ++i) {
        copy = file;
        copy += ".antigo" + (i == 1 ? std::string() : std::to_string(i));
    }
    return !error && files::replace(copy, *bytes) == 0;
}

}  // namespace perfis
