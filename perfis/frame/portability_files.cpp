// SPDX-License-Identifier: MIT
// Files: names found as users of the other system typed them, contents replaced whole or not at
// all.
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "perfis/frame/encoding.h"
#include "perfis/frame/portability.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <process.h>
#include <share.h>
#include <sys/stat.h>

#include <thread>
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

#ifdef _WIN32

fs::path nativePath(std::wstring_view text) { return fs::path(text); }
bool mayWrite(const fs::path& file) { return _waccess(file.c_str(), 2) == 0; }
int processNumber() { return _getpid(); }

bool writeFlushed(const fs::path& file, std::string_view bytes, const fs::path&) {
    constexpr int kFlags = _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT;
    constexpr std::size_t kChunk = 1U << 20;
    int descriptor = -1;
    if (_wsopen_s(&descriptor, file.c_str(), kFlags, _SH_DENYWR, _S_IREAD | _S_IWRITE) != 0)
        return false;
    bool good = true;
    while (good && !bytes.empty()) {
        const auto size = static_cast<unsigned>(bytes.size() < kChunk ? bytes.size() : kChunk);
        const int written = _write(descriptor, bytes.data(), size);
        good = written > 0;
        if (good) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    good = _commit(descriptor) == 0 && good;
    return _close(descriptor) == 0 && good;
}
void flushFolder(const fs::path&) {}

/// A file that goes with its handle; who finds it taken tries again for a while.
int lockFolder(const fs::path& folder) {
    constexpr int kFlags = _O_CREAT | _O_RDWR | _O_TEMPORARY | _O_NOINHERIT;
    for (int tries = 0; tries < 200; ++tries) {
        int descriptor = -1;
        const fs::path file = folder / L"listas.lock";
        if (_wsopen_s(&descriptor, file.c_str(), kFlags, _SH_DENYRW, _S_IREAD | _S_IWRITE) == 0)
            return descriptor;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return -1;
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

/// The entry of `folder` with this name whatever its case; the name itself when there is none.
fs::path findName(const fs::path& folder, const fs::path& name) {
    std::error_code error;
    if (fs::exists(folder / name, error)) return folder / name;
    const std::optional<std::wstring> wanted = decodeUtf8(name.native());
    if (!wanted) return folder / name;
    fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const std::optional<std::wstring> found = decodeUtf8(entry->path().filename().native());
        if (found && equalIgnoringCase(*found, *wanted)) return folder / entry->path().filename();
    }
    return folder / name;
}

std::string slashed(std::wstring_view text) {
    std::string bytes = encodeUtf8(text);
    std::replace(bytes.begin(), bytes.end(), '\\', '/');
    return bytes;
}

fs::path nativePath(std::wstring_view text) {
    fs::path typed(slashed(text));
    std::error_code error;
    if (fs::exists(typed, error)) return typed;
    fs::path path;
    for (const fs::path& part : typed)
        path = part.has_root_directory() ? part : findName(path, part);
    return path;
}

bool mayWrite(const fs::path& file) { return ::access(file.c_str(), W_OK) == 0; }
int processNumber() { return static_cast<int>(::getpid()); }

/// Creates `file`, which must not exist, with the permissions of `model` when that exists.
bool writeFlushed(const fs::path& file, std::string_view bytes, const fs::path& model) {
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0) return false;
    struct stat status {};
    // A file system without permissions refuses the copy; the list is none the worse for it.
    if (::stat(model.c_str(), &status) == 0) (void)::fchmod(descriptor, status.st_mode & 07777);
    bool good = true;
    while (good && !bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        good = written > 0;
        if (good) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    good = ::fsync(descriptor) == 0 && good;
    return ::close(descriptor) == 0 && good;
}

/// Makes the rename itself last; the new contents are already safe, so a failure changes nothing.
void flushFolder(const fs::path& folder) {
    const int descriptor = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return;
    (void)::fsync(descriptor);
    (void)::close(descriptor);
}

int lockFolder(const fs::path& folder) {
    const int descriptor =
        ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) (void)::flock(descriptor, LOCK_EX);
    return descriptor;
}
void unlockFolder(int descriptor) { (void)::close(descriptor); }

/// Every command asks: one question to the system where the name is spelled right.
FileState fileState(std::wstring_view path) {
    struct stat status {};
    if (::stat(slashed(path).c_str(), &status) != 0 &&
        ::stat(nativePath(path).c_str(), &status) != 0)
        return {};
    const auto changed = std::chrono::seconds(status.st_ctim.tv_sec) +
                         std::chrono::nanoseconds(status.st_ctim.tv_nsec);
    return {versionOf(changed.count(), static_cast<std::uintmax_t>(status.st_size), status.st_ino),
            std::chrono::system_clock::now().time_since_epoch() - changed};
}

#endif

}  // namespace

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
    const fs::path file = nativePath(path);
    std::error_code error;
    if (fs::is_directory(file, error)) return std::nullopt;
    std::ifstream stream(file, std::ios::binary);
    if (!stream) return std::nullopt;
    std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (stream.bad()) return std::nullopt;
    return bytes;
}

bool replaceFile(std::wstring_view path, std::string_view bytes) {
    // Most commands end with their list as it was: flushing it to the disk would cost more than all
    // the rest.
    if (readFile(path) == bytes) return true;
    std::error_code error;
    fs::path target = nativePath(path);
    // Writing through a link replaces what it points at, not the link.
    if (fs::is_symlink(target, error)) {
        target = fs::weakly_canonical(target, error);
        if (error) return false;
    }
    if (fs::is_directory(target, error)) return false;
    if (fs::exists(target, error) && !mayWrite(target)) return false;
    fs::path temporary = target;
    temporary += "." + std::to_string(processNumber()) + ".tmp";
    fs::remove(temporary, error);
    if (!writeFlushed(temporary, bytes, target)) {
        fs::remove(temporary, error);
        return false;
    }
    fs::rename(temporary, target, error);
    if (error) {
        std::error_code ignored;
        fs::remove(temporary, ignored);
        return false;
    }
    flushFolder(target.parent_path());
    return true;
}

}  // namespace perfis
