// SPDX-License-Identifier: MIT
// Files on Windows.
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "prancheta/base/file.h"
#include "prancheta/base/file_stamp.h"

namespace prancheta {
namespace fs = std::filesystem;
namespace {

constexpr std::size_t kChunk = 1U << 20;

Error fileError(const fs::path& path, const char* what, int error) {
    return {std::string(what) + ": " + errnoText(error), path.string(), 0, 0};
}

int writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto size = static_cast<unsigned>(std::min(bytes.size(), kChunk));
        const int n = _write(fd, bytes.data(), size);
        if (n < 0) return errno;
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return 0;
}

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

}  // namespace

Result<std::string> readFile(const fs::path& path) {
    std::error_code error;
    if (fs::is_directory(path, error))
        return fileError(path, "não foi possível ler o arquivo", EISDIR);
    errno = 0;
    std::ifstream in(path, std::ios::binary);
    if (!in) return fileError(path, "não foi possível abrir o arquivo", errno);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

AtomicFile::AtomicFile(fs::path target) : m_target(std::move(target)) {}

AtomicFile::~AtomicFile() {
    if (m_fd >= 0) _close(m_fd);
    if (!m_temporary.empty()) _wunlink(m_temporary.c_str());
}

Result<void> AtomicFile::open() {
    if (_waccess(m_target.c_str(), 0) == 0 && _waccess(m_target.c_str(), 2) != 0)
        return fileError(m_target, "não foi possível gravar o arquivo", errno);
    const std::string number = std::to_string(GetCurrentProcessId());
    m_temporary = m_target;
    m_temporary += L"." + std::wstring(number.begin(), number.end()) + L".tmp";
    constexpr int kFlags = _O_WRONLY | _O_CREAT | _O_TRUNC | _O_BINARY | _O_NOINHERIT;
    m_fd = _wopen(m_temporary.c_str(), kFlags, _S_IREAD | _S_IWRITE);
    if (m_fd >= 0) return {};
    m_temporary.clear();
    return fileError(m_target, "não foi possível gravar na pasta do arquivo", errno);
}

void AtomicFile::write(std::string_view bytes) {
    m_buffer.append(bytes);
    if (m_buffer.size() < kChunk) return;
    if (m_errno == 0) m_errno = writeAll(m_fd, m_buffer);
    m_buffer.clear();
}

Result<void> AtomicFile::commit() {
    constexpr const char* kFailed =
        "não foi possível gravar o arquivo; o arquivo anterior foi mantido";
    if (m_fd < 0) return fileError(m_target, kFailed, EBADF);
    if (m_errno == 0) m_errno = writeAll(m_fd, m_buffer);
    if (m_errno == 0 && _commit(m_fd) != 0) m_errno = errno;
    if (_close(m_fd) != 0 && m_errno == 0) m_errno = errno;
    m_fd = -1;
    constexpr DWORD kReplace = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    if (m_errno == 0 && MoveFileExW(m_temporary.c_str(), m_target.c_str(), kReplace) == 0)
        m_errno = lastError();
    if (m_errno != 0) return fileError(m_target, kFailed, m_errno);
    m_temporary.clear();
    return {};
}

// A mapped file could not be replaced while it is open: the bytes are copied.
Result<std::shared_ptr<const MappedFile>> MappedFile::open(const fs::path& path) {
    Result<std::string> bytes = readFile(path);
    if (!bytes) return bytes.error();
    std::shared_ptr<MappedFile> file(new MappedFile);
    char* const copy = new char[bytes->size() + 1];
    std::copy(bytes->begin(), bytes->end(), copy);
    file->m_data = copy;
    file->m_size = bytes->size();
    return std::shared_ptr<const MappedFile>(file);
}

// The system takes pages of a view by itself when memory is short.
void MappedFile::giveBack(std::string_view) const {}

MappedFile::~MappedFile() { delete[] m_data; }

std::optional<FileStamp> fileStampOf(const fs::path& path) {
    std::error_code error;
    FileStamp stamp;
    stamp.nanoseconds = fs::last_write_time(path, error).time_since_epoch().count();
    if (error) return std::nullopt;
    stamp.size = fs::file_size(path, error);
    if (error) return std::nullopt;
    return stamp;
}

}  // namespace prancheta
