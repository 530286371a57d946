// SPDX-License-Identifier: MIT
// Files on POSIX systems.
#include "prancheta/base/file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "prancheta/base/bus_guard.h"

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
    int release() { return std::exchange(m_fd, -1); }

private:
    int m_fd;
};

Result<std::string> readAll(const Descriptor& file, const fs::path& path) {
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

}  // namespace

Result<std::string> readFile(const fs::path& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.get() < 0) return fileError(path, "não foi possível abrir o arquivo", errno);
    return readAll(file, path);
}

/// The file as it was when it was mapped.
struct MappedFile::Watch {
    int descriptor = -1;
    struct timespec written {};
    BusGuard guard;
};

MappedFile::MappedFile() : m_watch(std::make_unique<Watch>()) {}

Result<std::shared_ptr<const MappedFile>> MappedFile::open(const fs::path& path) {
    Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.get() < 0) return fileError(path, "não foi possível abrir o arquivo", errno);
    struct stat info {};
    if (::fstat(file.get(), &info) != 0)
        return fileError(path, "não foi possível ler o arquivo", errno);
    if (S_ISDIR(info.st_mode)) return fileError(path, "não foi possível ler o arquivo", EISDIR);
    std::shared_ptr<MappedFile> mapped(new MappedFile);
    if (S_ISFIFO(info.st_mode) || S_ISSOCK(info.st_mode)) {
        Result<std::string> content = readAll(file, path);
        if (!content) return content.error();
        mapped->m_copy = std::move(*content);
        if (!mapped->m_copy.empty()) mapped->m_data = mapped->m_copy.data();
        mapped->m_size = mapped->m_copy.size();
        return std::shared_ptr<const MappedFile>(mapped);
    }
    if (info.st_size == 0) return std::shared_ptr<const MappedFile>(mapped);
    void* const data = ::mmap(nullptr, static_cast<std::size_t>(info.st_size), PROT_READ,
                              MAP_PRIVATE, file.get(), 0);
    if (data == MAP_FAILED) return fileError(path, "não foi possível ler o arquivo", errno);
    mapped->m_data = static_cast<const char*>(data);
    mapped->m_size = static_cast<std::size_t>(info.st_size);
    if (!mapped->m_watch->guard.watch(data, mapped->m_size))
        return fileError(path, "não foi possível abrir o arquivo", EMFILE);
    mapped->m_watch->written = info.st_mtim;
    mapped->m_watch->descriptor = file.release();
    return std::shared_ptr<const MappedFile>(mapped);
}

bool MappedFile::changed() const {
    if (m_watch->guard.hit()) return true;
    struct stat now {};
    if (m_watch->descriptor < 0 || ::fstat(m_watch->descriptor, &now) != 0) return false;
    return static_cast<std::size_t>(now.st_size) != m_size ||
           now.st_mtim.tv_sec != m_watch->written.tv_sec ||
           now.st_mtim.tv_nsec != m_watch->written.tv_nsec;
}

void MappedFile::giveBack(std::string_view part) const {
    if (!m_copy.empty()) return;
    static const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    const auto offset = static_cast<std::size_t>(part.data() - m_data);
    const std::size_t first = (offset + page - 1) / page * page;
    const std::size_t end = (offset + part.size()) / page * page;
    // Advice: where it is not taken the pages merely stay.
    if (first < end) (void)::madvise(const_cast<char*>(m_data) + first, end - first, MADV_DONTNEED);
}

MappedFile::~MappedFile() {
    if (m_watch->descriptor >= 0) ::close(m_watch->descriptor);
    if (m_data != nullptr && m_copy.empty()) ::munmap(const_cast<char*>(m_data), m_size);
}

}  // namespace prancheta
