// SPDX-License-Identifier: MIT
// Dynamic libraries by the dynamic linker of ELF systems.
#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string_view>

#include "prancheta/base/file.h"
#include "prancheta/base/library.h"

namespace prancheta {
namespace fs = std::filesystem;

namespace {

volatile std::sig_atomic_t interrupted = 0;
volatile std::sig_atomic_t wish = 0;
int wishPipe[2] = {-1, -1};  ///< a pipe that ends with the wish

}  // namespace

void* openLibrary(const fs::path& file, std::string& reason) {
    void* const library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library != nullptr) return library;
    const char* const told = dlerror();
    const std::string_view text = told != nullptr ? told : "";
    if (::access(file.c_str(), R_OK) != 0)
        reason = errnoText(errno);
    else if (!text.starts_with(file.native()) || text.find("undefined symbol") != text.npos)
        reason = "falta algo de que ele depende (" + std::string(text) + ")";
    else
        reason = "não é um módulo deste sistema";
    return nullptr;
}

void closeLibrary(void* library) { dlclose(library); }
void* symbolOf(void* library, const char* name) { return dlsym(library, name); }

const void* libraryOf(const void* address) {
    Dl_info info{};
    return dladdr(address, &info) != 0 ? info.dli_fbase : nullptr;
}

fs::path libraryFileOf(const void* address) {
    Dl_info info{};
    return dladdr(address, &info) != 0 ? fs::path(info.dli_fname) : fs::path();
}

std::vector<fs::path> neededModules(void* library) {
    std::vector<fs::path> modules;
    link_map* map = nullptr;
    if (dlinfo(library, RTLD_DI_LINKMAP, &map) != 0 || map == nullptr) return modules;
    const char* names = nullptr;
    for (const ElfW(Dyn)* d = map->l_ld; d->d_tag != DT_NULL; ++d)
        if (d->d_tag == DT_STRTAB) names = reinterpret_cast<const char*>(d->d_un.d_ptr);
    if (names == nullptr) return modules;
    const link_map* first = map;
    while (first->l_prev != nullptr) first = first->l_prev;
    for (const ElfW(Dyn)* d = map->l_ld; d->d_tag != DT_NULL; ++d) {
        if (d->d_tag != DT_NEEDED) continue;
        const std::string_view needed = names + d->d_un.d_val;
        if (!needed.ends_with(".arx")) continue;
        for (const link_map* m = first; m != nullptr; m = m->l_next) {
            const fs::path path = m->l_name;
            if (path.filename() == fs::path(needed).filename()) modules.push_back(path);
        }
    }
    return modules;
}

fs::path folderOfProgram() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::path() : program.parent_path();
}

std::string environment(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

void setEnvironment(const char* name, const std::string& utf8Value) {
    setenv(name, utf8Value.c_str(), 1);
}

std::vector<std::string> programArguments(int argc, const char* const* argv) {
    return {argv, argv + argc};
}

void useUtf8Terminal() {}

bool inputIsTerminal() { return ::isatty(STDIN_FILENO) != 0; }

bool errorIsTerminal() {
    const std::string kind = environment("TERM");
    return ::isatty(STDERR_FILENO) != 0 && !kind.empty() && kind != "dumb";
}

void ignoreBrokenPipes() { (void)std::signal(SIGPIPE, SIG_IGN); }

void catchInterrupts() {
    struct sigaction action {};
    action.sa_handler = [](int) { interrupted = 1; };
    // Without SA_RESTART: whoever waits for a line comes back without one.
    (void)::sigaction(SIGINT, &action, nullptr);
}

void catchEndWishes() {
    if (::pipe2(wishPipe, O_CLOEXEC) != 0) return;  // the system's own ways stay
    struct sigaction action {};
    action.sa_handler = [](int signal) {
        const int before = errno;
        if (wish == 0) {
            (void)::close(wishPipe[1]);
            // Whoever waits comes back without a line, whoever is about to wait finds the end.
            (void)::dup2(wishPipe[0], STDIN_FILENO);
        }
        wish = signal;
        errno = before;
    };
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        struct sigaction present {};
        (void)::sigaction(signal, nullptr, &present);
        if (present.sa_handler == SIG_DFL) (void)::sigaction(signal, &action, nullptr);
    }
}

int endWish() { return wish; }
int endWishDescriptor() { return wishPipe[0]; }

// A key hit between the look at the note and the waiting would be waited past: the signal is held
// back in between.
void waitForInput() {
    sigset_t key;
    sigset_t usual;
    sigemptyset(&key);
    sigaddset(&key, SIGINT);
    sigprocmask(SIG_BLOCK, &key, &usual);
    pollfd input{STDIN_FILENO, POLLIN, 0};
    if (interrupted == 0) (void)::ppoll(&input, 1, nullptr, &usual);
    sigprocmask(SIG_SETMASK, &usual, nullptr);
}

bool takeInterrupt() {
    if (interrupted == 0) return false;
    interrupted = 0;
    return true;
}

}  // namespace prancheta
