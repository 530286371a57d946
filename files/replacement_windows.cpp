// SPDX-License-Identifier: MIT
// Files on Windows.
#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "files/replacement.h"

namespace files {
namespace {

namespace fs = std::filesystem;

/// Errno value of what the system said last.
int lastError() {
    switch (GetLastError()) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            return ENOENT;
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
            return EACCES;
        case ERROR_DISK_FULL:
            return ENOSPC;
        default:
            return EIO;
    }
}

fs::path behindLinks(const fs::path& path) {
    std::error_code error;
    if (!fs::is_symlink(path, error)) return path;
    const fs::path real = fs::weakly_canonical(path, error);
    return error ? path : real;
}

}  // namespace

std::optional<std::string> readRegular(const fs::path& path) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return std::nullopt;
    std::ifstream stream(path, std::ios::binary);
    if (!stream) return std::nullopt;
    std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    return stream.bad() ? std::nullopt : std::optional(std::move(bytes));
}

fs::path standardOutput() { return L"CONOUT$"; }
bool isStandardOutput(const fs::path& path) { return path == standardOutput(); }

Replacement::Replacement(fs::path target)
    : m_target(isStandardOutput(target) ? std::move(target) : behindLinks(target)) {}

Replacement::~Replacement() {
    if (m_fd >= 0) (void)_close(m_fd);
    if (!m_direct && !m_place.empty()) (void)_wunlink(m_place.c_str());
}

int Replacement::makeTemporary(const fs::path& folder, int permissions) {
    static unsigned count = 0;
    m_place = folder / (".gravando-" + std::to_string(GetCurrentProcessId()) + "-" +
                        std::to_string(++count));
    constexpr int kFlags = _O_WRONLY | _O_CREAT | _O_TRUNC | _O_BINARY | _O_NOINHERIT;
    const errno_t error = _wsopen_s(&m_fd, m_place.c_str(), kFlags, _SH_DENYWR, permissions);
    if (error != 0) m_place.clear();
    return error;
}

int Replacement::open() {
    if (isStandardOutput(m_target)) {
        m_direct = true;
        m_fd = _dup(_fileno(stdout));
        if (m_fd < 0) return errno;
        _setmode(m_fd, _O_BINARY);
        m_place = m_target;
        return 0;
    }
    std::error_code error;
    if (fs::is_directory(m_target, error)) return EISDIR;
    if (_waccess(m_target.c_str(), 0) == 0 && _waccess(m_target.c_str(), 2) != 0) return errno;
    return makeTemporary(m_target.parent_path(), _S_IREAD | _S_IWRITE);
}

int Replacement::write(std::string_view bytes) {
    constexpr std::size_t kChunk = 1U << 20;
    while (!bytes.empty()) {
        const int n =
            _write(m_fd, bytes.data(), static_cast<unsigned>(std::min(bytes.size(), kChunk)));
        if (n < 0) return errno;
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return 0;
}

int Replacement::commit() {
    if (m_fd < 0) return EBADF;
    if (m_direct) return _close(std::exchange(m_fd, -1)) == 0 ? 0 : errno;
    int error = _commit(m_fd) == 0 ? 0 : errno;
    if (_close(std::exchange(m_fd, -1)) != 0 && error == 0) error = errno;
    if (error != 0) return error;
    const bool exists = _waccess(m_target.c_str(), 0) == 0;
    if (exists && !m_backup.empty() && m_backup != m_target) {
        // Attributes and access list stay with the name.
        constexpr DWORD kFlags = REPLACEFILE_IGNORE_MERGE_ERRORS;
        if (ReplaceFileW(m_target.c_str(), m_place.c_str(), m_backup.c_str(), kFlags, nullptr,
                         nullptr) != 0) {
            m_place.clear();
            return 0;
        }
    }
    constexpr DWORD kReplace = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    if (MoveFileExW(m_place.c_str(), m_target.c_str(), kReplace) == 0) return lastError();
    m_place.clear();
    return 0;
}

}  // namespace files
