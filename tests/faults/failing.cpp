// SPDX-License-Identifier: MIT
// Loaded before a program's libraries: one call of one kind fails, as FALHA says ("write:12" is the
// twelfth write). How many calls of each kind there were goes to the file that FALHA_CONTAS names.
#include <dlfcn.h>
#include <execinfo.h>
#include <fcntl.h>
#include <sys/uio.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

enum Kind { kAlloc, kOpen, kWrite, kFsync, kClose, kRename, kKinds };
constexpr std::array<const char*, kKinds> kNames = {"alloc", "open",  "write",
                                                    "fsync", "close", "rename"};

/// Known before anything else of the program runs, without a constructor.
struct Calls {
    std::array<std::atomic<long>, kKinds> made{};
    std::atomic<int> state{0};
    int kind = -1;
    long number = 0;
};
constinit Calls g_calls;

void readWish() {
    if (g_calls.state.exchange(1) != 0) return;
    const char* const wish = std::getenv("FALHA");
    const char* const colon = wish != nullptr ? std::strchr(wish, ':') : nullptr;
    if (colon == nullptr) return;
    for (int kind = 0; kind < kKinds; ++kind) {
        const auto length = static_cast<std::size_t>(colon - wish);
        if (std::strlen(kNames[kind]) == length && std::strncmp(wish, kNames[kind], length) == 0)
            g_calls.kind = kind;
    }
    g_calls.number = std::atol(colon + 1);
}

/// The standard library ends the program itself when there is no memory for the next name of a
/// folder: what fails is the next allocation after that.
bool insideFolder() {
    std::array<void*, 12> frames{};
    const int count = ::backtrace(frames.data(), static_cast<int>(frames.size()));
    for (int i = 0; i < count; ++i) {
        Dl_info of{};
        if (::dladdr(frames[static_cast<std::size_t>(i)], &of) != 0 && of.dli_sname != nullptr &&
            std::strstr(of.dli_sname, "directory_iterator") != nullptr)
            return true;
    }
    return false;
}

bool fails(Kind kind) {
    readWish();
    if (++g_calls.made[kind] != g_calls.number || g_calls.kind != kind) return false;
    if (kind != kAlloc || !insideFolder()) return true;
    ++g_calls.number;
    return false;
}

/// The system's own function of that name.
template <class Function>
Function* own(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

struct AtTheEnd {
    ~AtTheEnd() {
        const char* const name = std::getenv("FALHA_CONTAS");
        std::FILE* const file = name != nullptr ? std::fopen(name, "w") : nullptr;
        if (file == nullptr) return;
        for (int kind = 0; kind < kKinds; ++kind)
            std::fprintf(file, "%s %ld\n", kNames[kind], g_calls.made[kind].load());
        std::fclose(file);
    }
} g_atTheEnd;

}  // namespace

void* operator new(std::size_t size) {
    void* const room = fails(kAlloc) ? nullptr : std::malloc(size > 0 ? size : 1);
    if (room == nullptr) throw std::bad_alloc();
    return room;
}
void operator delete(void* room) noexcept { std::free(room); }
void operator delete(void* room, std::size_t) noexcept { std::free(room); }

extern "C" {

int open(const char* path, int flags, ...) {
    static auto* const real = own<int(const char*, int, mode_t)>("open");
    va_list rest;
    va_start(rest, flags);
    const auto mode = static_cast<mode_t>((flags & O_CREAT) != 0 ? va_arg(rest, int) : 0);
    va_end(rest);
    if (!fails(kOpen)) return real(path, flags, mode);
    errno = EMFILE;
    return -1;
}

// What goes to the terminal is no file of the user's.
ssize_t write(int file, const void* bytes, size_t count) {
    static auto* const real = own<ssize_t(int, const void*, size_t)>("write");
    if (file <= 2 || !fails(kWrite)) return real(file, bytes, count);
    errno = ENOSPC;
    return -1;
}

ssize_t writev(int file, const iovec* parts, int count) {
    static auto* const real = own<ssize_t(int, const iovec*, int)>("writev");
    if (file <= 2 || !fails(kWrite)) return real(file, parts, count);
    errno = ENOSPC;
    return -1;
}

int fsync(int file) {
    static auto* const real = own<int(int)>("fsync");
    if (!fails(kFsync)) return real(file);
    errno = EIO;
    return -1;
}

// The descriptor is gone all the same, as after an error of a disk on the network.
int close(int file) {
    static auto* const real = own<int(int)>("close");
    const int done = real(file);
    if (file <= 2 || !fails(kClose)) return done;
    errno = EIO;
    return -1;
}

int rename(const char* from, const char* to) {
    static auto* const real = own<int(const char*, const char*)>("rename");
    if (!fails(kRename)) return real(from, to);
    errno = EACCES;
    return -1;
}
}
