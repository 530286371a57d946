// SPDX-License-Identifier: MIT
// Files on POSIX systems.
#include "prancheta/base/file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace prancheta {
namespace fs = std::filesystem;
namespace {

constexpr std::size_t kChunk = 1U << 20;

Error fileError(const fs::path& path, const char* what, int error) {
    return {std::string(what) + ": " + errnoText(error), path.string(), 0, 0};
}

/// Closes a descriptor at the end of a block.
class Descriptor {
public:
    explicit Descriptor(int fd) : m_fd(fd) {}
    ~Descriptor() {
        if (m_fd >= 0) ::close(m_fd);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return m_fd; }

private:
    int m_fd;
};

/// Writes everything or says why not (errno value, 0 = done).
int writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t n = ::write(fd, bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return errno;
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return 0;
}

/// A pipe, a terminal, a device: it takes bytes, and a file in its place would not be it.
bool isChannel(const fs::path& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 && !S_ISREG(info.st_mode) && !S_ISDIR(info.st_mode);
}

}  // namespace

Result<std::string> readFile(const fs::path& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.get() < 0) return fileError(path, "não foi possível abrir o arquivo", errno);
    std::string content;
    for (;;) {
        const std::size_t at = content.size();
        content.resize(at + kChunk);
        const ssize_t n = ::read(file.get(), content.data() + at, kChunk);
        if (n < 0 && errno != EINTR)
            return fileError(path, "não foi possível ler o arquivo", errno);
        content.resize(at + static_cast<std::size_t>(n < 0 ? 0 : n));
        if (n == 0) return content;
    }
}

AtomicFile::AtomicFile(fs::path target) : m_target(std::move(target)) {
    // A link is followed, so that the file behind it is replaced and the link stays. What is behind
    // a link to a pipe has no name of its own.
    std::error_code error;
    if (fs::is_symlink(m_target, error) && !isChannel(m_target)) {
        const fs::path real = fs::weakly_canonical(m_target, error);
        if (!error) m_target = real;
    }
}

AtomicFile::~AtomicFile() {
    if (m_fd >= 0) ::close(m_fd);
    if (!m_temporary.empty()) ::unlink(m_temporary.c_str());
}

Result<void> AtomicFile::open() {
    // A rename would replace a write-protected file all the same: the protection is the user's
    // wish.
    if (::access(m_target.c_str(), F_OK) == 0 && ::access(m_target.c_str(), W_OK) != 0)
        return fileError(m_target, "não foi possível gravar o arquivo", errno);
    m_buffer.reserve(kChunk);
    if (isChannel(m_target)) {
        m_fd = ::open(m_target.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
        if (m_fd < 0) return fileError(m_target, "não foi possível gravar o arquivo", errno);
        return {};
    }
    std::string name =
        (m_target.parent_path() / ("." + m_target.filename().string() + ".XXXXXX")).string();
    m_fd = ::mkostemp(name.data(), O_CLOEXEC);
    if (m_fd < 0) return fileError(m_target, "não foi possível gravar na pasta do arquivo", errno);
    m_temporary = name;
    struct stat old {};
    const mode_t mask = ::umask(0);
    ::umask(mask);
    const mode_t mode = ::stat(m_target.c_str(), &old) == 0 ? old.st_mode & 07777U : 0666U & ~mask;
    (void)::fchmod(m_fd, mode);  // a file system without modes keeps its own
    return {};
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
    const bool direct = m_temporary.empty();
    if (m_errno == 0) m_errno = writeAll(m_fd, m_buffer);
    if (!direct && m_errno == 0 && ::fsync(m_fd) != 0) m_errno = errno;
    if (::close(m_fd) != 0 && m_errno == 0) m_errno = errno;
    m_fd = -1;
    if (direct && m_errno != 0)
        return fileError(m_target, "não foi possível gravar o arquivo", m_errno);
    if (direct) return {};
    if (m_errno == 0 && ::rename(m_temporary.c_str(), m_target.c_str()) != 0) m_errno = errno;
    if (m_errno != 0) return fileError(m_target, kFailed, m_errno);
    m_temporary.clear();
    // The rename itself reaches the disk with its folder.
    const fs::path folder = m_target.has_parent_path() ? m_target.parent_path() : fs::path(".");
    const Descriptor parent(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (parent.get() >= 0) (void)::fsync(parent.get());
    return {};
}

Result<std::shared_ptr<const MappedFile>> MappedFile::open(const fs::path& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.get() < 0) return fileError(path, "não foi possível abrir o arquivo", errno);
    struct stat info {};
    if (::fstat(file.get(), &info) != 0)
        return fileError(path, "não foi possível ler o arquivo", errno);
    if (S_ISDIR(info.st_mode)) return fileError(path, "não foi possível ler o arquivo", EISDIR);
    std::shared_ptr<MappedFile> mapped(new MappedFile);
    if (info.st_size == 0) return std::shared_ptr<const MappedFile>(mapped);
    void* const data = ::mmap(nullptr, static_cast<std::size_t>(info.st_size), PROT_READ,
                              MAP_PRIVATE, file.get(), 0);
    if (data == MAP_FAILED) return fileError(path, "não foi possível ler o arquivo", errno);
    mapped->m_data = static_cast<const char*>(data);
    mapped->m_size = static_cast<std::size_t>(info.st_size);
    return std::shared_ptr<const MappedFile>(mapped);
}

void MappedFile::giveBack(std::string_view part) const {
    static const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    const auto offset = static_cast<std::size_t>(part.data() - m_data);
    const std::size_t first = (offset + page - 1) / page * page;
    const std::size_t end = (offset + part.size()) / page * page;
    // Advice: where it is not taken the pages merely stay.
    if (first < end) (void)::madvise(const_cast<char*>(m_data) + first, end - first, MADV_DONTNEED);
}

MappedFile::~MappedFile() {
    if (m_data != nullptr) ::munmap(const_cast<char*>(m_data), m_size);
}

}  // namespace prancheta
