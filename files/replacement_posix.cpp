// SPDX-License-Identifier: MIT
// Files on POSIX systems.
#include "files/replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <ctime>
#include <system_error>
#include <utility>

#include "files/dead_temporaries.h"

namespace files {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kChunk = 1U << 16;

int writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t n = ::write(fd, bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return errno;
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return 0;
}

/// Hands everything that can be read to `take`, which says 0 to go on.
template <class Take>
int readAll(int fd, Take take) {
    std::array<char, kChunk> chunk;
    for (;;) {
        const ssize_t n = ::read(fd, chunk.data(), chunk.size());
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return errno;
        if (n == 0) return 0;
        if (const int error = take({chunk.data(), static_cast<std::size_t>(n)})) return error;
    }
}

int closed(int& fd) { return ::close(std::exchange(fd, -1)) == 0 ? 0 : errno; }

/// Closes a descriptor at the end of a block.
struct Descriptor {
    explicit Descriptor(int descriptor) : fd(descriptor) {}
    ~Descriptor() {
        if (fd >= 0) ::close(fd);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int fd;
};

fs::path folderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

/// A pipe or a device: it takes bytes, and a file in its place would not be it.
bool isChannel(const struct stat& info) { return !S_ISREG(info.st_mode) && !S_ISDIR(info.st_mode); }

/// A pipe is waited for by who reads it, not for long the other way round: a window would stand.
int openChannel(const fs::path& path) {
    constexpr int kFlags = O_WRONLY | O_CLOEXEC | O_NOCTTY;
    constexpr int kPatience = 100;
    int fd = -1;
    for (int i = 0; i < kPatience; ++i) {
        fd = ::open(path.c_str(), kFlags | O_NONBLOCK);
        if (fd >= 0 || errno != ENXIO) break;
        const timespec pause{0, 20'000'000};
        ::nanosleep(&pause, nullptr);
        errno = ENXIO;
    }
    if (fd >= 0) (void)::fcntl(fd, F_SETFL, kFlags & ~O_CLOEXEC & ~O_NOCTTY);
    return fd;
}

/// Where the links of the name lead, also when there is nothing yet. A link to a pipe keeps its own
/// name: what is behind it may have none.
fs::path behindLinks(const fs::path& path) {
    constexpr int kMostLinks = 40;  // the system's own limit
    struct stat info {};
    if (::stat(path.c_str(), &info) == 0 && isChannel(info)) return path;
    fs::path file = path;
    std::error_code error;
    for (int i = 0; i < kMostLinks && fs::is_symlink(file, error); ++i) {
        const fs::path next = fs::read_symlink(file, error);
        if (error) break;
        file = next.is_absolute() ? next : file.parent_path() / next;
    }
    return file;
}

/// Gives a new file what makes the old one its owner's and its colleagues'. False when a file in
/// its place would not be the same to somebody.
bool takesIdentity(int fresh, const fs::path& target, const struct stat& old) {
    struct stat mine {};
    if (old.st_nlink > 1 || ::fstat(fresh, &mine) != 0) return false;
#ifdef __linux__
    if (::getxattr(target.c_str(), "system.posix_acl_access", nullptr, 0) > 0) return false;
#else
    (void)target;
#endif
    const bool owned = mine.st_uid == old.st_uid && mine.st_gid == old.st_gid;
    if (!owned && ::fchown(fresh, old.st_uid, old.st_gid) != 0) return false;
    return ::fchmod(fresh, old.st_mode & 07777U) == 0;
}

/// A second name of the file, else a copy, in the backup's folder; empty when there can be none.
fs::path kept(const fs::path& file, const fs::path& backup, bool staysTheSameFile) {
    std::error_code error;
    if (backup.empty() || backup == file || !fs::is_regular_file(file, error)) return {};
    fs::path fresh = backup.parent_path() / temporaryName();
    error = std::make_error_code(std::errc::not_supported);
    if (!staysTheSameFile) fs::create_hard_link(file, fresh, error);
    if (error) fs::copy_file(file, fresh, error);
    if (!error) return fresh;
    fs::remove(fresh, error);
    return {};
}

void settle(const fs::path& kept, const fs::path& backup, bool replaced) {
    std::error_code error;
    if (kept.empty()) return;
    if (replaced) fs::rename(kept, backup, error);
    if (error || !replaced) fs::remove(kept, error);
}

/// Makes names last; the contents are safe already, so a failure changes nothing.
void flushFolder(const fs::path& folder) {
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.fd >= 0) (void)::fsync(opened.fd);
}

/// Room for all of it before the first byte of the old contents is lost. A file system that cannot
/// tell is believed.
int reserve(int fd, off_t size) {
#ifdef __linux__
    if (size > 0 && ::fallocate(fd, FALLOC_FL_KEEP_SIZE, 0, size) != 0 &&
        (errno == ENOSPC || errno == EDQUOT || errno == EFBIG))
        return errno;
#else
    (void)fd, (void)size;
#endif
    return 0;
}

}  // namespace

std::optional<std::string> readRegular(const fs::path& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
    // It may have become a pipe since, which would keep us waiting.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (file.fd < 0 || ::fstat(file.fd, &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(info.st_size));
    const int error = readAll(file.fd, [&](std::string_view chunk) {
        bytes += chunk;
        return 0;
    });
    return error == 0 ? std::optional(std::move(bytes)) : std::nullopt;
}

fs::path standardOutput() { return "/dev/stdout"; }

bool isStandardOutput(const fs::path& path) {
    struct stat file {};
    struct stat output {};
    return path == standardOutput() ||
           (::stat(path.c_str(), &file) == 0 && ::fstat(STDOUT_FILENO, &output) == 0 &&
            file.st_dev == output.st_dev && file.st_ino == output.st_ino);
}

Replacement::Replacement(fs::path target)
    : m_target(isStandardOutput(target) ? std::move(target) : behindLinks(target)) {}

Replacement::~Replacement() {
    if (m_fd >= 0) ::close(m_fd);
    if (!m_direct && !m_place.empty()) ::unlink(m_place.c_str());
}

int Replacement::makeTemporary(const fs::path& folder, int permissions) {
    m_place = folder / temporaryName();
    constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    m_fd = ::open(m_place.c_str(), kFlags, permissions);
    if (m_fd >= 0) return 0;
    m_place.clear();
    return errno;
}

int Replacement::open() {
    if (isStandardOutput(m_target)) {
        m_direct = true;
        m_fd = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0);
        if (m_fd >= 0) m_place = m_target;
        return m_fd >= 0 ? 0 : errno;
    }
    removeDeadTemporaries(folderOf(m_target));
    struct stat old {};
    const bool exists = ::stat(m_target.c_str(), &old) == 0;
    if (exists && S_ISDIR(old.st_mode)) return EISDIR;
    // A rename would replace a write-protected file all the same: the protection is the user's
    // wish.
    if (exists && ::faccessat(AT_FDCWD, m_target.c_str(), W_OK, AT_EACCESS) != 0) return errno;
    if (exists && isChannel(old)) {
        m_direct = true;
        m_fd = openChannel(m_target);
        if (m_fd >= 0) m_place = m_target;
        return m_fd >= 0 ? 0 : errno;
    }
    if (!exists) return makeTemporary(folderOf(m_target), 0666);
    int error = makeTemporary(folderOf(m_target), 0600);
    if (error == EACCES || error == EPERM || error == EROFS) {
        m_inPlace = true;
        std::error_code none;
        const fs::path common = fs::temp_directory_path(none);
        if (!none && makeTemporary(common, 0600) == 0) error = 0;
    }
    if (error == 0) m_inPlace = m_inPlace || !takesIdentity(m_fd, m_target, old);
    return error;
}

int Replacement::write(std::string_view bytes) { return writeAll(m_fd, bytes); }

int Replacement::commit() {
    if (m_fd < 0) return EBADF;
    if (m_direct) return closed(m_fd);
    int error = ::fsync(m_fd) == 0 ? 0 : errno;
    if (const int late = closed(m_fd); error == 0) error = late;
    if (error != 0) return error;
    fs::path former = kept(m_target, m_backup, m_inPlace);
    if (!m_inPlace) {
        error = ::rename(m_place.c_str(), m_target.c_str()) == 0 ? 0 : errno;
        // A folder in which files belong to who made them (sticky) takes new ones, but no others'.
        // A file that another file system is laid over cannot be replaced at all.
        m_inPlace = error == EACCES || error == EPERM || error == EBUSY;
        if (error == 0) m_place.clear();
        if (m_inPlace && !former.empty()) {
            settle(former, m_backup, false);
            former = kept(m_target, m_backup, true);
        }
    }
    if (m_inPlace) error = copyIntoTarget();
    settle(former, m_backup, error == 0);
    if (error == 0) flushFolder(folderOf(m_target));
    return error;
}

int Replacement::copyIntoTarget() {
    const Descriptor from(::open(m_place.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat fresh {};
    if (from.fd < 0 || ::fstat(from.fd, &fresh) != 0) return errno;
    Descriptor to(::open(m_target.c_str(), O_WRONLY | O_CLOEXEC));
    if (to.fd < 0) return errno;
    if (const int error = reserve(to.fd, fresh.st_size)) return error;
    // From here on it is not ours to clean up when we are gone, and a person must find it.
    constexpr std::size_t kMostOfName = 200;
    const std::string own = m_place.filename().native();
    fs::path copy = m_place;
    copy.replace_filename(m_target.filename().native().substr(0, kMostOfName) + ".copia-" +
                          own.substr(own.rfind('-') + 1));
    if (::rename(m_place.c_str(), copy.c_str()) == 0) m_place = copy;
    m_copyLeft = std::exchange(m_place, {});
    int error = readAll(from.fd, [&](std::string_view bytes) { return writeAll(to.fd, bytes); });
    if (error == 0 && ::ftruncate(to.fd, fresh.st_size) != 0) error = errno;
    if (error == 0 && ::fsync(to.fd) != 0) error = errno;
    if (const int late = closed(to.fd); error == 0) error = late;
    if (error != 0) return error;
    ::unlink(m_copyLeft.c_str());
    m_copyLeft.clear();
    return 0;
}

}  // namespace files
